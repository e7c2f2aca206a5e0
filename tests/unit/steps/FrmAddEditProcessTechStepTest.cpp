#include "steps/FrmAddEditProcessTechStep.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/StepsHarness.h"

namespace pellmark::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::UnorderedElementsAre;

constexpr const char* kNotUnique = "Id is not unique - could not add this value to database";

class FrmAddEditProcessTechStepTest : public testing::Test, protected StepsHarness {
  protected:
    FrmAddEditProcessTechStepTest() {
        process = base.addProcess("A");
        dialog = std::make_unique<frmAddEditProcessTechStep>(services(), process);
        heard = dialog->processStored.subscribe([this](const std::string& id) { told.push_back(id); });
        technology.editor = [](FakeTechnology&) { return TechnologyService::kAccepted; };
    }
    void show(const std::function<void()>& script) {
        desktop.expectDialog("frmAddEditProcessTechStep", [&](Form&) { script(); });
        dialog->showModal(7);
    }
    void accept() {
        show([this] { dialog->CmdOk.click(); });
    }
    std::vector<std::string> offered() {
        std::vector<std::string> entries;
        for (const auto& item : dialog->CmbProcessType.items())
            entries.push_back(item.text + " " + std::to_string(item.itemData));
        return entries;
    }
    FakeTables::Step& added() { return base.tables().steps.back(); }

    std::string process;
    std::unique_ptr<frmAddEditProcessTechStep> dialog;
    std::vector<std::string> told;
    Subscription heard;
};

TEST_F(FrmAddEditProcessTechStepTest, TheSevenTypesOfCyclesAreOfferedInTheirOrder) {
    for (const auto& [id, type] :
         std::vector<std::pair<std::int16_t, int>>{{1, 49}, {2, 50}, {3, 45}, {4, 8}})
        base.addCuttingCycle(id, "c", type);
    show([&] {
        EXPECT_THAT(offered(),
                    ElementsAre("Drilling 602", "c 4", "Tapping 402", "Pocket 432", "c 3", "c 2", "c 1"));
        EXPECT_EQ(dialog->CmbProcessType.index(), 0);
        dialog->CmdCancel.click();
    });
}

TEST_F(FrmAddEditProcessTechStepTest, TheTextsAreThoseOfTheLanguage) {
    for (const char* text : {"Add Technology", "Technology", "Cutting Cycle", "OK", "Cancel", "Help"})
        translate(text, std::string("t ") + text);
    const auto plain = [](const Control& control) {
        std::string caption = control.caption();
        std::erase(caption, '&');  // marks the access key
        return caption;
    };
    EXPECT_EQ(dialog->caption(), "Add Edit Default Technology Step");
    show([&] {
        EXPECT_EQ(dialog->caption(), "t Add Technology");
        EXPECT_EQ(plain(dialog->FrameTechnology), "t Technology");
        EXPECT_EQ(plain(dialog->Lblcycle), "t Cutting Cycle");
        EXPECT_EQ(plain(dialog->CmdOk), "t OK");
        EXPECT_EQ(plain(dialog->CmdCancel), "t Cancel");
        EXPECT_EQ(plain(dialog->CmdHelp), "t Help");
        dialog->CmdCancel.click();
    });
}

