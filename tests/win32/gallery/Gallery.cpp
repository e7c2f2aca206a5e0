#include <cstdio>
#include <cstdlib>
#include <string>

#include "support/win32/SampleForm.h"
#include "win32/WindowsApi.h"
#include "win32/forms/Win32Desktop.h"

/// Shows the sample form for looking at it: gallery DPI [page] [rows] [modal]. It stays until it is closed.
namespace {

class PrintedTrace : public pellmark::Trace {
  public:
    void record(std::string_view operation, std::string_view what) noexcept override {
        std::fprintf(stderr, "%.*s: %.*s\n", static_cast<int>(operation.size()), operation.data(),
                     static_cast<int>(what.size()), what.data());
    }
};

}  // namespace

int main(int argc, char** argv) {
    const auto argument = [&](int i, int otherwise) { return argc > i ? std::atoi(argv[i]) : otherwise; };
    PrintedTrace trace;
    pellmark::Win32Desktop desktop(::GetModuleHandleW(nullptr), pellmark::Operations(trace));
    desktop.overrideDpi(argument(1, 96));
    pellmark::test::SampleForm form(desktop);
    form.fill(argument(3, 100));
    form.grid.setForeColor(3, 1, pellmark::kRed);
    form.grid.setForeColor(4, 1, pellmark::kGreen);
    form.grid.setItalic(5, 1, true);
    form.grid.setBackColor(6, 3, 0xC0FFFF);
    form.grid.setSelected(8, true);
    form.unit.setIndex(1);
    form.name.setText("Tap M8, blind hole");
    form.description.setText("First line\r\nSecond line");
    form.tabs.setIndex(argument(2, 0));
    form.grid.setActiveLook(argument(5, 1) != 0);
    if (argument(4, 1) != 0) {
        form.showModal(0);
        return 0;
    }
    const HWND host = ::CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, 1000,
                                        700, nullptr, nullptr, nullptr, nullptr);
    form.embed(reinterpret_cast<pellmark::WindowHandle>(host));
    MSG message{};
    while (::IsWindow(host) && ::GetMessageW(&message, nullptr, 0, 0) > 0) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    return 0;
}
