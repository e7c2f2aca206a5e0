#include <gmock/gmock.h>

#include "contract/RegistryContract.h"

// The names, types and places of what is stored are those that docs/layouts.md states.
namespace pellmark::test {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

constexpr std::uint32_t kText = 1;
constexpr std::uint32_t kBytes = 3;
constexpr std::uint32_t kNumber = 4;

std::string numberBytes(std::int32_t number) {
    const auto bits = static_cast<std::uint32_t>(number);
    std::string bytes;
    for (unsigned shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(bits >> shift & 0xFFU);
    return bytes;
}

}  // namespace

CRegDefaultsContract::CRegDefaultsContract() {
    combo.setItems({{"Any", -1, ""}, {"Inch", 70, ""}, {"Metric", 71, ""}});
    combo.setIndex(0);
    list.setColumnHeaders({{"Members", 2000}, {"Unit", 900}});
    otherList.setColumnHeaders({{"Nonmembers", 1500}});
    grid.setHeadings("Id|Name|Unit");
    const char* keys[] = {"_Id", "_Name", "_Unit"};
    for (int col = 0; col < 3; ++col)
        grid.setColKey(col, keys[col]);
}

std::int32_t CRegDefaultsContract::number(const std::string& path, const std::string& name) {
    const Stored found = stored(path, name);
    EXPECT_EQ(found.outcome, Registry::kSuccess) << path << name;
    EXPECT_EQ(found.type, kNumber) << path << name;
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < found.data.size(); ++i)
        bits |= static_cast<std::uint32_t>(found.data[i]) << (8U * i);
    return static_cast<std::int32_t>(bits);
}

std::string CRegDefaultsContract::text(const std::string& path, const std::string& name) {
    const Stored found = stored(path, name);
    EXPECT_EQ(found.type, kText) << path << name;
    return found.text().substr(0, found.text().find('\0'));
}

void CRegDefaultsContract::storeNumber(const std::string& path, const std::string& name,
                                       std::int32_t number) {
    store(path, name, kNumber, numberBytes(number));
}

void CRegDefaultsContract::storeText(const std::string& path, const std::string& name,
                                     const std::string& text) {
    store(path, name, kText, text + '\0');
}

void CRegDefaultsContract::saveAll() {
    layouts.SaveComboBoxIndex(combo);
    layouts.SaveTextBox(box);
    layouts.SaveListView(list);
    layouts.SaveListView(otherList);
    layouts.SaveDialog(form);
    layouts.SaveVSDataGrid(grid);
}

void CRegDefaultsContract::restoreAll() {
    layouts.RestoreComboBoxIndex(combo);
    layouts.RestoreTextBox(box);
    layouts.RestoreListView(list);
    layouts.RestoreListView(otherList);
    layouts.RestoreDialog(form);
    layouts.RestoreVSDataGrid(grid);
}

// --- nothing stored --------------------------------------------------------------------------------------

