#include "support/win32/PeerHarness.h"

#include <gtest/gtest.h>

namespace pellmark::test {

namespace {

struct Search {
    const Control* wanted;
    HWND found;
};

BOOL CALLBACK findPeer(HWND window, LPARAM parameter) noexcept {
    auto* search = reinterpret_cast<Search*>(parameter);
    const ControlPeer* peer = ControlPeer::of(window);
    if (peer == nullptr || peer->control() != search->wanted) return TRUE;
    search->found = window;
    return FALSE;
}

}  // namespace

PeerHarness::PeerHarness() {
    host_ = ::CreateWindowExW(0, L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | WS_VISIBLE, 100,
                              50, 1000, 760, nullptr, nullptr, nullptr, nullptr);
    hostBox_ = ::CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 300, 20, host_,
                                 nullptr, nullptr, nullptr);
    area_ = ::CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 30, 900, 650,
                              host_, nullptr, nullptr, nullptr);
    ::SetForegroundWindow(host_);
    ::SetFocus(hostBox_);
    form = std::make_unique<SampleForm>(desktop);
    form->fill(100);
}

PeerHarness::~PeerHarness() {
    form.reset();
    ::DestroyWindow(host_);
    Person::pump();
}

void PeerHarness::embed() {
    form->embed(reinterpret_cast<WindowHandle>(area_));
    Person::waitUntil([&] { return ::GetForegroundWindow() == host_; });
}

void PeerHarness::showModal(const std::function<void()>& look) {
    const auto window = [this] { return reinterpret_cast<HWND>(form->handle()); };
    const Meanwhile meanwhile(
        {[&] { return form->isLoaded() && ::IsWindowVisible(window()) && ::GetActiveWindow() == window(); },
         [&] {
             look();
             form->unload();
             return true;
         }});
    form->showModal(reinterpret_cast<WindowHandle>(host_));
    EXPECT_TRUE(meanwhile.isDone());
}

HWND PeerHarness::of(const Form& form, const Control& control) {
    Search search{&control, nullptr};
    const auto root = reinterpret_cast<HWND>(form.handle());
    ::EnumChildWindows(root, &findPeer, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

void PeerHarness::focus(Control& control) {
    ::SetFocus(of(control));
    Person::pump();
}

}  // namespace pellmark::test
