#include "win32/ports/Win32SystemDialogs.h"

#include <gtest/gtest.h>

#include "support/win32/PeerHarness.h"

#include <dlgs.h>  // needs the system's types

namespace pellmark::test {
namespace {

class Win32SystemDialogsTest : public ::testing::Test, protected PeerHarness {
  protected:
    Win32SystemDialogsTest() { ::SetFocus(hostBox()); }

    WindowHandle box() const { return reinterpret_cast<WindowHandle>(hostBox()); }
    /// Shows a dialog and presses the key once it is open.
    template <class Show>
    auto pressing(WORD key, const Show& show) {
        HWND owner = nullptr;
        const Meanwhile meanwhile({[&owner] {
                                       const HWND dialog = visibleWindowOfClass(L"#32770");
                                       if (dialog == nullptr || ::GetForegroundWindow() != dialog)
                                           return false;
                                       owner = ::GetWindow(dialog, GW_OWNER);
                                       return true;
                                   },
                                   [key] {
                                       Person::sendKeys({key});
                                       return true;
                                   }});
        const auto result = show();
        EXPECT_EQ(owner, host()) << "the host's window, though a control within it asked";
        EXPECT_EQ(::GetFocus(), hostBox()) << "the keyboard comes back";
        EXPECT_EQ(result.extendedError, 0U);
        return result;
    }

    Win32SystemDialogs dialogs{operations};
};

TEST_F(Win32SystemDialogsTest, ThePrintDialogTakesAndGivesTheSettings) {
    PrinterSettings first;
    first.copies = 3;
    first.orientation = Orientation::Landscape;
    first.paperSize = 9;
    const auto result = pressing(VK_RETURN, [&] { return dialogs.print({first, {}}, box(), 0); });
    ASSERT_TRUE(result.confirmed);
    EXPECT_FALSE(result.chosen.settings.device.empty());
    EXPECT_EQ(result.chosen.settings.copies, 3);
    EXPECT_EQ(result.chosen.settings.orientation, Orientation::Landscape);
    EXPECT_EQ(result.chosen.settings.paperSize, 9);
    EXPECT_FALSE(result.chosen.settings.driverData.empty());
}

TEST_F(Win32SystemDialogsTest, AllPagesAreProposedAndAnswered) {
    const auto result = pressing(VK_RETURN, [&] { return dialogs.print({}, box(), 0); });
    EXPECT_EQ(result.chosen.pages, PageRange{});
}

TEST_F(Win32SystemDialogsTest, ARangeOfPagesIsTakenAndGiven) {
    const auto result = pressing(VK_RETURN, [&] { return dialogs.print({{}, {2, 5}}, box(), 0); });
    ASSERT_TRUE(result.confirmed);
    EXPECT_EQ(result.chosen.pages, (PageRange{2, 5}));
}

TEST_F(Win32SystemDialogsTest, ATypedRangeOfPagesIsGiven) {
    const auto at = [](int id, WORD key) {
        return [id, key] {
            const HWND box = visibleWindowOfClass(L"#32770");
            if (box == nullptr || ::GetForegroundWindow() != box) return false;
            ::SetFocus(::GetDlgItem(box, id));
            ::SendMessageW(::GetDlgItem(box, id), EM_SETSEL, 0, -1);
            Person::sendKeys({key});
            return true;
        };
    };
    const auto holds = [](int id, UINT number) {
        return [id, number] {
            return ::GetDlgItemInt(visibleWindowOfClass(L"#32770"), id, nullptr, FALSE) == number;
        };
    };
    const Meanwhile meanwhile({at(edt1, '3'), holds(edt1, 3), at(edt2, '7'), holds(edt2, 7), [] {
                                   Person::sendKeys({VK_RETURN});
                                   return true;
                               }});
    const auto result = dialogs.print({}, box(), 0);
    ASSERT_TRUE(result.confirmed);
    EXPECT_EQ(result.chosen.pages, (PageRange{3, 7}));
}

TEST_F(Win32SystemDialogsTest, ACancelledPrintDialogChoosesNothing) {
    PrinterSettings first;
    first.copies = 3;
    const auto result = pressing(VK_ESCAPE, [&] { return dialogs.print({first, {}}, box(), 0); });
    EXPECT_FALSE(result.confirmed);
    EXPECT_EQ(result.chosen.settings, first);
}

TEST_F(Win32SystemDialogsTest, APrinterThatHasBeenRemovedLeavesItsPlaceToTheDefaultOne) {
    PrinterSettings first;
    first.device = "No such printer";
    first.copies = 2;
    const auto result = pressing(VK_RETURN, [&] { return dialogs.print({first, {}}, box(), 0); });
    ASSERT_TRUE(result.confirmed);
    EXPECT_NE(result.chosen.settings.device, "No such printer");
    EXPECT_FALSE(result.chosen.settings.device.empty());
    EXPECT_EQ(result.chosen.settings.copies, 2);
}

TEST_F(Win32SystemDialogsTest, WhatOneDialogChoseIsWhereTheNextBegins) {
    PrinterSettings first;
    first.orientation = Orientation::Landscape;
    const auto once = pressing(VK_RETURN, [&] { return dialogs.print({first, {}}, box(), 0); });
    const auto twice = pressing(VK_RETURN, [&] { return dialogs.print(once.chosen, box(), 0); });
    EXPECT_EQ(twice.chosen.settings, once.chosen.settings);
}

TEST_F(Win32SystemDialogsTest, PageSetupTakesAndGivesMarginsAndPaper) {
    PageChoice first;
    first.settings.orientation = Orientation::Landscape;
    first.settings.paperSize = 9;
    first.margins = {1440, 720, 1080, 567};
    const auto result = pressing(VK_RETURN, [&] { return dialogs.pageSetup(first, box(), 0); });
    ASSERT_TRUE(result.confirmed);
    EXPECT_NEAR(result.chosen.margins.left, 1440, 2);
    EXPECT_NEAR(result.chosen.margins.top, 720, 2);
    EXPECT_NEAR(result.chosen.margins.right, 1080, 2);
    EXPECT_NEAR(result.chosen.margins.bottom, 567, 2);
    EXPECT_EQ(result.chosen.settings.orientation, Orientation::Landscape);
    EXPECT_EQ(result.chosen.settings.paperSize, 9);
}

TEST_F(Win32SystemDialogsTest, TheColourDialogTakesAndGivesItsColours) {
    ColorChoice first;
    first.color = 0x0080FF;
    first.customColors.fill(0xFFFFFF);
    first.customColors[3] = 0x123456;
    const auto result = pressing(VK_RETURN, [&] { return dialogs.chooseColor(first, box(), 0); });
    EXPECT_TRUE(result.confirmed);
    EXPECT_EQ(result.chosen.color, 0x0080FFU);
    EXPECT_EQ(result.chosen.customColors, first.customColors);
    EXPECT_FALSE(pressing(VK_ESCAPE, [&] { return dialogs.chooseColor(first, box(), 0); }).confirmed);
}

TEST_F(Win32SystemDialogsTest, TheFontDialogTakesAndGivesTheFont) {
    const FontChoice first{Font{"Liberation Sans", 12, true, true}, kBlack};
    const auto result = pressing(VK_RETURN, [&] { return dialogs.chooseFont(first, box(), 0); });
    ASSERT_TRUE(result.confirmed);
    EXPECT_EQ(result.chosen.font, first.font);
    EXPECT_EQ(result.chosen.color, kBlack);
    EXPECT_FALSE(pressing(VK_ESCAPE, [&] { return dialogs.chooseFont(first, box(), 0); }).confirmed);
}

}  // namespace
}  // namespace pellmark::test