TEST_P(CRegDefaultsContract, OnACleanProfileARestoreLeavesEverythingAndCreatesNothing) {
    combo.setIndex(1);
    box.setText("as designed");
    form.setBorderStyle(BorderStyle::Sizable);
    restoreAll();
    layouts.RestoreNorvexToolbar(toolbar);
    EXPECT_EQ(std::get<std::string>(layouts.GetSetting("View", std::string("none"))), "none");
    EXPECT_EQ(layouts.NorvexLanguage(), -1);
    EXPECT_EQ(combo.index(), 1);
    EXPECT_EQ(box.text(), "as designed");
    EXPECT_EQ(list.columnHeaders()[1].width, 900);
    EXPECT_FALSE(list.columnHeaders()[1].widthChosen);
    EXPECT_EQ(form.bounds(), Rect{});
    EXPECT_EQ(form.windowState(), WindowState::Normal);
    EXPECT_THAT(grid.displayOrder(), ElementsAre(0, 1, 2));
    EXPECT_EQ(grid.colWidth(0), GridColumn::kDefaultWidth);
    EXPECT_EQ(grid.font(), Font{});
    EXPECT_FALSE(grid.widthsChosen());
    EXPECT_FALSE(keyExists("Software\\Orvane"));
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_P(CRegDefaultsContract, AToolbarThatWasNeverSavedIsHiddenAndFloatsAtAFixedPlace) {
    toolbar.dock(2, {7, 8});
    layouts.RestoreNorvexToolbar(toolbar);
    EXPECT_FALSE(toolbar.visible());
    EXPECT_FALSE(toolbar.isDocked());
    EXPECT_EQ(toolbar.place(), (Point{300, 100}));
}

// --- small controls --------------------------------------------------------------------------------------

TEST_P(CRegDefaultsContract, TheChosenEntryOfAComboBoxIsANumberUnderItsName) {
    combo.setIndex(2);
    layouts.SaveComboBoxIndex(combo);
    EXPECT_EQ(number(kDialog, "CmbUnit"), 2);
    combo.setIndex(0);
    layouts.RestoreComboBoxIndex(combo);
    EXPECT_EQ(combo.index(), 2);
}

TEST_P(CRegDefaultsContract, AnIndexThatTheBoxDoesNotHaveAnyMoreChangesNothing) {
    combo.setIndex(2);
    layouts.SaveComboBoxIndex(combo);
    combo.setItems({{"Any", -1, ""}, {"Inch", 70, ""}});
    combo.setIndex(1);
    layouts.RestoreComboBoxIndex(combo);
    EXPECT_EQ(combo.index(), 1);
}

TEST_P(CRegDefaultsContract, NoChoiceIsRestoredAsNoChoice) {
    combo.setIndex(ComboBox::kNone);
    layouts.SaveComboBoxIndex(combo);
    EXPECT_EQ(number(kDialog, "CmbUnit"), -1);
    combo.setIndex(1);
    layouts.RestoreComboBoxIndex(combo);
    EXPECT_EQ(combo.index(), ComboBox::kNone);
}

TEST_P(CRegDefaultsContract, ATextIsTextUnderTheBoxsName) {
    box.setText("50 % of it");
    layouts.SaveTextBox(box);
    EXPECT_EQ(text(kDialog, "TxtName"), "50 % of it");
    box.setText("");
    layouts.RestoreTextBox(box);
    EXPECT_EQ(box.text(), "50 % of it");
}

TEST_P(CRegDefaultsContract, AnEmptyTextIsRestoredToo) {
    layouts.SaveTextBox(box);
    box.setText("typed since");
    layouts.RestoreTextBox(box);
    EXPECT_EQ(box.text(), "");
}

TEST_P(CRegDefaultsContract, TheWidthsOfAListAreTextsThatNameListAndColumn) {
    list.setColumnWidth(1, 1234);
    layouts.SaveListView(list);
    EXPECT_EQ(text(kDialog, "ColumnHeaders"), "2");
    EXPECT_EQ(text(kDialog, "ColumnHeaderWidth-LV1-0"), "2000");
    EXPECT_EQ(text(kDialog, "ColumnHeaderWidth-LV1-1"), "1234");
    list.setColumnHeaders({{"Members", 2000}, {"Unit", 900}});
    layouts.RestoreListView(list);
    EXPECT_EQ(list.columnHeaders()[1].width, 1234);
    EXPECT_TRUE(list.columnHeaders()[1].widthChosen);
}

TEST_P(CRegDefaultsContract, TwoListsOfOneFormDoNotMeet) {
    list.setColumnWidth(0, 1111);
    otherList.setColumnWidth(0, 2222);
    saveAll();
    list.setColumnWidth(0, 1);
    otherList.setColumnWidth(0, 1);
    restoreAll();
    EXPECT_EQ(list.columnHeaders()[0].width, 1111);
    EXPECT_EQ(otherList.columnHeaders()[0].width, 2222);
}

TEST_P(CRegDefaultsContract, AColumnThatTheListHadNotKeepsItsWidth) {
    layouts.SaveListView(list);
    list.setColumnHeaders({{"Members", 1}, {"Unit", 2}, {"Rule", 3}});
    layouts.RestoreListView(list);
    EXPECT_EQ(list.columnHeaders()[0].width, 2000);
    EXPECT_EQ(list.columnHeaders()[2].width, 3);
    EXPECT_FALSE(list.columnHeaders()[2].widthChosen);
}

// --- windows ---------------------------------------------------------------------------------------------

TEST_P(CRegDefaultsContract, ADialogsPlaceSizeAndStateAreNumbers) {
    form.setBounds({-300, 450, 7000, 5000});
    layouts.SaveDialog(form);
    EXPECT_EQ(number(kDialog, "Left"), -300);
    EXPECT_EQ(number(kDialog, "Top"), 450);
    EXPECT_EQ(number(kDialog, "Width"), 7000);
    EXPECT_EQ(number(kDialog, "Height"), 5000);
    EXPECT_EQ(number(kDialog, "WindowState"), 0);
}

TEST_P(CRegDefaultsContract, ASizableDialogTakesPlaceAndSize) {
    for (const BorderStyle style : {BorderStyle::Sizable, BorderStyle::SizableToolWindow}) {
        form.setBorderStyle(style);
        form.setBounds({-300, 450, 7000, 5000});
        layouts.SaveDialog(form);
        form.setBounds({1, 2, 3, 4});
        layouts.RestoreDialog(form);
        EXPECT_EQ(form.bounds(), (Rect{-300, 450, 7000, 5000}));
    }
}

TEST_P(CRegDefaultsContract, AFixedDialogTakesThePlaceAlone) {
    form.setBounds({-300, 450, 7000, 5000});
    layouts.SaveDialog(form);
    form.setBounds({1, 2, 3000, 4000});
    layouts.RestoreDialog(form);
    EXPECT_EQ(form.bounds(), (Rect{-300, 450, 3000, 4000}));
}

TEST_P(CRegDefaultsContract, AFixedDialogThatWasLeftInTheCornerIsPlaced) {
    form.setBounds({0, 0, 7000, 5000});
    layouts.SaveDialog(form);
    form.setBounds({});
    layouts.RestoreDialog(form);
    EXPECT_NE(form.bounds(), Rect{}) << "that is how a form looks which was never placed";
    EXPECT_EQ(form.bounds().left, 0);
    EXPECT_EQ(form.bounds().width, form.clientSize().width);
}

TEST_P(CRegDefaultsContract, AMaximizedOrMinimizedFormKeepsItsLastNormalPlacement) {
    form.setBorderStyle(BorderStyle::Sizable);
    form.setBounds({100, 200, 7000, 5000});
    layouts.SaveDialog(form);
    for (const WindowState state : {WindowState::Maximized, WindowState::Minimized}) {
        form.setWindowState(state);
        form.setBounds({0, 0, 20000, 15000});
        layouts.SaveDialog(form);
        layouts.RestoreDialog(form);
        EXPECT_EQ(form.bounds(), (Rect{100, 200, 7000, 5000}));
        EXPECT_EQ(form.windowState(), WindowState::Normal);
    }
}

TEST_P(CRegDefaultsContract, AFormThatWasOnlyEverMaximizedHasNoKey) {
    form.setWindowState(WindowState::Maximized);
    form.setBounds({0, 0, 20000, 15000});
    layouts.SaveDialog(form);
    EXPECT_FALSE(keyExists(kDialog));
}

TEST_P(CRegDefaultsContract, AStoredStateIsRestored) {
    for (const WindowState state : {WindowState::Maximized, WindowState::Minimized, WindowState::Normal}) {
        storeNumber(kDialog, "WindowState", static_cast<int>(state));
        layouts.RestoreDialog(form);
        EXPECT_EQ(form.windowState(), state);
    }
}

TEST_P(CRegDefaultsContract, NeitherAnEmbeddedFormNorOneThatWasNeverShownHasAPlace) {
    layouts.SaveDialog(form);
    EXPECT_FALSE(keyExists(kDialog));
    form.setBounds({100, 200, 7000, 5000});
    form.embed(7);
    layouts.SaveDialog(form);
    EXPECT_FALSE(keyExists(kDialog));
    form.unload();
}

TEST_P(CRegDefaultsContract, HalfAPlacementIsRestoredAsFarAsItGoes) {
    form.setBorderStyle(BorderStyle::Sizable);
    form.setBounds({100, 200, 7000, 5000});
    storeNumber(kDialog, "Top", 999);
    storeNumber(kDialog, "Height", 4444);
    layouts.RestoreDialog(form);
    EXPECT_EQ(form.bounds(), (Rect{100, 999, 7000, 4444}));
}

TEST_P(CRegDefaultsContract, WhatIsNoNumberOrNoLengthCountsAsMissingAndIsTraced) {
    form.setBorderStyle(BorderStyle::Sizable);
    form.setBounds({100, 200, 7000, 5000});
    storeText(kDialog, "Left", "far away");
    storeNumber(kDialog, "Top", 2147483647);
    storeNumber(kDialog, "Width", 0);
    storeNumber(kDialog, "Height", -1);
    storeNumber(kDialog, "WindowState", 3);
    storeText(kDialog, "CmbUnit", "Inch");
    layouts.RestoreDialog(form);
    layouts.RestoreComboBoxIndex(combo);
    EXPECT_EQ(form.bounds(), (Rect{100, 200, 7000, 5000}));
    EXPECT_EQ(form.windowState(), WindowState::Normal);
    EXPECT_EQ(combo.index(), 0);
    EXPECT_EQ(trace.lines().size(), 6U);
    EXPECT_THAT(trace.lines().front(), HasSubstr("DialogSettings\\FrmSample\\"));
}

TEST_P(CRegDefaultsContract, ANumberThatIsStoredAsTextIsANumber) {
    storeText(kDialog, "Left", "4500");
    layouts.RestoreDialog(form);
    EXPECT_EQ(form.bounds().left, 4500);
}

// --- settings, toolbars, places --------------------------------------------------------------------------

TEST_P(CRegDefaultsContract, ASettingIsStoredAsTheCallersType) {
    const std::string key = std::string(kBase) + "GlobalSettings\\";
    layouts.SaveSetting("View", std::int32_t{1});
    layouts.SaveSetting("Small", std::int16_t{-7});
    layouts.SaveSetting("Flag", true);
    layouts.SaveSetting("Off", false);
    layouts.SaveSetting("Text", std::string("M8"));
    layouts.SaveSetting("Factor", 0.5);
    layouts.SaveSetting("Bytes", ByteArray{1, 2, 3});
    EXPECT_EQ(number(key, "View"), 1);
    EXPECT_EQ(number(key, "Small"), -7);
    EXPECT_EQ(number(key, "Flag"), -1);
    EXPECT_EQ(number(key, "Off"), 0);
    EXPECT_EQ(text(key, "Text"), "M8");
    EXPECT_EQ(text(key, "Factor"), "0.5");
    EXPECT_EQ(stored(key, "Bytes").type, kBytes);
    EXPECT_THAT(stored(key, "Bytes").data, ElementsAre(1, 2, 3));
    EXPECT_EQ(std::get<std::int32_t>(layouts.GetSetting("View", std::int32_t{0})), 1);
    EXPECT_EQ(std::get<std::string>(layouts.GetSetting("Text", std::string())), "M8");
    EXPECT_EQ(std::get<ByteArray>(layouts.GetSetting("Bytes", {})), (ByteArray{1, 2, 3}));
}

TEST_P(CRegDefaultsContract, AToolbarComesBackDockedOrFloating) {
    const std::string key = std::string(kBase) + "Toolbars\\Tools\\";
    toolbar.dock(3, {40, 50});
    layouts.SaveNorvexToolbar(toolbar);
    EXPECT_EQ(number(key, "Position"), 3);
    EXPECT_EQ(number(key, "Left"), 40);
    EXPECT_EQ(number(key, "Top"), 50);
    EXPECT_EQ(number(key, "Visible"), -1);
    Toolbar restored("Tools");
    restored.setVisible(false);
    layouts.RestoreNorvexToolbar(restored);
    EXPECT_TRUE(restored.visible());
    EXPECT_EQ(restored.position(), 3);
    EXPECT_EQ(restored.place(), (Point{40, 50}));

    toolbar.floatAt({-60, 70});
    toolbar.setVisible(false);
    layouts.SaveNorvexToolbar(toolbar);
    layouts.RestoreNorvexToolbar(restored);
    EXPECT_FALSE(restored.visible());
    EXPECT_FALSE(restored.isDocked());
    EXPECT_EQ(restored.place(), (Point{-60, 70}));
}

TEST_P(CRegDefaultsContract, LayoutsOfAnExtensionLieWithTheHostsExtensions) {
    EXPECT_FALSE(layouts.IsExtension());
    layouts.setIsExtension(true);
    EXPECT_TRUE(layouts.IsExtension());
    combo.setIndex(2);
    layouts.SaveComboBoxIndex(combo);
    EXPECT_EQ(
        number("Software\\Orvane\\Norvex\\ExtensionSettings\\Process Manager\\DialogSettings\\FrmSample\\",
               "CmbUnit"),
        2);
    EXPECT_FALSE(keyExists(kDialog));
    layouts.setIsExtension(false);
    combo.setIndex(0);
    layouts.RestoreComboBoxIndex(combo);
    EXPECT_EQ(combo.index(), 0);
}

TEST_P(CRegDefaultsContract, TheHostsLanguageIsRead) {
    storeNumber("Software\\Orvane\\Norvex\\Config", "LanguageOption", 3);
    EXPECT_EQ(layouts.NorvexLanguage(), 3);
    storeText("Software\\Orvane\\Norvex\\Config", "LanguageOption", "7");
    EXPECT_EQ(layouts.NorvexLanguage(), 7);
    storeText("Software\\Orvane\\Norvex\\Config", "LanguageOption", "German");
    EXPECT_EQ(layouts.NorvexLanguage(), -1);
}

}  // namespace pellmark::test
