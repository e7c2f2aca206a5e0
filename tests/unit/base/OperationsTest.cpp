#include "base/Operations.h"

#include <gmock/gmock.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/RecordingTrace.h"

namespace pellmark::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct OperationsTest : ::testing::Test {
    void note(const std::string& what) { done.push_back(what); }

    RecordingTrace trace;
    Operations operations{trace};
    std::vector<std::string> done;
};

TEST_F(OperationsTest, WhatIsPutOffWhileNothingRunsHappensAtOnce) {
    operations.whenIdle([this] { note("end"); });
    EXPECT_THAT(done, ElementsAre("end"));
    EXPECT_FALSE(operations.running());
}

TEST_F(OperationsTest, WhatIsPutOffInsideAScopeHappensWhenTheOutermostEndsInItsOrder) {
    {
        const Operations::Scope outer(operations);
        {
            const Operations::Scope inner(operations);
            operations.whenIdle([this] { note("first"); });
            operations.whenIdle([this] { note("second"); });
        }
        EXPECT_THAT(done, IsEmpty());
        EXPECT_TRUE(operations.running());
    }
    EXPECT_THAT(done, ElementsAre("first", "second"));
    EXPECT_FALSE(operations.running());
}

TEST_F(OperationsTest, WhatAnEndPutsOffInItsTurnHappensAfterIt) {
    operations.whenIdle([this] {
        operations.whenIdle([this] { note("later"); });
        note("end");
    });
    EXPECT_THAT(done, ElementsAre("end", "later"));
}

TEST_F(OperationsTest, AnEndThatFailsIsTracedAndTheNextOneHappens) {
    {
        const Operations::Scope scope(operations);
        operations.whenIdle([] { throw std::runtime_error("no"); });
        operations.whenIdle([this] { note("next"); });
    }
    EXPECT_THAT(trace.lines(), ElementsAre("Operations::whenIdle: no"));
    EXPECT_THAT(done, ElementsAre("next"));
}

TEST_F(OperationsTest, TheOutermostScopeMayEndTheObjectItself) {
    auto owned = std::make_unique<Operations>(trace);
    {
        const Operations::Scope scope(*owned);
        owned->whenIdle([&] { owned.reset(); });
    }
    EXPECT_EQ(owned, nullptr);
}

TEST_F(OperationsTest, ATrappedOperationRunsInsideAScopeAndItsFailureIsTraced) {
    EXPECT_FALSE(trap(operations, "cProcess::Delete", [this] {
        EXPECT_TRUE(operations.running());
        throw std::runtime_error("gone");
    }));
    EXPECT_THAT(trace.lines(), ElementsAre("cProcess::Delete: gone"));
    EXPECT_FALSE(operations.running());
}

TEST_F(OperationsTest, ASecondCommandInTheSameWindowIsRefusedAndTraced) {
    EXPECT_TRUE(trapCommand(operations, "CmdOk_Click", [this] {
        note("first");
        EXPECT_FALSE(trapCommand(operations, "CmdOk_Click", [this] { note("second"); }));
    }));
    EXPECT_THAT(done, ElementsAre("first"));
    EXPECT_THAT(trace.lines(), ElementsAre("CmdOk_Click: refused: an earlier command has not ended yet"));
    EXPECT_TRUE(trapCommand(operations, "CmdOk_Click", [this] { note("third"); }));
    EXPECT_THAT(done, ElementsAre("first", "third"));
}

TEST_F(OperationsTest, ACommandInAModalWindowIsANewOneAndTheOuterOneStillBarsItsWindow) {
    trapCommand(operations, "Editwizard", [this] {
        {
            const Operations::Modal modal(operations);
            trapCommand(operations, "CmdOk_Click", [this] { note("OK"); });
        }
        trapCommand(operations, "Delete", [this] { note("Delete"); });
    });
    EXPECT_THAT(done, ElementsAre("OK"));
}

}  // namespace pellmark::test
