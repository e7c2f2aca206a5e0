#include "com/CallTrace.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Error.h"
#include "com/TestObject.h"
#include "support/RecordingTrace.h"

namespace pellmark {
namespace {

using testing::ElementsAre;

class CallTraceTest : public testing::Test {
  protected:
    test::RecordingTrace trace_;
    MethodCall call_;
};

TEST_F(CallTraceTest, ACallWithoutAHostIsSaidToDoNothing) {
    traceCall(trace_, Member::OpenProcess, call_);
    EXPECT_THAT(trace_.lines(),
                ElementsAre("OpenProcess: NvxApplication is Nothing: there is nothing to do"));
}

TEST_F(CallTraceTest, DisposeNeedsNoHost) {
    traceCall(trace_, Member::Dispose, call_);
    EXPECT_THAT(trace_.lines(), ElementsAre("Dispose: called"));
}

TEST_F(CallTraceTest, EachTextThatIsNoIdentifierIsNamedWithItsParameter) {
    call_.description.valueIds = {"{C200E360-38C5-11CE-AE62-08002B2B79EF}", "M6"};
    call_.description.partTypeId = "a";
    call_.description.featureTypeId = "b";
    call_.description.materialClassId = "c";
    call_.description.processGuid = "d";
    call_.description.processStepGuid = "e";
    traceCall(trace_, Member::Dispose, call_);
    EXPECT_THAT(
        trace_.lines(),
        ElementsAre("Dispose: called", "Dispose: ValuesGuids \"M6\" is no identifier and names nothing",
                    "Dispose: PartTypeGuid \"a\" is no identifier and names nothing",
                    "Dispose: FeatureTypeGuid \"b\" is no identifier and names nothing",
                    "Dispose: ProcessMaterialClassGuid \"c\" is no identifier and names nothing",
                    "Dispose: ProcessGuid \"d\" is no identifier and names nothing",
                    "Dispose: ProcessStepGuid \"e\" is no identifier and names nothing"));
}

TEST_F(CallTraceTest, WhatTheCallerIsAnsweredIsTraced) {
    try {
        throw Error(errors::kHostInterface, "NvxApplication", "it has no member MainWindowHandle");
    } catch (...) {
        traceRefusal(trace_, "OpenProcess");
    }
    EXPECT_THAT(
        trace_.lines(),
        ElementsAre("OpenProcess: answered with error 0x800A65F9: it has no member MainWindowHandle"));
}

}  // namespace
}  // namespace pellmark
