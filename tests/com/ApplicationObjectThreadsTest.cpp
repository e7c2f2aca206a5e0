#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>

#include "com/ApplicationObjectFixture.h"
#include "com/ErrorText.h"
#include "com/RecordingCalls.h"

namespace pellmark {
namespace {

constexpr const char* kWrongThread = "The component must be called on the thread that created it";

class ApplicationObjectThreadsTest : public ApplicationObjectFixture {};

TEST_F(ApplicationObjectThreadsTest, ACallOnAnotherThreadThanItsOwnIsRefusedWithAText) {
    HRESULT code = S_OK;
    std::string text;
    std::thread([&] {
        code = invoke(Member::ShowWindowProcessesView, {host()});
        text = takeErrorText();
    }).join();
    EXPECT_EQ(code, RPC_E_WRONG_THREAD);
    EXPECT_EQ(text, kWrongThread);
    EXPECT_TRUE(log_.calls.empty());
}

TEST_F(ApplicationObjectThreadsTest, ALateBoundPropertyOnAnotherThreadIsRefusedWithAText) {
    std::thread([&] {
        EXPECT_EQ(invoke(Member::CurrentView, {}, DISPATCH_PROPERTYGET), RPC_E_WRONG_THREAD);
        EXPECT_EQ(takeErrorText(), kWrongThread);
        EXPECT_EQ(invoke(Member::CurrentView, {std::int32_t{1}}, DISPATCH_PROPERTYPUT, {DISPID_PROPERTYPUT}),
                  RPC_E_WRONG_THREAD);
        EXPECT_EQ(invoke(Member::NorvexApplication, {host()}, DISPATCH_PROPERTYPUTREF, {DISPID_PROPERTYPUT}),
                  RPC_E_WRONG_THREAD);
    }).join();
    EXPECT_EQ(log_.view, FRView::FRProcesses);
    EXPECT_EQ(host_->references(), 1U);
}

TEST_F(ApplicationObjectThreadsTest, AnEarlyBoundPropertyOnAnotherThreadIsRefusedWithAText) {
    std::thread([&] {
        ::FRView view = FRProcesses;
        ComPtr<IDispatch> kept;
        EXPECT_EQ(object_->get_CurrentView(&view), RPC_E_WRONG_THREAD);
        EXPECT_EQ(takeErrorText(), kWrongThread);
        EXPECT_EQ(object_->put_CurrentView(FRProcesscase), RPC_E_WRONG_THREAD);
        EXPECT_EQ(object_->get_NorvexApplication(kept.receive()), RPC_E_WRONG_THREAD);
        EXPECT_EQ(object_->putref_NorvexApplication(host_.get()), RPC_E_WRONG_THREAD);
    }).join();
    EXPECT_EQ(log_.view, FRView::FRProcesses);
    EXPECT_EQ(host_->references(), 1U);
}

TEST_F(ApplicationObjectThreadsTest, TheLastReleaseOnAnotherThreadEndsTheComponentOnItsOwn) {
    std::thread([&] { object_ = nullptr; }).join();
    EXPECT_EQ(log_.disposals, 0);
    EXPECT_FALSE(log_.destroyed);
    EXPECT_TRUE(module::Lock::any());
    dispatchMessages();
    EXPECT_EQ(log_.disposals, 1);
    EXPECT_TRUE(log_.destroyed);
    EXPECT_EQ(log_.destroyedBy, GetCurrentThreadId());
    EXPECT_FALSE(module::Lock::any());
}

TEST_F(ApplicationObjectThreadsTest, TheLastReleaseOnAnotherThreadWaitsForWhatRuns) {
    {
        const Operations::Scope event(log_.operations);
        std::thread([&] { object_ = nullptr; }).join();
        dispatchMessages();
        EXPECT_FALSE(log_.destroyed);
    }
    EXPECT_TRUE(log_.destroyed);
}

TEST_F(ApplicationObjectThreadsTest, ReleasesOnManyThreadsEndTheComponentOnce) {
    constexpr int kThreads = 8;
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([held = ComPtr<_Application>(object_.get())]() mutable { held = nullptr; });
    object_ = nullptr;
    for (std::thread& each : threads)
        each.join();
    dispatchMessages();
    EXPECT_EQ(log_.disposals, 1);
    EXPECT_EQ(log_.destroyedBy, GetCurrentThreadId());
}

// What it holds belongs to a thread that is gone; ending it elsewhere is worse than keeping it.
TEST_F(ApplicationObjectThreadsTest, AnObjectWhoseThreadHasEndedIsKeptAndTraced) {
    auto* log = new CallLog;  // what is kept points at it
    _Application* orphan = nullptr;
    std::thread([&] { orphan = new ApplicationObject(std::make_unique<RecordingCalls>(*log)); }).join();
    EXPECT_EQ(orphan->Release(), 0U);
    EXPECT_EQ(log->disposals, 0);
    EXPECT_FALSE(log->destroyed);
    EXPECT_TRUE(log->trace.trapped("ApplicationObject::Release"));
    EXPECT_TRUE(module::Lock::any());
    module::Lock::remove();  // the next tests count from zero again
}

}  // namespace
}  // namespace pellmark