TEST_F(FrmAddEditProcessTechStepTest, TheStepIsWhatTheEditorAccepted) {
    technology.setDefaults(FakeTechnology(402, "\"Tap \"M8\"\""));
    show([&] {
        dialog->CmbProcessType.choose(1);
        const WindowHandle owner = dialog->handle();
        dialog->CmdOk.click();
        EXPECT_THAT(technology.calls, ElementsAre("create 402 " + process, "edit " + std::to_string(owner),
                                                  "stored " + added().record.id));
    });
    EXPECT_EQ(added().record, (ProcessStepRecord{added().record.id, "Tap M8", process, 0, 402}));
    EXPECT_EQ(dialog->StoredStepId(), added().record.id);
    EXPECT_THAT(told, ElementsAre(process));
    EXPECT_FALSE(dialog->isLoaded());
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(FrmAddEditProcessTechStepTest, TheCycleOfTheStepIsThatOfItsTechnology) {
    technology.editor = [](FakeTechnology& shown) {
        EXPECT_EQ(shown.cuttingCycleId(), 602);
        shown.setCuttingCycleId(402);
        return TechnologyService::kAccepted;
    };
    accept();
    EXPECT_EQ(added().record.cuttingCycleId, 402);
}

TEST_F(FrmAddEditProcessTechStepTest, ANewStepHasNoPriorityWhateverTheOthersHave) {
    base.addStep(process, "there", 7);
    accept();
    EXPECT_EQ(added().record.priority, 0);
    EXPECT_THAT(base.callsOf("nextPriority"), IsEmpty());
}

TEST_F(FrmAddEditProcessTechStepTest, AStepThatIsRefusedClosesTheDialogWithoutItsValues) {
    technology.setDefaults(FakeTechnology(602).add(1, 1.0, 6));
    base.refuse(process);
    accept();
    EXPECT_THAT(base.callsOf("addStepValue"), IsEmpty());
    EXPECT_THAT(technology.calls, testing::Not(Contains(testing::StartsWith("stored"))));
    EXPECT_THAT(told, IsEmpty());
    EXPECT_EQ(dialog->StoredStepId(), "");
    EXPECT_FALSE(dialog->isLoaded());
    EXPECT_THAT(desktop.messages(), IsEmpty());
}

TEST_F(FrmAddEditProcessTechStepTest, KeptParametersAndThoseThatWereSetAreStored) {
    FakeTechnology drill(602);
    drill.add(1, 0.5, 6, 0)
        .add(2, std::string("a,b"), 6, 0)
        .add(3, 1.5, 2, 2)
        .add(4, 1.5, 2, 0)
        .add(5, 1.5, 2, 1)
        .add(6, 1.5, 0, 2)
        .add(7, 1.5, 5, 6)
        .add(8, Variant{}, 6, 2)
        .add(9, std::int32_t{80}, 6, 2)
        .add(10, std::string(), 6, 0);
    technology.setDefaults(drill);
    accept();
    EXPECT_THAT(added().values, UnorderedElementsAre(Pair(1, "0.5"), Pair(2, "a,b"), Pair(3, "1.5"),
                                                     Pair(6, "1.5"), Pair(9, "80"), Pair(10, "")));
}

TEST_F(FrmAddEditProcessTechStepTest, AnEditorThatIsNotAcceptedStoresNothing) {
    for (const int answer : {0, 2, -1}) {
        technology.editor = [answer](FakeTechnology&) { return answer; };
        accept();
        EXPECT_FALSE(dialog->isLoaded());
    }
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_THAT(told, IsEmpty());
    EXPECT_EQ(dialog->StoredStepId(), "");
}

TEST_F(FrmAddEditProcessTechStepTest, CancelStoresNothingAndAsksForNoTechnology) {
    show([&] { dialog->CmdCancel.click(); });
    EXPECT_THAT(technology.calls, IsEmpty());
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_F(FrmAddEditProcessTechStepTest, WithoutCyclesOkClosesTheDialog) {
    base.tables().cuttingCycles.clear();
    show([&] {
        EXPECT_EQ(dialog->CmbProcessType.selected(), nullptr);
        dialog->CmdOk.click();
        EXPECT_FALSE(dialog->isLoaded());
    });
    EXPECT_THAT(technology.calls, IsEmpty());
}

TEST_F(FrmAddEditProcessTechStepTest, ARefusedValueIsToldAndTheStepStaysWithTheValuesBefore) {
    translate(kNotUnique, "Schon vorhanden");
    technology.setDefaults(FakeTechnology(602).add(1, 1.0, 6).add(2, 2.0, 6).add(1, 3.0, 6).add(4, 4.0, 6));
    desktop.expectDialog("frmAddEditProcessTechStep", [this](Form&) { dialog->CmdOk.click(); });
    desktop.expectMessage("Schon vorhanden");
    dialog->showModal(7);
    EXPECT_THAT(added().values, UnorderedElementsAre(Pair(1, "1"), Pair(2, "2")));
    EXPECT_EQ(desktop.messages()[0].icon, MessageIcon::Critical);
    EXPECT_EQ(dialog->StoredStepId(), added().record.id);
    EXPECT_THAT(told, IsEmpty());
    EXPECT_FALSE(dialog->isLoaded());
    EXPECT_TRUE(trace.trapped("frmAddEditProcessTechStep::CmdOk_Click"));
}

TEST_F(FrmAddEditProcessTechStepTest, AStepThatCannotBeAddedIsToldAndHasNoValues) {
    technology.setDefaults(FakeTechnology(602).add(1, 1.0, 6));
    base.throwOn("addStep");
    desktop.expectDialog("frmAddEditProcessTechStep", [this](Form&) { dialog->CmdOk.click(); });
    desktop.expectMessage(kNotUnique);
    dialog->showModal(7);
    EXPECT_THAT(base.callsOf("addStepValue"), IsEmpty());
    EXPECT_EQ(dialog->StoredStepId(), "");
    EXPECT_FALSE(dialog->isLoaded());
}

TEST_F(FrmAddEditProcessTechStepTest, AFailingEditorIsToldAndTheDialogStaysOpen) {
    technology.throwOn("edit", errors::kHostInterface, "The editor broke.");
    desktop.expectDialog("frmAddEditProcessTechStep", [this](Form&) {
        desktop.expectMessage("The editor broke.");
        dialog->CmdOk.click();
        EXPECT_TRUE(dialog->isLoaded());
        technology.stopThrowing();
        dialog->CmdOk.click();
        EXPECT_FALSE(dialog->isLoaded());
    });
    dialog->showModal(7);
    EXPECT_EQ(base.tables().steps.size(), 1U);
}

TEST_F(FrmAddEditProcessTechStepTest, AHostThatCannotNoteTheSourceIsTracedAlone) {
    technology.throwOn("stored");
    accept();
    EXPECT_THAT(told, ElementsAre(process));
    EXPECT_TRUE(trace.trapped("frmAddEditProcessTechStep::CmdOk_Click"));
}

TEST_F(FrmAddEditProcessTechStepTest, CyclesThatCannotBeReadAreToldAndTheDialogDoesNotOpen) {
    base.throwOn("cuttingCycles");
    desktop.expectMessage("The knowledge base failed on purpose.");
    dialog->showModal(7);
    EXPECT_FALSE(dialog->isLoaded());
}

TEST_F(FrmAddEditProcessTechStepTest, HelpEnterAndEscapeDoWhatTheirButtonsDo) {
    EXPECT_EQ(dialog->defaultButton(), &dialog->CmdOk);
    EXPECT_EQ(dialog->cancelButton(), &dialog->CmdCancel);
    show([&] {
        dialog->CmdHelp.click();
        EXPECT_THAT(help.owners, ElementsAre(dialog->handle()));
        dialog->close();
    });
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_F(FrmAddEditProcessTechStepTest, EveryControlStandsWithinTheDialog) {
    show([&] {
        const Size client = dialog->clientSize();
        for (const Control* control : std::vector<const Control*>{&dialog->FrameTechnology, &dialog->CmdOk,
                                                                  &dialog->CmdCancel, &dialog->CmdHelp}) {
            EXPECT_GT(control->bounds().width, 0);
            EXPECT_LE(control->bounds().right(), client.width) << control->name();
            EXPECT_LE(control->bounds().bottom(), client.height) << control->name();
        }
        const Rect combo = dialog->CmbProcessType.bounds();
        EXPECT_GE(combo.left, dialog->Lblcycle.bounds().right());
        EXPECT_LE(combo.right(), dialog->FrameTechnology.bounds().width);
        EXPECT_LE(dialog->FrameTechnology.bounds().bottom(), dialog->CmdOk.bounds().top);
        dialog->CmdCancel.click();
    });
}

}  // namespace
}  // namespace pellmark::test
