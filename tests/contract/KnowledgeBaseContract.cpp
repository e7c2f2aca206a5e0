#include "contract/KnowledgeBaseFixture.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;

// --- connection and rights --------------------------------------------------------------------------------

TEST_P(KnowledgeBaseContract, AnOpenKnowledgeBaseIsConnected) {
    EXPECT_TRUE(service.isConnected());
}

TEST_P(KnowledgeBaseContract, EachOperationHasItsOwnRight) {
    subject->restrictUser(true, false, true);
    EXPECT_TRUE(service.userRights().may(PermissionEdit));
    EXPECT_FALSE(service.userRights().may(PermissionAdd));
    EXPECT_TRUE(service.userRights().may(PermissionDelete));
    subject->restrictUser(false, true, false);
    EXPECT_FALSE(service.userRights().may(PermissionEdit));
    EXPECT_TRUE(service.userRights().may(PermissionAdd));
    EXPECT_FALSE(service.userRights().may(PermissionDelete));
}

TEST_P(KnowledgeBaseContract, AnOperationWithoutAMeaningIsNeverAllowed) {
    for (const int operation : {0, 4, -1, 1000000}) {
        EXPECT_FALSE(service.userRights().may(operation)) << operation;
    }
}

// --- two at once ------------------------------------------------------------------------------------------

TEST_P(KnowledgeBaseContract, WhatOneConnectionStoresTheOtherReads) {
    ProcessStore& others = subject->secondService().processStore();
    const std::string id = addProcess("A");
    EXPECT_EQ(others.process(id).Name, "A");
    others.updateProcess({id, "B", unit::kInch, "", ""});
    EXPECT_EQ(processes.process(id).Name, "B");
    EXPECT_TRUE(others.deleteProcess(id));
    EXPECT_FALSE(processes.deleteProcess(id));
}

TEST_P(KnowledgeBaseContract, AnOpenListDoesNotKeepTheOtherConnectionFromWriting) {
    const std::string id = addProcess("A");
    auto all = processes.processes("");
    ProcessStore& others = subject->secondService().processStore();
    const std::string added = others.addProcess({"", "B", unit::kMetric, "", ""});
    EXPECT_TRUE(others.deleteProcess(id));
    EXPECT_EQ(all->count(), 1U);
    EXPECT_THAT(column(*processes.processes(""), "_Id"), ElementsAre(added));
}

TEST_P(KnowledgeBaseContract, TwoConnectionsTakingTurnsLoseNothing) {
    ProcessStore& others = subject->secondService().processStore();
    for (int i = 0; i < 20; ++i) {
        addProcess("A" + std::to_string(10 + i));
        others.addProcess({"", "B" + std::to_string(10 + i), unit::kMetric, "", ""});
    }
    EXPECT_EQ(processes.processes("")->count(), 40U);
    EXPECT_EQ(others.processes("")->count(), 40U);
}

FOR_EVERY_KNOWLEDGE_BASE(KnowledgeBaseContract);

}  // namespace
}  // namespace pellmark::test
