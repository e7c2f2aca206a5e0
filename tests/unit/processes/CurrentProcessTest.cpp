// Which process a row of the list stands for, which one is current, and where the list stands then.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "knowledge/MemoryRecordSet.h"
#include "processes/FrmEditProcessMaterials.h"
#include "processes/cProcess.h"
#include "support/PortsHarness.h"

namespace pellmark::test {
namespace {

using testing::IsEmpty;

/// Answers with ids that come in no block, as the records of a script do.
struct ScriptedBase : FakeKnowledgeBase {
    struct Store : FakeProcessStore {
        using FakeProcessStore::FakeProcessStore;
        std::shared_ptr<RecordSet> orphanProcesses() override {
            auto records = std::make_shared<MemoryRecordSet>(std::vector<std::string>{"_Name", field::kId});
            for (const std::string& id : orphans)
                records->addRow({"", id});
            return records;
        }
        std::vector<std::string> orphans;
    };
    ProcessStore& processStore() override { return store; }
    Store store{tables()};
};

class CurrentProcessTest : public testing::Test, protected ServicesHarness {
  protected:
    void start(int processes) {
        for (int i = 0; i < processes; ++i)
            ids.push_back(base.addProcess(std::string(1, static_cast<char>('a' + i))));
        list.Init(grid);
        list.RefreshList("");
    }
    cProcess listOver(KnowledgeBaseService& knowledgeBase) {
        return {person,           knowledgeBase, services.rights, services.settings,
                services.gridOps, idle,          services.host,   nullptr};
    }
    Subscription watchScrolling() {
        return grid.gridChanged.subscribe([this](const GridChange& change) {
            if (change.what == GridChange::What::Scroll) scrolledTo = change.row;
        });
    }

    Grid grid{form, "VSFG"};
    cProcess list = listOver(services.forViews().knowledgeBase);
    std::vector<std::string> ids;
    int scrolledTo = -1;
};

TEST_F(CurrentProcessTest, TheProcessThatIsNamedIsScrolledTo) {
    start(20);
    const Subscription watched = watchScrolling();
    list.RefreshList(ids[17]);
    EXPECT_EQ(scrolledTo, 18);
    list.SetProcessGui(ids[4]);
    EXPECT_EQ(scrolledTo, 5);
    list.RefreshList("");
    EXPECT_EQ(scrolledTo, 1);
}

TEST_F(CurrentProcessTest, AfterADeletionTheLastRowIsScrolledTo) {
    start(20);
    const Subscription watched = watchScrolling();
    desktop.expectMessage("Permanently delete selected item(s) from the database?");
    list.Delete();
    EXPECT_EQ(scrolledTo, 19);
}

TEST_F(CurrentProcessTest, TheSelectedProcessIsThatOfTheIdCell) {
    start(2);
    grid.setText(1, field::kId, ids[1]);
    EXPECT_EQ(list.SelectedProcessID(), ids[1]);
}

TEST_F(CurrentProcessTest, WhoseMaterialsAreEditedIsNotReadFromACell) {
    start(2);
    grid.setText(1, field::kId, ids[1]);
    std::string title;
    desktop.expectDialog("FrmEditProcessMaterials", [&](Form& dialog) {
        title = dialog.caption();
        dialog.close();
    });
    list.EditMaterialsWizard();
    EXPECT_EQ(title, "Process Materials - a");
}

TEST_F(CurrentProcessTest, AKeyThatSomebodyElseHasHandledDoesNothing) {
    start(1);
    KeyPress key{KeyPress::kDelete};
    key.handled = true;
    grid.keyPressed.raise(key);
    EXPECT_EQ(grid.dataRows(), 1);
    EXPECT_THAT(desktop.messages(), IsEmpty());
}

TEST_F(CurrentProcessTest, WithoutAFeatureCaseNothingIsDetached) {
    start(1);
    base.forgetCalls();
    desktop.expectMessage("Delete selected process(es) from the selected Feature Case?\r\n\r\nAre you sure?");
    list.DeleteFromFeatureCase();
    EXPECT_THAT(base.callsOf("detach"), IsEmpty());
    EXPECT_EQ(grid.dataRows(), 1);
}

TEST_F(CurrentProcessTest, TheRowOfAProcessThatIsGoneGoes) {
    start(2);
    base.processStore().deleteProcess(ids[0]);
    ProcessRecord gone;
    gone.Id = ids[0];
    list.UpdateFromDb(gone);
    EXPECT_EQ(grid.dataRows(), 1);
    EXPECT_EQ(grid.findRow(ids[1]), 1);
}

TEST_F(CurrentProcessTest, OrphansAreRedAlsoWhereTheirIdsComeInNoBlock) {
    ScriptedBase scripted;
    const std::string first = scripted.addProcess("a");
    const std::string second = scripted.addProcess("b");
    scripted.store.orphans = {"no id of a process", second};
    cProcess ofScript = listOver(scripted);
    ofScript.Init(grid);
    ofScript.RefreshList("");
    const int name = grid.colIndex(field::kName);
    EXPECT_EQ(grid.style(grid.findRow(first), name).fore, kBlack);
    EXPECT_EQ(grid.style(grid.findRow(second), name).fore, kRed);
    EXPECT_THAT(trace.lines(), IsEmpty());
}

}  // namespace
}  // namespace pellmark::test
