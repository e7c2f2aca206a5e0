// Detaching the selected processes from the feature case through which they are listed.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/CaseListFixture.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CaseDetachTest : public CaseListFixture {};

TEST_F(CaseDetachTest, DetachingNamesTheCaseThroughWhichEachIsListedFirst) {
    const std::string one = base.addProcess("one");
    const std::string two = base.addProcess("two");
    const std::string exactCase = base.addFeatureCase(hole, {d8, m8}, {one});
    const std::string partialCase = base.addFeatureCase(hole, {d8}, {two});
    openCase({d8, m8});
    grid().selectBlock(1, 0, 2, 0);
    desktop.expectMessage(kDetachQuestion);
    list().DeleteFromFeatureCase();
    EXPECT_THAT(changes(),
                ElementsAre("detach " + partialCase + " " + two, "detach " + exactCase + " " + one));
    EXPECT_THAT(names(), IsEmpty());
    EXPECT_EQ(desktop.messages().front().title, "Norvex - Process Manager");
    EXPECT_EQ(desktop.messages().front().icon, MessageIcon::Question);
    EXPECT_EQ(desktop.messages().front().buttons, MessageButtons::OkCancel);
}

TEST_F(CaseDetachTest, TheQuestionOfDetachingIsShownAsItStands) {
    base.addFeatureCase(hole, {d8}, {base.addProcess("one")});
    openCase({d8});
    for (const char* text : {kDetachQuestion, "Delete selected process(es) from the selected Feature Case?",
                             "Are you sure?", "Norvex - ", "Process Manager", "Norvex - Process Manager"})
        library.translations[text] = "translated";
    desktop.expectMessage(kDetachQuestion, MessageAnswer::Cancel);
    list().DeleteFromFeatureCase();
    EXPECT_EQ(desktop.messages().back().title, "Norvex - Process Manager");
}

TEST_F(CaseDetachTest, AfterDetachingTheLastRowIsCurrentAndItsStepsAreShown) {
    const std::string last = base.addProcess("c");
    base.addFeatureCase(hole, {d8}, {base.addProcess("a"), base.addProcess("b"), last});
    openCase({d8});
    base.forgetCalls();
    desktop.expectMessage(kDetachQuestion);
    list().DeleteFromFeatureCase();
    EXPECT_EQ(list().SelectedProcessID(), last);
    EXPECT_THAT(base.callsOf("steps"), ElementsAre("steps " + last));
}

TEST_F(CaseDetachTest, ARefusedDetachKeepsItsRowWithoutAWord) {
    const std::string one = base.addProcess("one");
    base.addFeatureCase(hole, {d8}, {one, base.addProcess("two")});
    base.refuse(one);
    openCase({d8});
    grid().selectBlock(1, 0, 2, 0);
    desktop.expectMessage(kDetachQuestion);
    list().DeleteFromFeatureCase();
    EXPECT_THAT(names(), ElementsAre("one"));
}

TEST_F(CaseDetachTest, ARefusedDetachOfAProcessThatIsGoneTakesItsRow) {
    const std::string gone = base.addProcess("gone");
    base.addFeatureCase(hole, {d8}, {gone, base.addProcess("there")});
    openCase({d8});
    base.refuse(gone);
    base.tables().processes.erase(base.tables().processes.begin());
    desktop.expectMessage(kDetachQuestion);
    list().DeleteFromFeatureCase();
    EXPECT_THAT(names(), ElementsAre("there"));
}

TEST_F(CaseDetachTest, AFailedDetachIsToldAndTracedAsWhatItIs) {
    base.addFeatureCase(hole, {d8}, {base.addProcess("one")});
    openCase({d8});
    base.throwOn("detach");
    desktop.expectMessage(kDetachQuestion);
    desktop.expectMessage(
        "The knowledge base failed. Still there:\r\none: The knowledge base failed on purpose.\r\n\r\n"
        "Removed: 0 / 1");
    list().DeleteFromFeatureCase();
    EXPECT_THAT(names(), ElementsAre("one"));
    EXPECT_TRUE(trace.trapped("cProcess::DeleteFromFeatureCase"));
    EXPECT_FALSE(trace.trapped("cProcess::Delete"));
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Critical);
}

TEST_F(CaseDetachTest, MoreFailuresThanABoxHoldsAreCounted) {
    for (int i = 0; i < 12; ++i)
        base.addFeatureCase(hole, {d8}, {base.addProcess(std::string("p") + static_cast<char>('a' + i))});
    openCase({d8});
    base.throwOn("detach", errors::kKnowledgeBase, "No.");
    std::string named;
    for (char c = 'j'; c >= 'a'; --c)
        named += std::string("\r\np") + c + ": No.";
    const std::string head = "The knowledge base failed. Still there:";
    grid().selectBlock(1, 0, 10, 0);
    desktop.expectMessage(kDetachQuestion);
    desktop.expectMessage(head + named + "\r\n\r\nRemoved: 0 / 10");
    list().DeleteFromFeatureCase();

    named = "\r\npl: No.\r\npk: No." + named.substr(0, named.find("\r\npb"));
    grid().selectBlock(1, 0, 12, 0);
    desktop.expectMessage(kDetachQuestion);
    desktop.expectMessage(head + named + "\r\n+ 2\r\n\r\nRemoved: 0 / 12");
    list().DeleteFromFeatureCase();
}

TEST_F(CaseDetachTest, NothingIsAskedWithoutARightASelectionOrConsent) {
    base.addFeatureCase(hole, {d8}, {base.addProcess("one")});
    openCase({d8});
    desktop.expectMessage(kDetachQuestion, MessageAnswer::Cancel);
    list().DeleteFromFeatureCase();
    grid().clearSelection();
    list().DeleteFromFeatureCase();
    base.allowed = {PermissionAdd, PermissionEdit};
    grid().select(1, 0);
    desktop.expectMessage("You do not have permission to delete objects from the database!");
    list().DeleteFromFeatureCase();
    EXPECT_THAT(changes(), IsEmpty());
    EXPECT_THAT(names(), ElementsAre("one"));
}

}  // namespace
}  // namespace pellmark::test
