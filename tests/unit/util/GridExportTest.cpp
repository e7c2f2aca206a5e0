#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Error.h"
#include "knowledge/MemoryRecordSet.h"
#include "support/PortsHarness.h"
#include "util/FrmProgress.h"
#include "util/cVSGridOps.h"

namespace pellmark::test {
namespace {

using testing::IsEmpty;

constexpr const char* kFolder = "C:\\Out";

class GridExportTest : public testing::Test, protected ServicesHarness {
  protected:
    GridExportTest() {
        files.makeFolder(kFolder);
        grid.setHeadings("Name|Unit");
        grid.setColKey(0, "_Name");
        grid.setColKey(1, "_Unit");
        fill({"Drill", "Ream"});
    }
    void fill(const std::vector<std::string>& names) {
        auto records = std::make_shared<MemoryRecordSet>(std::vector<std::string>{"_Name", "_Unit"});
        for (const std::string& name : names)
            records->addRow({name, "71"});
        grid.bind(records);
    }
    std::string in(const std::string& name) const { return std::string(kFolder) + "\\" + name; }
    void saveAs(const std::string& path) {
        fileDialogs.expectSave(path);
        services.gridOps.SaveGrid(grid, 7);
    }
    /// The names of the files in the folder: nothing is left behind.
    std::vector<std::string> left() {
        std::vector<std::string> names;
        for (const auto& entry : files.list(in("*")))
            names.push_back(entry.name);
        return names;
    }

    Grid grid{form, "VSFG"};
};

TEST_F(GridExportTest, TheDialogAsksAsItIsKnown) {
    saveAs("");
    const FileDialogRequest& request = fileDialogs.requests().front();
    EXPECT_EQ(request.title, "Save As");
    EXPECT_EQ(request.filter,
              "Comma Separated Files (*.csv)|*.csv|Tab Delimited File (*.txt)|*.txt|All Files (*.*)|*.*|");
    EXPECT_EQ(request.filterIndex, 1);
    EXPECT_EQ(request.defaultExtension, "*.csv");
    EXPECT_EQ(request.fileTitle, "sssss");
    EXPECT_EQ(request.initialFolder, "C:\\Pellmark");
    EXPECT_EQ(request.owner, 7U);
    EXPECT_EQ(request.flags, filedialog::kOverwritePrompt);
}

TEST_F(GridExportTest, TheNameEndingInCsvExactlySoMeansCommas) {
    const std::string commas = "Name,Unit\r\nDrill,71\r\nReam,71\r\n";
    const std::string tabs = "Name\tUnit\r\nDrill\t71\r\nReam\t71\r\n";
    for (const auto& [name, text] : {std::pair{"a.csv", commas},
                                     {"b.CSV", tabs},
                                     {"c.Csv", tabs},
                                     {"d.txt", tabs},
                                     {"e", tabs},
                                     {"csv", commas},
                                     {"cs", tabs}}) {
        saveAs(in(name));
        EXPECT_EQ(files.contents(in(name)), text) << name;
    }
}

TEST_F(GridExportTest, TheNextSaveStartsInTheFolderOfTheLast) {
    saveAs(in("a.csv"));
    saveAs("");
    saveAs("");
    EXPECT_EQ(fileDialogs.requests()[1].initialFolder, kFolder);
    EXPECT_EQ(fileDialogs.requests()[2].initialFolder, kFolder) << "a cancel keeps the folder";
}

TEST_F(GridExportTest, ACancelWritesNothing) {
    saveAs("");
    EXPECT_THAT(left(), IsEmpty());
}

TEST_F(GridExportTest, AnOldFileIsReplacedAndNothingIsLeftBeside) {
    files.makeFile(in("a.csv"), std::string(1000, 'x'));
    saveAs(in("a.csv"));
    EXPECT_EQ(files.contents(in("a.csv")), "Name,Unit\r\nDrill,71\r\nReam,71\r\n");
    EXPECT_THAT(left(), testing::ElementsAre("a.csv"));
}

TEST_F(GridExportTest, AFileThatIsOpenElsewhereIsToldAndStays) {
    files.makeFile(in("a.csv"), "old");
    files.openElsewhere(in("a.csv"));
    desktop.expectMessage("C:\\Out\\a.csv: Another program has this file open.");
    saveAs(in("a.csv"));
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Critical);
    saveAs("");
    EXPECT_EQ(fileDialogs.requests().back().initialFolder, "C:\\Pellmark") << "nothing was saved there";
    EXPECT_EQ(files.contents(in("a.csv")), "old");
    EXPECT_THAT(left(), testing::ElementsAre("a.csv"));
    EXPECT_TRUE(trace.trapped("cVSGridOps::SaveGrid"));
}

TEST_F(GridExportTest, OtherFailuresAreTracedAlone) {
    saveAs("C:\\none\\a.csv");
    EXPECT_TRUE(trace.trapped("cVSGridOps::SaveGrid"));
    saveAs("");
    EXPECT_EQ(fileDialogs.requests()[1].initialFolder, "C:\\Pellmark");
}

TEST_F(GridExportTest, ADialogThatCannotBeShownIsTracedAlone) {
    fileDialogs.expectSave([](const FileDialogHook&) {
        FileDialogResult failed;
        failed.extendedError = 0x3002;
        return failed;
    });
    services.gridOps.SaveGrid(grid, 7);
    EXPECT_THAT(trace.lines(), testing::ElementsAre(testing::HasSubstr(
                                   "cVSGridOps::SaveGrid: error 12290 from Norvex.CommonDialog")));
    EXPECT_THAT(left(), IsEmpty());
}

TEST_F(GridExportTest, AFullDiskLeavesTheOldFile) {
    files.makeFile(in("a.csv"), "old");
    files.setRoom(10);
    saveAs(in("a.csv"));
    EXPECT_EQ(files.contents(in("a.csv")), "old");
    EXPECT_THAT(left(), testing::ElementsAre("a.csv"));
}

TEST_F(GridExportTest, SomebodyElsesFileOnTheWayIsLeftAlone) {
    files.makeFile(in("a.csv.tmp"), "not ours");
    saveAs(in("a.csv"));
    EXPECT_EQ(files.contents(in("a.csv.tmp")), "not ours");
    EXPECT_TRUE(files.has(in("a.csv")));
    EXPECT_EQ(left().size(), 2U);
}

TEST_F(GridExportTest, WhatTheCodePageHoldsIsWrittenInIt) {
    fill({"\xC3\x98 8 \xE2\x82\xAC ?"});
    saveAs(in("a.csv"));
    EXPECT_EQ(files.contents(in("a.csv")), "Name,Unit\r\n\xD8 8 \x80 ?,71\r\n");
}

constexpr const char* kQuestion =
    "2 character(s), the first '\xF0\x9F\x94\xA9', need a Unicode file (UTF-8). Save such a file?";

TEST_F(GridExportTest, WhatTheCodePageLacksIsSavedAsUnicodeOnceAPersonAgrees) {
    fill({"\xC3\x98 \xF0\x9F\x94\xA9", "\xE5\xB7\xA5?"});
    desktop.expectMessage(kQuestion, MessageAnswer::Ok);
    saveAs(in("a.csv"));
    EXPECT_EQ(files.contents(in("a.csv")),
              "\xEF\xBB\xBFName,Unit\r\n\xC3\x98 \xF0\x9F\x94\xA9,71\r\n\xE5\xB7\xA5?,71\r\n");
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Question);
    EXPECT_EQ(desktop.messages().back().buttons, MessageButtons::OkCancel);
}

