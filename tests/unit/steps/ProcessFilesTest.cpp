#include "steps/ProcessFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "base/Convert.h"
#include "support/StepsHarness.h"
#include "util/FrmProgress.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

constexpr const char* kPath = "C:\\Data\\holes.prc";

class ProcessFilesTest : public testing::Test, protected StepsHarness {
  protected:
    ProcessFilesTest() {
        process = base.addProcess("A");
        other = base.addProcess("B");
        technology.setDefaults(defaults());
        files.makeFolder("C:\\Data");
        start();
    }
    static FakeTechnology defaults() {
        return FakeTechnology(602, "Default").add(1, 1.0).add(2, std::string("text")).add(3, Variant{});
    }
    /// A file of that many operations, large enough for the progress to be shown where asked for.
    void putFile(int count, bool large = false) {
        std::vector<FakeTechnology> all;
        for (int i = 0; i < count; ++i)
            all.push_back(FakeTechnology(602, "op " + std::to_string(i)).add(1, i + 0.5));
        technology.putFile(kPath, all);
        files.makeFile(kPath, std::string(large ? 100'000 : 99'999, 'x'));
    }
    void open(const std::string& path = kPath) {
        fileDialogs.expectOpen(path);
        steps.OpenPrc();
    }
    void save(const std::string& path) {
        fileDialogs.expectSave(path);
        steps.Save();
    }
    std::vector<std::string> storedNames() {
        std::vector<std::string> all;
        for (const auto& step : base.tables().steps)
            all.push_back(step.record.name + " " + std::to_string(step.record.priority));
        return all;
    }

    std::string process, other;
};

// --- importing --------------------------------------------------------------------------------------------

