#include <gmock/gmock.h>

#include <stdexcept>

#include "support/win32/PeerHarness.h"
#include "win32/ports/Win32Idle.h"

namespace pellmark::test {
namespace {

/// A form that is shown while something runs.
class ShownWhileTest : public ::testing::Test, protected PeerHarness {
  protected:
    WindowHandle owner() const { return reinterpret_cast<WindowHandle>(hostBox()); }
};

TEST_F(ShownWhileTest, TheWindowStandsAboveItsDisabledOwnerUntilTheWorkIsDone) {
    form->showWhile(owner(), [this] {
        EXPECT_TRUE(::IsWindowVisible(reinterpret_cast<HWND>(form->handle())));
        EXPECT_FALSE(::IsWindowEnabled(host()));
        EXPECT_TRUE(form->isShown());
    });
    EXPECT_FALSE(form->isLoaded());
    EXPECT_TRUE(::IsWindowEnabled(host()));
}

TEST_F(ShownWhileTest, APersonCanActWhenTheWorkLetsTheWindowBreathe) {
    Win32Idle idle;
    bool cancelled = false;
    const Subscription heard = form->cancel.clicked.subscribe([&] { cancelled = true; });
    form->showWhile(owner(), [&] {
        Person::sendKeys({VK_ESCAPE});
        EXPECT_TRUE(Person::waitUntil([&] {
            idle.yield();
            return cancelled;
        }));
    });
    EXPECT_TRUE(cancelled);
}

TEST_F(ShownWhileTest, WhatTheWorkThrowsComesOutAndTheOwnerCanBeUsedAgain) {
    EXPECT_THROW(form->showWhile(owner(), [] { throw std::runtime_error("not today"); }), std::runtime_error);
    EXPECT_FALSE(form->isLoaded());
    EXPECT_TRUE(::IsWindowEnabled(host()));
}

}  // namespace
}  // namespace pellmark::test
