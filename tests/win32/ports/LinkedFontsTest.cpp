#include "win32/ports/LinkedFonts.h"

#include <gtest/gtest.h>
#include <winspool.h>

#include <array>

namespace pellmark::test {
namespace {

class LinkedFontsTest : public testing::TestWithParam<const wchar_t*> {
  protected:
    LinkedFontsTest() {
        std::array<wchar_t, 256> printer{};
        auto size = static_cast<DWORD>(printer.size());
        ::GetDefaultPrinterW(printer.data(), &size);
        context_ = ::CreateDCW(nullptr, printer.data(), nullptr, nullptr);
        font_.reset(::CreateFontW(-100, 0, 0, 0, FW_BOLD, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_TT_PRECIS,
                                  CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, GetParam()));
        before_ = ::SelectObject(context_, font_.get());
    }
    ~LinkedFontsTest() override {
        ::SelectObject(context_, before_);
        ::DeleteDC(context_);
    }
    bool canWrite(HFONT font, wchar_t letter) const {
        ::SelectObject(context_, font);
        WORD glyph = 0;
        ::GetGlyphIndicesW(context_, &letter, 1, &glyph, GGI_MARK_NONEXISTING_GLYPHS);
        ::SelectObject(context_, font_.get());
        return glyph != 0xFFFF;
    }

    HDC context_ = nullptr;
    FontHandle font_;
    LinkedFonts fonts_;

  private:
    HGDIOBJ before_ = nullptr;
};

TEST_P(LinkedFontsTest, ATextIsPartedWhereTheFontLacksLetters) {
    const std::vector<FontRun> runs = fonts_.runsOf(context_, L"M10 \u7A74\u3042 H7");
    ASSERT_EQ(runs.size(), 3U);
    EXPECT_EQ(runs[0].text, L"M10 ");
    EXPECT_EQ(runs[0].font, font_.get());
    EXPECT_EQ(runs[1].text, L"\u7A74\u3042");
    EXPECT_TRUE(canWrite(runs[1].font, L'\u7A74'));
    EXPECT_FALSE(canWrite(runs[0].font, L'\u7A74'));
    EXPECT_EQ(runs[2].text, L" H7");
    EXPECT_EQ(runs[2].font, font_.get());
    EXPECT_EQ(::GetCurrentObject(context_, OBJ_FONT), font_.get());
}

TEST_P(LinkedFontsTest, TheLinkedFontLooksLikeTheOther) {
    const std::vector<FontRun> runs = fonts_.runsOf(context_, L"\u7A74");
    ASSERT_EQ(runs.size(), 1U);
    LOGFONTW linked{};
    ::GetObjectW(runs[0].font, sizeof linked, &linked);
    EXPECT_EQ(linked.lfHeight, -100);
    EXPECT_EQ(linked.lfWeight, FW_BOLD);
}

TEST_P(LinkedFontsTest, ATextThatTheFontCanWriteStaysWhole) {
    const std::vector<FontRun> runs = fonts_.runsOf(context_, L"drill");
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_EQ(runs[0].text, L"drill");
    EXPECT_EQ(runs[0].font, font_.get());
}

INSTANTIATE_TEST_SUITE_P(Fonts, LinkedFontsTest, testing::Values(L"MS Shell Dlg 2", L"Tahoma"));

}  // namespace
}  // namespace pellmark::test
