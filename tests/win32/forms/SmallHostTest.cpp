// The main form in the smallest windows that a host may give it: every list shows three rows, and what has no
// room is reached through the scroll bars.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

#include "host/FrmMain.h"
#include "support/PortsHarness.h"
#include "support/win32/PeerHarness.h"
#include "support/win32/TextRoom.h"
#include "win32/forms/Win32Desktop.h"

namespace pellmark::test {
namespace {

struct Room {
    int width;
    int height;
    int dpi;
};

/// What a host's window of 640 by 480 pixels leaves, one of 1180 by 780 at 192 dpi, a narrow one and a low
/// one.
class SmallHostTest : public testing::TestWithParam<std::tuple<Room, double, bool>>, protected PortsHarness {
  protected:
    SmallHostTest() {
        const auto [room, fontSize, findIsOpen] = GetParam();
        windows_.overrideDpi(room.dpi);
        services_.host.set(host);
        host_ = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_CLIPCHILDREN, 0, 0, room.width,
                                  room.height, nullptr, nullptr, nullptr, nullptr);
        main_.SetView(FRView::FRProcesscase);
        main_.embed(reinterpret_cast<WindowHandle>(host_));
        for (Grid* each : lists()) {
            each->setFont({"", fontSize, false, false, false, false});
            each->setRows(each->fixedRows() + 5);
        }
        if (!findIsOpen) return;
        main_.FindProcessCaseResults.open();
        main_.FindProcessStep.open();
    }
    ~SmallHostTest() override {
        main_.unload();
        ::DestroyWindow(host_);
    }
    SmallHostTest(const SmallHostTest&) = delete;
    SmallHostTest& operator=(const SmallHostTest&) = delete;

    std::vector<Grid*> lists() {
        return {&main_.VSFGProcessCase, &main_.VSFGProcessCaseResults, &main_.VSFGProcessStep};
    }
    HWND form() const { return reinterpret_cast<HWND>(main_.handle()); }
    /// From one end of the scroll bars to the other, in pixels of the client area.
    RECT reach() const {
        RECT area{};
        ::GetClientRect(form(), &area);
        const auto style = ::GetWindowLongPtrW(form(), GWL_STYLE);
        SCROLLINFO bar{};
        bar.cbSize = sizeof bar;
        bar.fMask = SIF_RANGE;
        if ((style & WS_VSCROLL) != 0 && ::GetScrollInfo(form(), SB_VERT, &bar)) area.bottom = bar.nMax + 1;
        if ((style & WS_HSCROLL) != 0 && ::GetScrollInfo(form(), SB_HORZ, &bar)) area.right = bar.nMax + 1;
        return area;
    }

    Win32Desktop windows_{::GetModuleHandleW(nullptr), operations};
    Services services_{platformOn(windows_)};
    HWND host_ = nullptr;
    FrmMain main_{services_.forViews()};
};

TEST_P(SmallHostTest, EveryListShowsThreeRowsAndCanBeReached) {
    const RECT reached = reach();
    for (const Grid* each : lists()) {
        const HWND list = PeerHarness::of(main_, *each);
        EXPECT_GE(::SendMessageW(list, LVM_GETCOUNTPERPAGE, 0, 0), 3) << each->name();
        RECT at{};
        ::GetWindowRect(list, &at);
        ::MapWindowPoints(nullptr, form(), reinterpret_cast<POINT*>(&at), 2);
        RECT common{};
        ::IntersectRect(&common, &at, &reached);
        EXPECT_TRUE(::EqualRect(&common, &at)) << each->name();
    }
    // Headings have the widths that a person gives them, whatever the letters.
    const auto [room, fontSize, findIsOpen] = GetParam();
    if (fontSize == 0) {
        EXPECT_THAT(complaintsAbout(form(), room.dpi), testing::IsEmpty());
    }
}

INSTANTIATE_TEST_SUITE_P(Rooms, SmallHostTest,
                         testing::Combine(testing::Values(Room{628, 405, 96}, Room{1168, 660, 192},
                                                          Room{300, 900, 96}, Room{1400, 120, 144}),
                                          testing::Values(0.0, 20.0), testing::Bool()));

}  // namespace
}  // namespace pellmark::test
