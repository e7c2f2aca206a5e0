#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "support/win32/PeerHarness.h"

namespace pellmark::test {

/// The sample form in a host's window, the keyboard on its grid of 100 rows, and what that grid's window says
/// of itself. A test leaves no trace.
class GridPeerFixture : public ::testing::Test, protected PeerHarness {
  protected:
    GridPeerFixture() {
        embed();
        list_ = of(grid());
        focus(grid());
    }
    void TearDown() override { EXPECT_THAT(trace.lines(), ::testing::IsEmpty()); }

    Grid& grid() { return form->grid; }
    HWND list() const { return list_; }
    HWND header() const { return reinterpret_cast<HWND>(::SendMessageW(list_, LVM_GETHEADER, 0, 0)); }
    /// A point inside a data row of the window, counted from 0 at the top of the list.
    POINT inRow(int row, int x = 40) const {
        RECT rect{};
        rect.left = LVIR_BOUNDS;
        ::SendMessageW(list_, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect));
        return {x, (rect.top + rect.bottom) / 2};
    }
    std::vector<int> selected() {
        std::vector<int> rows;
        for (int i = 0; i < grid().selectedRows(); ++i)
            rows.push_back(grid().selectedRow(i));
        return rows;
    }
    std::vector<int> shownSelected() const {
        std::vector<int> rows;
        int row = -1;
        while ((row = static_cast<int>(
                    ::SendMessageW(list_, LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED))) >= 0)
            rows.push_back(row + 1);
        return rows;
    }
    std::wstring shownHeading(int column) const {
        wchar_t text[100] = L"";
        LVCOLUMNW shown{};
        shown.mask = LVCF_TEXT;
        shown.pszText = text;
        shown.cchTextMax = 100;
        ::SendMessageW(list_, LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&shown));
        return text;
    }
    std::wstring shownText(int row, int column) const {
        wchar_t text[200] = L"";
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = 200;
        ::SendMessageW(list_, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
        return text;
    }
    int shownColumns() const { return static_cast<int>(::SendMessageW(header(), HDM_GETITEMCOUNT, 0, 0)); }
    /// The background near the left edge of a data row as it has been painted.
    COLORREF pixelInRow(int row, int x = 2) const {
        ::UpdateWindow(list_);
        const HDC screen = ::GetDC(list_);
        const COLORREF color = ::GetPixel(screen, x, static_cast<int>(inRow(row).y));
        ::ReleaseDC(list_, screen);
        return color;
    }
    int clientWidth() const {
        RECT client{};
        ::GetClientRect(list_, &client);
        return static_cast<int>(client.right);
    }
    int shownWidth(int column) const {
        return static_cast<int>(::SendMessageW(list_, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
    }
    LONG rowHeight() const {
        RECT rect{};
        rect.left = LVIR_BOUNDS;
        ::SendMessageW(list_, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&rect));
        return rect.bottom - rect.top;
    }
    LOGFONTW fontInUse() const {
        LOGFONTW description{};
        const auto font = reinterpret_cast<HFONT>(::SendMessageW(list_, WM_GETFONT, 0, 0));
        ::GetObjectW(font, sizeof description, &description);
        return description;
    }
    int topRow() const { return static_cast<int>(::SendMessageW(list_, LVM_GETTOPINDEX, 0, 0)); }
    int divider(int column) const {
        RECT rect{};
        ::SendMessageW(header(), HDM_GETITEMRECT, static_cast<WPARAM>(column),
                       reinterpret_cast<LPARAM>(&rect));
        return static_cast<int>(rect.right);
    }

  private:
    HWND list_ = nullptr;
};

}  // namespace pellmark::test
