#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "base/Convert.h"
#include "support/ProcessFilesFixture.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ProcessFilesSaveTest : public ProcessFilesFixture {};

TEST_F(ProcessFilesSaveTest, TheSaveDialogIsNotTranslatedAndKeepsItsAsterisks) {
    translate("Save As", "Speichern");
    save("");
    const FileDialogRequest& asked = fileDialogs.requests().at(0);
    EXPECT_EQ(asked.title, "Save As");
    EXPECT_EQ(asked.filter,
              "Comma Separated Files (*.csv)|*.csv|Tab Delimited File (*.txt)|*.txt*|"
              "Process Files (*.prc*)|*.prc|");
    EXPECT_EQ(asked.initialFolder, "");
    EXPECT_EQ(asked.defaultExtension, "csv");
    EXPECT_EQ(asked.owner, form.handle());
    EXPECT_EQ(asked.flags, filedialog::kOverwritePrompt);
    EXPECT_THAT(desktop.messages(), IsEmpty());
}

TEST_F(ProcessFilesSaveTest, ATableHoldsTheHeadingsAndWhatIsShown) {
    const std::string id = base.addStep(process, "Drill, \"deep\"", 1, 602);
    steps.RefreshList("");
    const std::string row = "DB step," + id + "," + process + ",1,\"Drill, \"\"deep\"\"\",Drilling\r\n";
    for (const char* path : {"C:\\Data\\a.csv", "C:\\Data\\a.CSV", "C:\\Data\\acsv"}) {
        save(path);
        EXPECT_EQ(files.contents(path), ",ID,ProcessID,Priority,Name,Cutting Cycle\r\n" + row) << path;
    }
    save("C:\\Data\\a.Txt");
    EXPECT_EQ(files.contents("C:\\Data\\a.Txt"),
              "\tID\tProcessID\tPriority\tName\tCutting Cycle\r\nDB step\t" + id + "\t" + process +
                  "\t1\t\"Drill, \"\"deep\"\"\"\tDrilling\r\n");
}

TEST_F(ProcessFilesSaveTest, AnotherExtensionSavesNothing) {
    for (const char* path : {"C:\\Data\\a.dat", "C:\\Data\\a.cs", "rc"}) {
        save(path);
        EXPECT_FALSE(files.has(path)) << path;
    }
    EXPECT_THAT(technology.calls, IsEmpty());
    EXPECT_THAT(desktop.messages(), IsEmpty());
}

TEST_F(ProcessFilesSaveTest, ATableThatCannotBeWrittenIsToldWithItsPath) {
    desktop.expectMessage("The file could not be written: C:\\none\\: Path not found.");
    save("C:\\none\\a.csv");
    EXPECT_EQ(desktop.messages()[0].icon, MessageIcon::Critical);
}

