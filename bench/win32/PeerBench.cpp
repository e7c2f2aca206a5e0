#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <vector>

#include "support/Measure.h"
#include "support/win32/SampleForm.h"
#include "win32/BenchWindows.h"
#include "win32/MoveBench.h"
#include "win32/forms/Win32Desktop.h"

/// How long a form's list takes to its first painted rows, to turn a page, and how long a dialog takes to
/// open and close; each beside the bare control or the barest dialog of the same run.
namespace {

using bench::bareList;
using bench::Host;
using bench::listOf;
using bench::pump;
using pellmark::test::SampleForm;

constexpr int kRepetitions = 15;
constexpr int kPages = 300;

class NoTrace : public pellmark::Trace {
  public:
    void record(std::string_view, std::string_view) noexcept override {}
};

void emptyWindow() {
    const Host host;
    ::UpdateWindow(bareList(host.window, 0));
}

void firstRows(pellmark::Win32Desktop& desktop, int rows) {
    const Host host;
    SampleForm form(desktop);
    form.embed(reinterpret_cast<pellmark::WindowHandle>(host.window));
    form.fill(rows);
    form.grid.paintNow();
}

double p95(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() * 95 / 100];
}

double pageTurning(HWND list) {
    std::vector<double> times;
    for (int i = 0; i < kPages; ++i) {
        times.push_back(bench::millisecondsOf([list] {
            ::SendMessageW(list, WM_VSCROLL, SB_PAGEDOWN, 0);
            ::UpdateWindow(list);
        }));
    }
    return p95(times);
}

INT_PTR CALLBACK trivialDialog(HWND window, UINT message, WPARAM, LPARAM) noexcept {
    if (message == WM_INITDIALOG) ::PostMessageW(window, WM_COMMAND, IDCANCEL, 0);
    if (message == WM_COMMAND) ::EndDialog(window, 0);
    return message == WM_INITDIALOG;
}

/// The barest modal dialog: a caption and nothing in it.
void systemDialog(HWND owner) {
    struct {
        DLGTEMPLATE head;
        WORD menu, className, title;
    } dialog{};
    dialog.head.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE;
    dialog.head.cx = 300;
    dialog.head.cy = 200;
    ::DialogBoxIndirectParamW(::GetModuleHandleW(nullptr), &dialog.head, owner, &trivialDialog, 0);
}

class TrivialForm : public pellmark::Form {
  public:
    explicit TrivialForm(pellmark::Desktop& desktop) : Form(desktop, "TrivialForm") {
        setCaption("Trivial");
        setCancelButton(&cancel);
        closed_ = cancel.clicked.subscribe([this] { unload(); });
        cancel.place({100, 100, 1200, 400}, {6000, 4000}, {});
    }
    pellmark::Button cancel{*this, "cancel", "Cancel"};

  private:
    pellmark::Subscription closed_;
};

void ourDialog(TrivialForm& form, HWND owner) {
    form.load();
    ::PostMessageW(reinterpret_cast<HWND>(form.handle()), WM_CLOSE, 0, 0);
    form.showModal(reinterpret_cast<pellmark::WindowHandle>(owner));
}

void addComparison(bench::Table& table, const char* what, const bench::Comparison& found) {
    table.add(
        {what, bench::number(found.measured), bench::number(found.baseline), bench::number(found.ratio, 2)});
}

}  // namespace

int main(int argc, char** argv) {
    NoTrace trace;
    pellmark::Win32Desktop desktop(::GetModuleHandleW(nullptr), pellmark::Operations(trace));
    if (argc > 1) {  // only the moves, in a list of so many rows
        bench::moves(desktop, {std::atoi(argv[1])}).print();
        return 0;
    }
    firstRows(desktop, 100);  // fonts, classes and themes are loaded once per process
    emptyWindow();
    pump();

    bench::Table table({"what", "ms", "bare ms", "ratio"});
    for (const int rows : {100, 1000000}) {
        const auto found = bench::compare(
            kRepetitions, [&] { firstRows(desktop, rows); }, emptyWindow);
        addComparison(table, rows == 100 ? "first painted rows, 100" : "first painted rows, 1,000,000",
                      found);
        pump();
    }
    {
        const Host host;
        SampleForm form(desktop);
        form.embed(reinterpret_cast<pellmark::WindowHandle>(host.window));
        pump();
        const auto found = bench::compare(
            kRepetitions,
            [&] {
                form.fill(1000000);
                form.grid.paintNow();
            },
            emptyWindow);
        addComparison(table, "1,000,000 rows bound in a shown form", found);
        const double load = bench::medianMilliseconds(kRepetitions, [&] {
            SampleForm other(desktop);
            other.load();
        });
        table.add({"a form's windows made and destroyed", bench::number(load), "", ""});
    }
    {
        const Host host;
        TrivialForm form(desktop);
        const auto found = bench::compare(
            kRepetitions, [&] { ourDialog(form, host.window); }, [&] { systemDialog(host.window); });
        addComparison(table, "a dialog opened and closed", found);
    }
    {
        const Host host;
        SampleForm form(desktop);
        form.fill(1000000);
        form.embed(reinterpret_cast<pellmark::WindowHandle>(host.window));
        pump();
        const double ours = pageTurning(listOf(form));
        form.unload();
        const HWND bare = bareList(host.window, 1000000);
        ::UpdateWindow(bare);
        const double theirs = pageTurning(bare);
        table.add({"a page turned, 95th percentile", bench::number(ours), bench::number(theirs),
                   bench::number(ours / theirs, 2)});
    }
    table.print();
    bench::moves(desktop, {20000, 200000, 1000000}).print();
    return 0;
}
