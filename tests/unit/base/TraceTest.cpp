#include "base/Trace.h"

#include <gmock/gmock.h>

#include <new>
#include <stdexcept>

#include "base/Error.h"
#include "support/RecordingTrace.h"

namespace pellmark::test {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TraceTest : public ::testing::Test {
  protected:
    RecordingTrace trace;
};

TEST_F(TraceTest, AnOperationThatEndsWellLeavesNoMark) {
    int runs = 0;
    EXPECT_TRUE(trap(trace, "cProcess::Delete", [&] { ++runs; }));
    EXPECT_EQ(runs, 1);
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(TraceTest, ATrappedErrorIsRecordedWithNumberSourceAndDescription) {
    EXPECT_FALSE(trap(trace, "cProcess::Delete", [] { throw Error(26101, "Store", "No such process."); }));
    EXPECT_THAT(trace.lines(), ElementsAre("cProcess::Delete: error 26101 from Store: No such process."));
}

TEST_F(TraceTest, AnyOtherExceptionIsRecordedWithItsText) {
    EXPECT_FALSE(trap(trace, "cProcess::Save", [] { throw std::runtime_error("disk full"); }));
    EXPECT_THAT(trace.lines(), ElementsAre("cProcess::Save: disk full"));
}

TEST_F(TraceTest, WhatIsNoExceptionAtAllIsRecordedAsUnknown) {
    EXPECT_FALSE(trap(trace, "cProcess::Save", [] { throw 7; }));
    EXPECT_THAT(trace.lines(), ElementsAre("cProcess::Save: unknown exception"));
}

TEST_F(TraceTest, OutOfMemoryIsTrapped) {
    EXPECT_FALSE(trap(trace, "cProcess::Save", [] { throw std::bad_alloc(); }));
    EXPECT_TRUE(trace.trapped("cProcess::Save"));
}

TEST_F(TraceTest, ATrapInsideATrapKeepsItsFailureToItself) {
    bool reached = false;
    EXPECT_TRUE(trap(trace, "outer", [&] {
        trap(trace, "inner", [] { throw std::runtime_error("no"); });
        reached = true;
    }));
    EXPECT_TRUE(reached);
    EXPECT_THAT(trace.lines(), ElementsAre("inner: no"));
}

}  // namespace pellmark::test