TEST_F(ProcessFilesSaveTest, AProcessFileHoldsTheStepsAsTheyAreStored) {
    base.addStep(process, "second", 2, 602);
    const std::string first = base.addStep(process, "\"first\"", 1, 402);
    technology.setDefaults(FakeTechnology(402, "x").add(1, 1.0).add(2, std::string()).add(432, 5.0));
    base.tables().requireStep(first).values = {{1, "2.25"}, {2, "a \"b\", 3"}, {432, "7"}, {99, "lost"}};
    steps.RefreshList("");
    save("C:\\Data\\out.PRC");
    const auto& written = technology.file("C:\\Data\\out.PRC");
    ASSERT_EQ(written.size(), 2U);
    FakeTechnology one(written[0]);
    EXPECT_EQ(one.cuttingCycleId(), 402);
    EXPECT_EQ(one.operationName(), "\"first\"");
    EXPECT_EQ(one.parameterOf(1)->value(), Variant(2.25));
    EXPECT_EQ(one.parameterOf(2)->value(), Variant(std::string("a \"b\", 3")));
    EXPECT_EQ(one.parameterOf(432)->value(), Variant(std::string("7")));
    FakeTechnology two(written[1]);
    EXPECT_EQ(two.operationName(), "second");
    EXPECT_EQ(two.parameterOf(1)->value(), Variant(1.0));
    EXPECT_THAT(technology.calls, testing::Contains("create 402 " + process));
    EXPECT_THAT(desktop.messages(), IsEmpty());
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(ProcessFilesSaveTest, AProcessFileThatCannotBeWrittenIsSaid) {
    technology.refusesToWrite = true;
    desktop.expectMessage("Failed to save prc file!");
    save(kPath);
    EXPECT_EQ(desktop.messages()[0].icon, MessageIcon::Critical);
    EXPECT_EQ(desktop.messages()[0].title, "The title");
    technology.refusesToWrite = false;
    technology.throwOn("write");
    translate("Failed to save prc file!", "Nicht gespeichert!");
    desktop.expectMessage("Nicht gespeichert!");
    save(kPath);
    EXPECT_TRUE(trace.trapped("cProcessSteps::Save"));
}

TEST_F(ProcessFilesSaveTest, AStepThatCannotBeReadWritesNoFile) {
    base.addStep(process, "a", 1, 602);
    steps.RefreshList("");
    base.throwOn("step");
    desktop.expectMessage("Failed to save prc file!");
    save(kPath);
    EXPECT_FALSE(technology.hasFile(kPath));
}

TEST_F(ProcessFilesSaveTest, AStepOfTheListThatSomebodyElseHasDeletedWritesNoFile) {
    const std::string id = base.addStep(process, "gone", 1, 602);
    base.addStep(process, "there", 2, 602);
    steps.RefreshList("");
    base.stepStore().deleteStep(id);
    desktop.expectMessage("Failed to save prc file!");
    save(kPath);
    EXPECT_FALSE(technology.hasFile(kPath));
}

TEST_F(ProcessFilesSaveTest, AProcessThatIsGoneWritesNoFile) {
    base.tables().processes.clear();
    desktop.expectMessage("Failed to save prc file!");
    save(kPath);
    EXPECT_FALSE(technology.hasFile(kPath));
}

TEST_F(ProcessFilesSaveTest, WithoutAProcessNoProcessFileIsWrittenAndNothingTold) {
    processGrid.bind(nullptr);
    steps.FollowProcess();
    save(kPath);
    EXPECT_THAT(technology.calls, IsEmpty());
    EXPECT_THAT(desktop.messages(), IsEmpty());
    EXPECT_TRUE(trace.trapped("cProcessSteps::Save"));
    save("C:\\Data\\empty.csv");
    EXPECT_EQ(files.contents("C:\\Data\\empty.csv"), ",ID,ProcessID,Priority,Name,Cutting Cycle\r\n");
}

/// Whatever the values are, a file that is imported and exported again is the same file.
TEST_F(ProcessFilesSaveTest, ExportImportExportGivesTheSameFile) {
    std::mt19937 random(20260101);
    const auto number = [&] {
        const int digits = static_cast<int>(random() % 12);
        return (static_cast<double>(random()) - 2e9) / std::pow(10.0, digits);
    };
    const auto text = [&] {
        static constexpr const char* kPieces[] = {"M8", "\"", ",", ";", "\t",  "\xC3\xA4",
                                                  "1",  ".",  "0", " ", "\r\n"};
        std::string made;
        for (std::size_t i = random() % 8; i > 0; --i)
            made += kPieces[random() % std::size(kPieces)];
        return made;
    };
    FakeTechnology cycle(602, "d");
    for (int code = 1; code <= 20; ++code) {
        if (code % 2 == 0) {
            cycle.add(code, 0.0);
        } else {
            cycle.add(code, std::string());
        }
    }
    technology.setDefaults(cycle);
    std::vector<FakeTechnology> all;
    for (int i = 0; i < 30; ++i) {
        FakeTechnology operation(cycle);
        operation.setOperationName(text());
        for (int code = 1; code <= 20; ++code)
            operation.parameterOf(code)->setValue(code % 2 == 0 ? Variant(number()) : Variant(text()));
        all.push_back(operation);
    }
    technology.putFile(kPath, all);
    files.makeFile(kPath);
    open();
    save("C:\\Data\\first.prc");
    files.makeFile("C:\\Data\\first.prc");
    moveTo(2);
    open("C:\\Data\\first.prc");
    save("C:\\Data\\second.prc");
    const auto contents = [this](const std::string& path) {
        std::vector<std::string> cells;
        for (FakeTechnology operation : technology.file(path)) {
            cells.push_back(operation.operationName());
            for (int code = 1; code <= 20; ++code)
                cells.push_back(toText(operation.parameterOf(code)->value()));
        }
        return cells;
    };
    EXPECT_EQ(contents("C:\\Data\\first.prc"), contents(kPath));
    EXPECT_EQ(contents("C:\\Data\\second.prc"), contents("C:\\Data\\first.prc"));
    EXPECT_EQ(grid.dataRows(), 30);
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(ProcessFilesSaveTest, AProcessFileHoldsTheWholeProcessWhateverIsLookedForInTheList) {
    for (const char* name : {"Centre", "Drill", "Ream"})
        base.addStep(process, name, 1, 602);
    FindLine line(form, "FindProcessStep");
    steps.offerFinding(line);
    steps.RefreshList("");
    line.open();
    line.TxtFind.setText("ream");
    ASSERT_THAT(names(), ElementsAre("Ream"));
    save("C:\\Data\\out.prc");
    EXPECT_EQ(technology.file("C:\\Data\\out.prc").size(), 3U);
    save("C:\\Data\\out.csv");
    EXPECT_THAT(files.contents("C:\\Data\\out.csv"), testing::Not(testing::HasSubstr("Centre")));
}

}  // namespace
}  // namespace pellmark::test
