#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "controls/FindLine.h"
#include "controls/Form.h"
#include "controls/grid/ColumnTable.h"
#include "knowledge/Records.h"
#include "processes/AllProcesses.h"
#include "processes/ProcessRows.h"
#include "refhost/store/SqliteKnowledgeBaseService.h"
#include "settings/cRegDefaults.h"
#include "support/Measure.h"
#include "support/MemoryRegistry.h"
#include "support/PortableCodePage.h"
#include "support/SyntheticBase.h"
#include "util/ListArrangement.h"
#include "win32/BenchWindows.h"
#include "win32/controls/ControlPeer.h"
#include "win32/forms/Win32Desktop.h"
#include "win32/ports/Win32CodePage.h"
#include "win32/ports/Win32Registry.h"

/// How long a letter typed into the line above the list of all processes takes to show: from the key's
/// message to the painted rows, over a knowledge base of the size given.
namespace {

using namespace pellmark;

class NoTrace : public Trace {
  public:
    void record(std::string_view, std::string_view) noexcept override {}
};
class NoIdle : public Idle {
  public:
    void yield() override {}
};
class NoHelp : public HelpLauncher {
  public:
    void openHelp(WindowHandle) override {}
};

class ListForm : public Form {
  public:
    explicit ListForm(Desktop& desktop) : Form(desktop, "ListForm") {
        layOutColumns(grid, processColumns(false), [](const std::string& english) { return english; });
        hideInternalColumns(grid, processColumns(false), true);
    }
    void arrange(Size client) override {
        line.setBounds({0, 0, client.width, FindLine::kHeight});
        arrangeInside(line);
        grid.setBounds({0, FindLine::kHeight, client.width, client.height - FindLine::kHeight});
    }
    FindLine line{*this, "line"};
    Grid grid{*this, "grid"};
};

double now() {
    LARGE_INTEGER ticks{};
    LARGE_INTEGER perSecond{};
    ::QueryPerformanceCounter(&ticks);
    ::QueryPerformanceFrequency(&perSecond);
    return 1000.0 * static_cast<double>(ticks.QuadPart) / static_cast<double>(perSecond.QuadPart);
}

HWND boxOf(HWND parent, const Control& control) {
    for (HWND child = ::GetWindow(parent, GW_CHILD); child != nullptr;
         child = ::GetWindow(child, GW_HWNDNEXT)) {
        const ControlPeer* peer = ControlPeer::of(child);
        if (peer != nullptr && peer->control() == &control) return child;
        if (const HWND inner = boxOf(child, control)) return inner;
    }
    return nullptr;
}

class Bench {
  public:
    Bench(const std::string& folder, std::size_t count)
        : service_(bench::syntheticBase(folder, count), {std::chrono::milliseconds(5000), false, true}) {
        form_.embed(reinterpret_cast<WindowHandle>(host_.window));
        show();
        arrangement_.find();
        bench::pump();
    }

    /// Types a text letter by letter, a few times, and adds what each letter took.
    void type(bench::Table& table, const std::string& text) {
        constexpr int kTimes = 5;
        for (std::size_t length = 1; length <= text.size(); ++length) {
            std::vector<double> pictures;
            std::vector<double> whole;
            for (int i = 0; i < kTimes; ++i) {
                form_.line.TxtFind.setText(text.substr(0, length - 1));
                bench::pump();
                const HWND box = boxOf(reinterpret_cast<HWND>(form_.handle()), form_.line.TxtFind);
                ::SendMessageW(box, EM_SETSEL, static_cast<WPARAM>(length), static_cast<LPARAM>(length));
                const double start = now();
                ::SendMessageW(box, WM_CHAR, static_cast<WPARAM>(text[length - 1]), 1);
                pictures.push_back(painted_ - start);
                whole.push_back(now() - start);
            }
            table.add({"\"" + text.substr(0, length) + "\": " + form_.line.LblFound.caption(),
                       bench::number(bench::medianOf(pictures)), bench::number(bench::medianOf(whole))});
        }
    }

  private:
    void show() {
        form_.grid.bind(all_.read(&arrangement_));
        form_.grid.paintNow();
        const Grid::RedrawOff off(form_.grid);
        form_.grid.setRowDataFromColumn(0);
        form_.grid.select(1, 0);
    }

    NoTrace trace_;
    NoIdle idle_;
    NoHelp help_;
    Operations operations_{trace_};
    Win32Desktop desktop_{::GetModuleHandleW(nullptr), operations_};
    Texts texts_{operations_};
    Win32Registry registry_;
    Win32CodePage codePage_;
    cRegDefaults layouts_{registry_, codePage_, "Bench", "Bench", trace_};
    UserInterface person_{desktop_, texts_, help_, layouts_};
    norvex::SqliteKnowledgeBaseService service_;
    AllProcesses all_{service_};
    bench::Host host_;
    ListForm form_{desktop_};
    ListArrangement arrangement_{person_, idle_, form_.grid, form_.line};
    Subscription changed_ = arrangement_.changed.subscribe([this] { show(); });
    double painted_ = 0;
    // Behind the window's own, which paints.
    Subscription paint_ = form_.grid.paintRequested.subscribe([this] { painted_ = now(); });
};

}  // namespace

int main(int argc, char** argv) {
    const std::size_t count = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 1'000'000;
    Bench find(argc > 1 ? argv[1] : "bench-data", count);
    bench::Table table({"typed", "ms to the picture", "ms to the next key"});
    for (const char* text : {"m10", "drill", "no. 9912", "zq"})
        find.type(table, text);
    table.print();
    return 0;
}
