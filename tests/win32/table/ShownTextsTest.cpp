#include <gtest/gtest.h>

#include "base/Text.h"
#include "support/AwkwardTable.h"
#include "support/win32/PeerHarness.h"
#include "win32/WideText.h"

namespace pellmark::test {
namespace {

class ShownTextsTest : public ::testing::Test, protected PeerHarness {
  protected:
    /// What the window answers for a cell, to a screen reader for one.
    std::string inWindow(int row, int col) {
        std::wstring text(1000, L'\0');
        LVITEMW item{};
        item.iSubItem = col;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        const LRESULT length = ::SendMessageW(of(form->grid), LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                                              reinterpret_cast<LPARAM>(&item));
        text.resize(static_cast<std::size_t>(length));
        return fromWide(text);
    }
    std::string inHeader(int col) {
        wchar_t text[100] = L"";
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT;
        column.pszText = text;
        column.cchTextMax = 100;
        ::SendMessageW(of(form->grid), LVM_GETCOLUMNW, static_cast<WPARAM>(col),
                       reinterpret_cast<LPARAM>(&column));
        return fromWide(text);
    }
};

// What leaves the grid as a file, on the clipboard or on paper is held against the same texts natively.
TEST_F(ShownTextsTest, TheWindowShowsEveryTextAsTheGridHoldsIt) {
    fillAwkwardly(form->grid);
    form->grid.setColHidden(0, false);
    embed();
    for (int col = 0; col < form->grid.cols(); ++col) {
        EXPECT_EQ(inHeader(col), form->grid.displayText(0, col));
        for (int row = 1; row < form->grid.rows(); ++row)
            EXPECT_EQ(inWindow(row - 1, col), form->grid.displayText(row, col)) << row << ", " << col;
    }
}

}  // namespace
}  // namespace pellmark::test
