#include "steps/ProcessFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Convert.h"
#include "support/ProcessFilesFixture.h"
#include "util/FrmProgress.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

class ProcessFilesTest : public ProcessFilesFixture {};

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

}  // namespace
}  // namespace pellmark::test
