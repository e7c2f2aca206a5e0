#include "controls/grid/CellColors.h"

#include <gtest/gtest.h>

#include "base/Contrast.h"
#include "settings/NumberOptions.h"

namespace pellmark {
namespace {

constexpr Color kWhite = 0xFFFFFF;
constexpr ListScheme kLight{kWhite, kBlack};
constexpr ListScheme kDark{0x202020, 0xF0F0F0};
constexpr ListScheme kHighContrastBlack{kBlack, kWhite, true};
constexpr ListScheme kHighContrastWhite{kWhite, kBlack, true};
constexpr ListScheme kSchemes[] = {kLight, kDark, {kBlack, kWhite}, kHighContrastBlack, kHighContrastWhite};

CellStyle marked(Color fore) {
    CellStyle style;
    style.fore = fore;
    return style;
}

CellStyle coloured(Color back, Color fore) {
    CellStyle style = marked(fore);
    style.back = back;
    return style;
}

CellStyle asSet(const NumberOption& back, const NumberOption& fore) {
    return coloured(static_cast<Color>(back.whenMissing), static_cast<Color>(fore.whenMissing));
}

double contrastIn(const CellColors& colors) {
    return contrastOf(colors.back, colors.text);
}

TEST(CellColorsTest, ACellOfWhichNothingIsSaidHasTheSystemsColours) {
    for (const ListScheme& scheme : kSchemes)
        EXPECT_EQ(shownColors({}, scheme), (CellColors{scheme.window, scheme.text}));
}

TEST(CellColorsTest, OnALightWindowStatedColoursAreShownAsTheyStand) {
    EXPECT_EQ(shownColors(marked(kRed), kLight), (CellColors{kWhite, kRed}));
    EXPECT_EQ(shownColors(marked(kGreen), kLight), (CellColors{kWhite, kGreen}));
    EXPECT_EQ(shownColors(coloured(0x8080FF, kBlack), kLight), (CellColors{0x8080FF, kBlack}));
}

TEST(CellColorsTest, BlackAndWhiteMeanTheWindowsOwnColoursOnADarkOne) {
    EXPECT_EQ(shownColors(marked(kBlack), kDark), (CellColors{kDark.window, kDark.text}));
    EXPECT_EQ(shownColors(coloured(kWhite, kBlack), kDark), (CellColors{kDark.window, kDark.text}));
}

TEST(CellColorsTest, MarksCanBeReadWhereverTheWindowIsDarkOrContrastIsAskedFor) {
    for (const ListScheme& scheme :
         {kDark, ListScheme{kBlack, kWhite}, kHighContrastBlack, kHighContrastWhite}) {
        for (const Color mark : {kRed, kGreen, kBlack})
            EXPECT_GE(contrastIn(shownColors(marked(mark), scheme)), kReadableContrast) << mark;
    }
}

TEST(CellColorsTest, MarksStayApartFromEachOtherAndFromOtherRowsOnADarkWindow) {
    const Color red = shownColors(marked(kRed), kDark).text;
    const Color green = shownColors(marked(kGreen), kDark).text;
    EXPECT_NE(red, green);
    EXPECT_NE(red, kDark.text);
    EXPECT_EQ(green, kGreen) << "can be read as it is";
}

TEST(CellColorsTest, TheSixSourcesOfATechnologyCanBeReadInEveryScheme) {
    using namespace option;
    const CellStyle looks[] = {
        asSet(kTechSourceCalcoraComputedBackColor, kTechSourceCalcoraComputedForeColor),
        asSet(kTechSourceSFDBCalculatedBackColor, kTechSourceSFDBCalculatedForeColor),
        asSet(kTechSourceFileBackColor, kTechSourceFileForeColor),
        asSet(kTechSourceDBStepBackColor, kTechSourceDBStepForeColor),
        asSet(kTechSourceDBDefaultsBackColor, kTechSourceDBDefaultsForeColor),
        asSet(kTechSourceUserBackColor, kTechSourceUserForecolor)};
    for (const ListScheme& scheme : kSchemes) {
        for (const CellStyle& look : looks) {
            EXPECT_GE(contrastIn(shownColors(look, scheme)), kReadableContrast)
                << *look.back << " in " << scheme.window;
        }
    }
}

TEST(CellColorsTest, ABackgroundIsTonedDownOnADarkWindowButStillSeen) {
    const CellColors shown = shownColors(coloured(0x80FF80, kBlack), kDark);
    EXPECT_TRUE(isDark(shown.back));
    EXPECT_NE(shown.back, kDark.window);
    EXPECT_GT((shown.back >> 8U) & 0xFFU, shown.back & 0xFFU) << "green still";
}

TEST(CellColorsTest, APaleSelectionTakesThePlaceOfTheBackgroundAndLeavesTextsReadable) {
    constexpr Color kPale = 0xF6E4CC;
    for (const Color mark : {kRed, kGreen, kBlack}) {
        const CellColors shown = shownColors(marked(mark), kLight, kPale);
        EXPECT_EQ(shown.back, kPale);
        EXPECT_GE(contrastIn(shown), kReadableContrast) << mark;
    }
    const Color green = shownColors(marked(kGreen), kLight, kPale).text;
    EXPECT_EQ(green & 0xFF00FFU, 0U) << "darker, but green still";
    const CellColors white = shownColors(coloured(0xFF0000, kWhite), kLight, kPale);
    EXPECT_EQ(white.back, kPale);
    EXPECT_GE(contrastIn(white), kReadableContrast) << "white was for the blue that is not there";
    for (const CellStyle& style : {CellStyle{}, marked(kRed), coloured(0x8080FF, kBlack)})
        EXPECT_GE(contrastIn(shownColors(style, kDark, 0x503018)), kReadableContrast);
}

TEST(CellColorsTest, InHighContrastThereIsNothingBehindATextAndItsColourGoesWithIt) {
    EXPECT_EQ(shownColors(coloured(0xFF0000, 0x400040), kHighContrastBlack), (CellColors{kBlack, kWhite}));
    EXPECT_EQ(shownColors(coloured(0xFF0000, kWhite), kHighContrastWhite), (CellColors{kWhite, kBlack}));
}

TEST(CellColorsTest, AColouredTextKeepsItsHueOverAColourOfItsOwnToo) {
    const CellColors plain = shownColors(coloured(0x8080FF, kBlack), kDark);
    const CellColors green = shownColors(coloured(0x8080FF, kGreen), kDark);
    EXPECT_EQ(green.back, plain.back);
    EXPECT_NE(green.text, plain.text);
}

}  // namespace
}  // namespace pellmark
