#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ProcessDialogFixture.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NewProcessTest : public ProcessDialogFixture {};

TEST_F(NewProcessTest, OpensForANewProcessWithTheHostsUnit) {
    host->unitCode = unit::kInch;
    for (const char* text : {"New Process", "Add New Process"})
        library.translations[text] = "must not be looked up";
    openProcesses();
    addNew([&](FrmAddEditProcess& dialog) {
        EXPECT_EQ(dialog.caption(), "Add New Process");
        EXPECT_EQ(dialog.TxtName.text(), "New Process");
        EXPECT_EQ(dialog.TxtRule.text(), "");
        EXPECT_EQ(dialog.CmbUnit.selected()->itemData, 70);
        EXPECT_THAT(shown(dialog.FrameMaterialClass.LV1), ElementsAre("Brass", "Steel", "Tin"));
        EXPECT_THAT(shown(dialog.FrameMaterialClass.LV2), IsEmpty());
        dialog.CmdCancel.click();
    });
    EXPECT_THAT(changes(), IsEmpty());
}

TEST_F(NewProcessTest, ANewProcessWithoutAFeatureCaseIsOnlyAdded) {
    openProcesses();
    addNew([&](FrmAddEditProcess& dialog) {
        dialog.TxtName.setText("Tap");
        dialog.CmdOk.click();
    });
    EXPECT_EQ(changes().front(), "addProcess Tap");
    EXPECT_EQ(stored(added()).Name, "Tap");
    EXPECT_THAT(base.callsOf("attach"), IsEmpty());
    EXPECT_THAT(base.callsOf("removeMaterial").size(), 3U);
    EXPECT_EQ(list().SelectedProcessID(), added());
}

TEST_F(NewProcessTest, ANewProcessIsAttachedToACaseThatIsCreatedFirst) {
    openCase({d8, m8});
    addNew([](FrmAddEditProcess& dialog) { dialog.CmdOk.click(); });
    const std::string featureCase = base.tables().featureCases.back().id.text();
    auto made = changes();
    made.resize(5);
    EXPECT_THAT(made, ElementsAre("createFeatureCase " + hole, "addValue " + d8 + " " + featureCase,
                                  "addValue " + m8 + " " + featureCase, "addProcess New Process",
                                  "attach " + added() + " " + featureCase));
    EXPECT_EQ(list().SelectedProcessID(), added());
}

/// A knowledge base that takes no new process, and says so by naming none.
struct RefusingBase : FakeKnowledgeBase {
    struct Store : FakeProcessStore {
        using FakeProcessStore::FakeProcessStore;
        std::string addProcess(const ProcessRecord&) override { return {}; }
    };
    ProcessStore& processStore() override { return store; }
    Store store{tables()};
};

TEST_F(NewProcessTest, AProcessThatWasNotTakenHasNoMaterials) {
    RefusingBase refusing;
    refusing.addMaterial("Steel", refusing.addMaterialClass("Metals"));
    FrmAddEditProcess dialog(person, refusing, services.settings, services.host, nullptr, "", nullptr);
    expectDialog([](FrmAddEditProcess& shown) { shown.CmdOk.click(); });
    dialog.showModal(7);
    EXPECT_THAT(refusing.callsOf("addMaterial"), IsEmpty());
    EXPECT_THAT(refusing.callsOf("removeMaterial"), IsEmpty());
    EXPECT_FALSE(dialog.isLoaded());
}

TEST_F(NewProcessTest, AnExistingCaseIsUsed) {
    const std::string featureCase = base.addFeatureCase(hole, {d8});
    openCase({d8});
    addNew([](FrmAddEditProcess& dialog) { dialog.CmdOk.click(); });
    EXPECT_THAT(base.callsOf("createFeatureCase"), IsEmpty());
    EXPECT_THAT(base.callsOf("attach"), ElementsAre("attach " + added() + " " + featureCase));
}

TEST_F(NewProcessTest, ACaseThatLeavesItsUnitOpenIsACaseNevertheless) {
    const std::string featureCase = base.addFeatureCase(hole, {d8});
    openCase({d8}, unit::kNone);
    addNew([](FrmAddEditProcess& dialog) { dialog.CmdOk.click(); });
    EXPECT_THAT(base.callsOf("attach"), ElementsAre("attach " + added() + " " + featureCase));
}

TEST_F(NewProcessTest, WithoutAChosenFeatureTypeANewProcessIsAttachedToNothing) {
    mainForm().SetView(FRView::FRProcesscase);
    addNew([](FrmAddEditProcess& dialog) { dialog.CmdOk.click(); });
    EXPECT_THAT(base.callsOf("createFeatureCase"), IsEmpty());
    EXPECT_THAT(base.callsOf("attach"), IsEmpty());
    EXPECT_EQ(stored(added()).Name, "New Process");
}

TEST_F(NewProcessTest, AnAttachThatFailsDoesNotAddTheProcessASecondTime) {
    const std::string featureCase = base.addFeatureCase(hole, {d8});
    openCase({d8});
    base.throwOn("attach");
    addNew([&](FrmAddEditProcess& dialog) {
        desktop.expectMessage("The knowledge base failed on purpose.");
        dialog.CmdOk.click();
        EXPECT_TRUE(dialog.isShown());
        base.stopThrowing();
        dialog.TxtName.setText("Ream");
        dialog.CmdOk.click();
    });
    EXPECT_EQ(base.callsOf("addProcess").size(), 1U);
    EXPECT_EQ(stored(added()).Name, "Ream");
    EXPECT_EQ(base.callsOf("attach").back(), "attach " + added() + " " + featureCase);
}

TEST_F(NewProcessTest, AHostThatCannotTellItsUnitStillLetsAProcessBeMade) {
    services.host.set(nullptr);
    openProcesses();
    addNew([&](FrmAddEditProcess& dialog) {
        EXPECT_EQ(dialog.CmbUnit.selected()->text, "Metric");
        dialog.CmdOk.click();
    });
    EXPECT_EQ(stored(added()).Unit, unit::kMetric);
}

}  // namespace
}  // namespace pellmark::test