TEST_F(GridExportTest, APersonWhoDoesNotAgreeKeepsTheOldFile) {
    fill({"\xF0\x9F\x94\xA9", "\xE5\xB7\xA5"});
    files.makeFile(in("a.csv"), "old");
    desktop.expectMessage(kQuestion, MessageAnswer::Cancel);
    saveAs(in("a.csv"));
    EXPECT_EQ(files.contents(in("a.csv")), "old");
    EXPECT_THAT(left(), testing::ElementsAre("a.csv"));
}

TEST_F(GridExportTest, FormulasGetTheirApostropheWhereTheSettingAsks) {
    fill({"=1+1"});
    saveAs(in("a.csv"));
    EXPECT_EQ(files.contents(in("a.csv")), "Name,Unit\r\n=1+1,71\r\n");
    set("ExportFormulasAsText", "1");
    saveAs(in("a.csv"));
    EXPECT_EQ(files.contents(in("a.csv")), "Name,Unit\r\n'=1+1,71\r\n");
}

TEST_F(GridExportTest, ManyRowsShowHowFarTheyAre) {
    fill(std::vector<std::string>(60'000, "Drill"));
    std::string done;
    Subscription heard;
    desktop.expectDialog("FrmProgress", [&](Form& shown) {
        auto& progress = static_cast<FrmProgress&>(shown);
        EXPECT_EQ(progress.LblWhat.caption(), "The rows are being saved");
        heard = progress.LblDone.changed.subscribe([&](ControlChange) { done = progress.LblDone.caption(); });
    });
    saveAs(in("a.csv"));
    EXPECT_EQ(files.contents(in("a.csv")).size(), 11U + 60'000U * 10U);
    EXPECT_EQ(done, "60000 / 60000") << "the headings are no row";
}

TEST_F(GridExportTest, ManyRowsCanBeCancelled) {
    files.makeFile(in("a.csv"), "old");
    fill(std::vector<std::string>(60'000, "Drill"));
    desktop.expectDialog("FrmProgress",
                         [](Form& shown) { static_cast<FrmProgress&>(shown).CmdCancel.click(); });
    saveAs(in("a.csv"));
    EXPECT_EQ(files.contents(in("a.csv")), "old");
    EXPECT_THAT(left(), testing::ElementsAre("a.csv"));
    EXPECT_TRUE(trace.lines().empty());
}

}  // namespace
}  // namespace pellmark::test