TEST_F(ProcessFilesTest, TheOperationsOfAFileBecomeStepsInItsOrder) {
    base.addStep(process, "there", 7);
    putFile(3);
    open();
    EXPECT_THAT(storedNames(), ElementsAre("there 7", "op 0 8", "op 1 9", "op 2 10"));
    EXPECT_EQ(base.callsOf("nextPriority").size(), 3U);
    EXPECT_THAT(names(), ElementsAre("there", "op 0", "op 1", "op 2"));
    EXPECT_EQ(grid.row(), 2) << "the first of the new steps is selected";
    const auto& step = base.tables().steps[1];
    EXPECT_EQ(step.record.processId, process);
    EXPECT_EQ(step.record.cuttingCycleId, 602);
    EXPECT_THAT(step.values, UnorderedElementsAre(Pair(1, "0.5")));
    std::vector<std::string> noted;
    for (const auto& each : base.tables().steps)
        noted.push_back("stored " + each.record.id);
    noted[0] = "read " + std::string(kPath);
    EXPECT_THAT(technology.calls, testing::IsSupersetOf(noted));
    EXPECT_THAT(desktop.messages(), IsEmpty());
    EXPECT_THAT(desktop.windows(), testing::Not(testing::Contains(testing::HasSubstr("FrmProgress"))));
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(ProcessFilesTest, OnlyParametersOfTwoKindsAreStoredAndTextsAsTheyAre) {
    FakeTechnology operation(602, "\"Drill 1/2\"\"");
    operation.add(1, 0.5, 2, 0)
        .add(2, std::string("a,b \"c\""), 6, 0)
        .add(3, 1.0, 0, 2)
        .add(4, 1.0, 1)
        .add(5, 1.0, 3)
        .add(6, 1.0, 5)
        .add(7, 1.0, 7)
        .add(8, Variant{}, 2)
        .add(9, std::string(), 2);
    technology.putFile(kPath, {operation});
    files.makeFile(kPath);
    open();
    const auto& step = base.tables().steps.at(0);
    EXPECT_EQ(step.record.name, "\"Drill 1/2\"\"");
    EXPECT_THAT(step.values, UnorderedElementsAre(Pair(1, "0.5"), Pair(2, "a,b \"c\""), Pair(9, "")));
}

TEST_F(ProcessFilesTest, AParameterThatCannotBeStoredIsSkipped) {
    technology.putFile(kPath, {FakeTechnology(602, "a").add(1, 1.0).add(1, 2.0).add(2, 3.0)});
    files.makeFile(kPath);
    open();
    EXPECT_THAT(base.tables().steps.at(0).values, UnorderedElementsAre(Pair(1, "1"), Pair(2, "3")));
    EXPECT_TRUE(trace.trapped("cProcessSteps::OpenPrc"));
    EXPECT_THAT(desktop.messages(), IsEmpty());
}

TEST_F(ProcessFilesTest, TheDialogIsAskedInTheLanguageAndInTheRememberedFolder) {
    translate("Open Prc File", "PRC-Datei");
    translate("Process Files", "Prozessdateien");
    putFile(1);
    files.makeFolder("D:\\Out");
    open();
    open("");
    save("D:\\Out\\list.csv");
    open("");
    const auto& asked = fileDialogs.requests();
    EXPECT_EQ(asked[0].title, "PRC-Datei");
    EXPECT_EQ(asked[0].filter, "Prozessdateien (*.prc)|*.prc|");
    EXPECT_EQ(asked[0].owner, form.handle());
    EXPECT_EQ(asked[0].fileName, "");
    EXPECT_EQ(asked[0].initialFolder, "C:\\Norvex\\Processes");
    EXPECT_EQ(asked[1].initialFolder, "C:\\Data");
    EXPECT_EQ(asked[3].initialFolder, "D:\\Out");
    EXPECT_EQ(std::count(technology.calls.begin(), technology.calls.end(), "defaultFolder"), 1);
}

TEST_F(ProcessFilesTest, AFileWithoutAFolderHasNoFolderToRemember) {
    open("nowhere.prc");
    open("");
    EXPECT_EQ(fileDialogs.requests()[1].initialFolder, "C:\\Norvex\\Processes");
}

TEST_F(ProcessFilesTest, NothingHappensAfterACancelAndForAFileThatIsMissing) {
    open("");
    open("C:\\Data\\missing.prc");
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_THAT(desktop.messages(), IsEmpty());
    EXPECT_THAT(technology.calls, ElementsAre("defaultFolder"));
}

TEST_F(ProcessFilesTest, WithoutTheRightOrAProcessNoFileIsAskedFor) {
    base.allowed.erase(PermissionAdd);
    desktop.expectMessage("You do not have permission to add new objects to the database!");
    steps.OpenPrc();
    base.allowed.insert(PermissionAdd);
    processGrid.bind(nullptr);
    steps.OpenPrc();
    EXPECT_THAT(fileDialogs.requests(), IsEmpty());
}

TEST_F(ProcessFilesTest, ADamagedFileIsToldInTheHostsWordsAndNothingIsStored) {
    putFile(3);
    technology.damage(kPath, "Line 7: the file ends within an operation.");
    desktop.expectMessage("Line 7: the file ends within an operation.");
    open();
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_TRUE(trace.trapped("cProcessSteps::OpenPrc"));
}

TEST_F(ProcessFilesTest, AnImportThatFailsOnItsWaySaysHowFarItCame) {
    technology.putFile(kPath, {FakeTechnology(602, "x"), FakeTechnology(602, std::string(501, 'y')),
                               FakeTechnology(602, "z")});
    files.makeFile(kPath);
    desktop.expectMessage("The name has 501 characters; it cannot have more than 500.");
    desktop.expectMessage("The import has not come to its end. Steps that have been added: 1 / 3");
    open();
    EXPECT_THAT(names(), ElementsAre("x"));
    EXPECT_EQ(desktop.messages()[1].icon, MessageIcon::Information);
}

TEST_F(ProcessFilesTest, AnImportThatFailsAtOnceIsToldOnce) {
    base.addStep(process, "there", 1);
    steps.RefreshList("");
    putFile(3);
    base.throwOn("addStep", errors::kKnowledgeBase, "The knowledge base is full.");
    desktop.expectMessage("The knowledge base is full.");
    open();
    EXPECT_THAT(names(), ElementsAre("there"));
    EXPECT_EQ(grid.row(), 1);
}

TEST_F(ProcessFilesTest, AHostThatCannotNoteASourceIsTracedAlone) {
    putFile(2);
    technology.throwOn("stored");
    open();
    EXPECT_EQ(base.tables().steps.size(), 2U);
    EXPECT_THAT(desktop.messages(), IsEmpty());
    EXPECT_TRUE(trace.trapped("cProcessSteps::OpenPrc"));
}

TEST_F(ProcessFilesTest, TheOperationsAreLetGoLastFirstHoweverTheImportEnds) {
    putFile(3);
    open();
    EXPECT_THAT(technology.released, ElementsAre("op 2", "op 1", "op 0"));
    technology.released.clear();
    base.throwOn("addStep");
    desktop.expectMessage("The knowledge base failed on purpose.");
    open();
    EXPECT_THAT(technology.released, ElementsAre("op 2", "op 1", "op 0"));
}

TEST_F(ProcessFilesTest, AStepThatIsRefusedHasNoValuesAndIsNotCounted) {
    technology.putFile(kPath, {FakeTechnology(602, "a").add(1, 1.0), FakeTechnology(602, "b").add(1, 1.0)});
    files.makeFile(kPath);
    base.refuse(process);
    desktop.expectMessage("The import has not come to its end. Steps that have been added: 0 / 2");
    open();
    EXPECT_EQ(base.callsOf("addStep").size(), 2U);
    EXPECT_THAT(base.callsOf("addStepValue"), IsEmpty());
    EXPECT_THAT(technology.calls, testing::Not(testing::Contains(testing::StartsWith("stored"))));
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(ProcessFilesTest, AnImportGoesToTheProcessThatTheCurrentRowStandsFor) {
    processGrid.setText(1, field::kId, "shown otherwise");
    putFile(1);
    open();
    EXPECT_EQ(base.tables().steps.at(0).record.processId, process);
}

TEST_F(ProcessFilesTest, TheFolderIsRememberedAlsoWhereTheFileIsMissingOrNothingIsSaved) {
    open("C:\\Data\\missing.prc");
    open("");
    EXPECT_EQ(fileDialogs.requests()[1].initialFolder, "C:\\Data");
    save("D:\\Out\\list.dat");
    save("");
    EXPECT_EQ(fileDialogs.requests()[3].initialFolder, "D:\\Out");
    open("");
    EXPECT_EQ(fileDialogs.requests()[4].initialFolder, "D:\\Out");
}

// --- a large file -----------------------------------------------------------------------------------------

TEST_F(ProcessFilesTest, ALargeFileShowsHowFarItsImportIs) {
    putFile(45, true);
    std::vector<std::string> shown;
    idle.act = [&] {
        auto* progress = dynamic_cast<FrmProgress*>(desktop.loaded("FrmProgress"));
        ASSERT_NE(progress, nullptr);
        shown.push_back(progress->LblDone.caption());
        EXPECT_EQ(progress->caption(), "The title");
        EXPECT_EQ(progress->LblWhat.caption(), "Process steps are being added");
        EXPECT_EQ(progress->cancelButton(), &progress->CmdCancel);
        EXPECT_EQ(progress->CmdCancel.caption(), "Cancel");
        EXPECT_LE(progress->CmdCancel.bounds().bottom(), progress->clientSize().height);
        EXPECT_LE(progress->CmdCancel.bounds().right(), progress->clientSize().width);
    };
    desktop.expectDialog("FrmProgress", [](Form&) {});
    open();
    EXPECT_THAT(shown, ElementsAre("20 / 45", "40 / 45", "0 / 45", "20 / 45", "40 / 45"));
    EXPECT_EQ(base.tables().steps.size(), 45U);
    EXPECT_THAT(desktop.windows(), testing::Contains("while FrmProgress " + std::to_string(form.handle())));
    EXPECT_EQ(desktop.loaded("FrmProgress"), nullptr);
    EXPECT_THAT(desktop.messages(), IsEmpty());
}

TEST_F(ProcessFilesTest, ACancelWhileStepsAreAddedSaysHowManyThereAre) {
    putFile(45, true);
    idle.act = [&] {
        if (idle.yields == 4) desktop.loaded("FrmProgress")->close();
    };
    desktop.expectDialog("FrmProgress", [](Form&) {});
    desktop.expectMessage("The import has not come to its end. Steps that have been added: 20 / 45");
    open();
    EXPECT_EQ(base.tables().steps.size(), 20U);
    EXPECT_EQ(grid.dataRows(), 20);
    EXPECT_FALSE(trace.trapped("cProcessSteps::OpenPrc"));
}

TEST_F(ProcessFilesTest, ACancelWhileTheFileIsReadAddsNothing) {
    putFile(45, true);
    idle.act = [&] {
        auto* progress = dynamic_cast<FrmProgress*>(desktop.loaded("FrmProgress"));
        progress->CmdCancel.click();
        EXPECT_FALSE(progress->CmdCancel.enabled());
    };
    desktop.expectDialog("FrmProgress", [](Form&) {});
    desktop.expectMessage("The import has not come to its end. Steps that have been added: 0 / 0");
    open();
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_EQ(idle.yields, 1);
}

TEST_F(ProcessFilesTest, AHostThatThrowsBecauseOfTheCancelHasNotFailed) {
    class Refusing : public FakeTechnologyService {
      public:
        OperationList read(const std::string&, const Progress& progress) override {
            if (!progress(20, 40)) throw Error(1, "Host", "The reading was ended.");
            throw Error(2, "Host", "Something else.");
        }
    };
    Refusing refusing;
    StepServices mine = services();
    const StepServices with{mine.person,  mine.rights,  mine.knowledgeBase, refusing,   mine.settings,
                            mine.gridOps, mine.dialogs, mine.fileIO,        mine.files, mine.idle};
    cProcessSteps list(with, &processGrid);
    Grid view(form, "view");
    list.Init(view);
    putFile(1, true);
    idle.act = [&] { desktop.loaded("FrmProgress")->close(); };
    desktop.expectDialog("FrmProgress", [](Form&) {});
    desktop.expectMessage("The import has not come to its end. Steps that have been added: 0 / 0");
    fileDialogs.expectOpen(kPath);
    list.OpenPrc();
    idle.act = nullptr;
    desktop.expectDialog("FrmProgress", [](Form&) {});
    desktop.expectMessage("Something else.");
    fileDialogs.expectOpen(kPath);
    list.OpenPrc();
}

// --- saving -----------------------------------------------------------------------------------------------

TEST_F(ProcessFilesTest, TheSaveDialogIsNotTranslatedAndKeepsItsAsterisks) {
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

TEST_F(ProcessFilesTest, ATableHoldsTheHeadingsAndWhatIsShown) {
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

TEST_F(ProcessFilesTest, AnotherExtensionSavesNothing) {
    for (const char* path : {"C:\\Data\\a.dat", "C:\\Data\\a.cs", "rc"}) {
        save(path);
        EXPECT_FALSE(files.has(path)) << path;
    }
    EXPECT_THAT(technology.calls, IsEmpty());
    EXPECT_THAT(desktop.messages(), IsEmpty());
}

TEST_F(ProcessFilesTest, ATableThatCannotBeWrittenIsToldWithItsPath) {
    desktop.expectMessage("The file could not be written: C:\\none\\: Path not found.");
    save("C:\\none\\a.csv");
    EXPECT_EQ(desktop.messages()[0].icon, MessageIcon::Critical);
}

TEST_F(ProcessFilesTest, AProcessFileHoldsTheStepsAsTheyAreStored) {
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

TEST_F(ProcessFilesTest, AProcessFileThatCannotBeWrittenIsSaid) {
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

TEST_F(ProcessFilesTest, AStepThatCannotBeReadWritesNoFile) {
    base.addStep(process, "a", 1, 602);
    steps.RefreshList("");
    base.throwOn("step");
    desktop.expectMessage("Failed to save prc file!");
    save(kPath);
    EXPECT_FALSE(technology.hasFile(kPath));
}

TEST_F(ProcessFilesTest, AStepOfTheListThatSomebodyElseHasDeletedWritesNoFile) {
    const std::string id = base.addStep(process, "gone", 1, 602);
    base.addStep(process, "there", 2, 602);
    steps.RefreshList("");
    base.stepStore().deleteStep(id);
    desktop.expectMessage("Failed to save prc file!");
    save(kPath);
    EXPECT_FALSE(technology.hasFile(kPath));
}

TEST_F(ProcessFilesTest, AProcessThatIsGoneWritesNoFile) {
    base.tables().processes.clear();
    desktop.expectMessage("Failed to save prc file!");
    save(kPath);
    EXPECT_FALSE(technology.hasFile(kPath));
}

TEST_F(ProcessFilesTest, WithoutAProcessNoProcessFileIsWrittenAndNothingTold) {
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
TEST_F(ProcessFilesTest, ExportImportExportGivesTheSameFile) {
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

TEST_F(ProcessFilesTest, AProcessFileHoldsTheWholeProcessWhateverIsLookedForInTheList) {
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
