#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "com/ApplicationObjectFixture.h"

namespace pellmark {
namespace {

class ApplicationObjectEndTest : public ApplicationObjectFixture {};

TEST_F(ApplicationObjectEndTest, TheHostOfTheLastCallIsKeptUntilDispose) {
    const ULONG before = host_->references();
    ASSERT_EQ(invoke(Member::ShowWindowProcessesView, {host()}), S_OK);
    ASSERT_EQ(invoke(Member::NorvexApplication, {}, DISPATCH_PROPERTYGET), S_OK);
    EXPECT_EQ(result_.get().pdispVal, host_.get());
    // a call without a host does not forget the one before
    ASSERT_EQ(invoke(Member::ShowWindowProcessesView, {nothing()}), S_OK);
    ComPtr<IDispatch> kept;
    ASSERT_EQ(object_->get_NorvexApplication(kept.receive()), S_OK);
    EXPECT_EQ(kept.get(), host_.get());
    kept = nullptr;
    ASSERT_EQ(invoke(Member::Dispose, {}), S_OK);
    EXPECT_EQ(host_->references(), before);
}

TEST_F(ApplicationObjectEndTest, AfterDisposeCallsDoNothingAndGiveTheEmptyResult) {
    ASSERT_EQ(invoke(Member::Dispose, {}), S_OK);
    ASSERT_EQ(invoke(Member::Dispose, {}), S_OK);
    log_.picked = "never";
    ASSERT_EQ(invoke(Member::OpenProcess, {host(), nothing(), "v"}), S_OK);
    EXPECT_EQ(Bstr::toUtf8(result_.get().bstrVal), "");
    EXPECT_EQ(object_->putref_NorvexApplication(host_.get()), S_OK);
    EXPECT_TRUE(log_.calls.empty());
    EXPECT_EQ(log_.disposals, 1);
}

TEST_F(ApplicationObjectEndTest, ReleasingTheLastReferenceDisposes) {
    ASSERT_EQ(invoke(Member::ShowWindowProcessesView, {host()}), S_OK);
    object_ = nullptr;
    EXPECT_EQ(log_.disposals, 1);
    EXPECT_TRUE(log_.destroyed);
    EXPECT_EQ(host_->references(), 1U);
}

TEST_F(ApplicationObjectEndTest, DisposingFromInsideACallWaitsForItsEnd) {
    int disposalsDuringCall = -1;
    log_.duringCall = [&] {
        VARIANT result;
        object_->Dispose(&result);
        disposalsDuringCall = log_.disposals;
    };
    ASSERT_EQ(invoke(Member::EditProcess, {host(), nothing(), "v"}), S_OK);
    EXPECT_EQ(disposalsDuringCall, 0);
    EXPECT_EQ(log_.disposals, 1);
    EXPECT_EQ(host_->references(), 1U);
}

TEST_F(ApplicationObjectEndTest, ReleasingTheLastReferenceFromInsideACallWaitsForItsEnd) {
    _Application* const raw = object_.get();
    bool destroyedDuringCall = true;
    log_.duringCall = [&] {
        object_ = nullptr;
        destroyedDuringCall = log_.destroyed;
    };
    IDispatch* host = host_.get();
    VARIANT result;
    EXPECT_EQ(raw->ShowWindowProcessesView(&host, nullptr, &result), S_OK);
    EXPECT_FALSE(destroyedDuringCall);
    EXPECT_TRUE(log_.destroyed);
    EXPECT_EQ(log_.disposals, 1);
}

TEST_F(ApplicationObjectEndTest, DisposingWhileAnEventOfAViewRunsWaitsForItsEnd) {
    {
        const Operations::Scope event(log_.operations);
        ASSERT_EQ(invoke(Member::Dispose, {}), S_OK);
        EXPECT_EQ(log_.disposals, 0);
        ASSERT_EQ(invoke(Member::ShowWindowProcessesView, {host()}), S_OK);
        EXPECT_TRUE(log_.calls.empty());
    }
    EXPECT_EQ(log_.disposals, 1);
}

TEST_F(ApplicationObjectEndTest, ReleasingTheLastReferenceWhileAnEventOfAViewRunsWaitsForItsEnd) {
    {
        const Operations::Scope event(log_.operations);
        object_ = nullptr;
        EXPECT_EQ(log_.disposals, 0);
        EXPECT_FALSE(log_.destroyed);
    }
    EXPECT_EQ(log_.disposals, 1);
    EXPECT_TRUE(log_.destroyed);
}

TEST_F(ApplicationObjectEndTest, DisposingAndReleasingWhileAnEventRunsEndTheComponentOnce) {
    {
        const Operations::Scope event(log_.operations);
        ASSERT_EQ(invoke(Member::Dispose, {}), S_OK);
        object_ = nullptr;
        EXPECT_FALSE(log_.destroyed);
    }
    EXPECT_EQ(log_.disposals, 1);
    EXPECT_TRUE(log_.destroyed);
}

TEST_F(ApplicationObjectEndTest, WhatTheComponentPutsOffWhileItEndsStillFindsIt) {
    bool destroyedBefore = true;
    log_.duringDispose = [&] { log_.operations.whenIdle([&] { destroyedBefore = log_.destroyed; }); };
    object_ = nullptr;
    EXPECT_FALSE(destroyedBefore);
    EXPECT_TRUE(log_.destroyed);
}

TEST_F(ApplicationObjectEndTest, AHostThatIsCalledBackAtTheEndMayStillCallAndRelease) {
    _Application* const raw = object_.get();
    log_.duringDispose = [&] {
        raw->AddRef();
        raw->Release();
        IDispatch* host = host_.get();
        VARIANT result;
        EXPECT_EQ(raw->ShowWindowProcessesView(&host, nullptr, &result), S_OK);
        EXPECT_EQ(raw->Dispose(&result), S_OK);
    };
    object_ = nullptr;
    EXPECT_EQ(log_.disposals, 1);
    EXPECT_TRUE(log_.calls.empty());
    EXPECT_TRUE(log_.destroyed);
    EXPECT_EQ(host_->references(), 1U);
}

TEST_F(ApplicationObjectEndTest, AReferenceThatIsTakenAtTheEndKeepsTheObjectButNotTheComponent) {
    ComPtr<_Application> taken;
    log_.duringDispose = [&, raw = object_.get()] { taken = ComPtr<_Application>(raw); };
    object_ = nullptr;
    EXPECT_EQ(log_.disposals, 1);
    EXPECT_FALSE(log_.destroyed);
    taken = nullptr;
    EXPECT_EQ(log_.disposals, 1);
    EXPECT_TRUE(log_.destroyed);
}

TEST_F(ApplicationObjectEndTest, AFailureWhileTheComponentEndsIsTracedAndTheEndGoesOn) {
    log_.duringDispose = [] { throw std::runtime_error("a layout cannot be stored"); };
    object_ = nullptr;
    EXPECT_TRUE(log_.trace.trapped("ApplicationObject::dispose"));
    EXPECT_TRUE(log_.destroyed);
}

}  // namespace
}  // namespace pellmark
