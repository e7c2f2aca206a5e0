#include "refhost/workbench/StatusLine.h"

#include <gtest/gtest.h>

#include <commctrl.h>

namespace norvex {
namespace {

class StatusLineTest : public testing::Test {
  protected:
    StatusLineTest() {
        InitCommonControls();
        line_.create(parent_);
    }
    ~StatusLineTest() override { DestroyWindow(parent_); }

    HWND window() const { return GetWindow(parent_, GW_CHILD); }
    std::wstring text() const {
        wchar_t shown[200] = {};
        SendMessageW(window(), SB_GETTEXTW, 0, reinterpret_cast<LPARAM>(shown));
        return shown;
    }

    HWND parent_ =
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 400, 300, nullptr, nullptr, nullptr, nullptr);
    StatusLine line_;
};

TEST_F(StatusLineTest, WhatHasSeveralLinesIsSaidInOne) {
    line_.say(
        "gr\xC3\xB6\xC3\x9F"
        "er\r\nals eine");
    EXPECT_EQ(text(), L"gr\u00F6\u00DFer  als eine");
}

TEST_F(StatusLineTest, ItStandsAtTheLowerEdgeAfterTheWindowHasGrown) {
    SetWindowPos(parent_, nullptr, 0, 0, 500, 400, SWP_NOMOVE | SWP_NOZORDER);
    line_.fit();
    RECT area{};
    GetWindowRect(window(), &area);
    MapWindowPoints(nullptr, parent_, reinterpret_cast<POINT*>(&area), 2);
    EXPECT_EQ(area.bottom, 400);
    EXPECT_EQ(area.right, 500);
    EXPECT_EQ(area.bottom - area.top, line_.height());
}

TEST_F(StatusLineTest, ItHasTheSystemsFontAndRoomForIt) {
    LOGFONTW font{};
    const auto used = reinterpret_cast<HFONT>(SendMessageW(window(), WM_GETFONT, 0, 0));
    ASSERT_NE(GetObjectW(used, sizeof font, &font), 0);
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    EXPECT_STREQ(font.lfFaceName, metrics.lfStatusFont.lfFaceName);
    EXPECT_GT(line_.height(), std::abs(font.lfHeight));
}

}  // namespace
}  // namespace norvex
