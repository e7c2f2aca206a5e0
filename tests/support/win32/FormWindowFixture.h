#pragma once

#include <gmock/gmock.h>

#include <initializer_list>

#include "support/win32/PeerHarness.h"

namespace pellmark::test {

/// The sample form, shown modally or in a window of the host's. A test leaves no trace.
class FormWindowFixture : public ::testing::Test, protected PeerHarness {
  protected:
    void TearDown() override { EXPECT_THAT(trace.lines(), ::testing::IsEmpty()); }

    HWND window() const { return reinterpret_cast<HWND>(form->handle()); }
    bool isShownModally() const {
        return form->isLoaded() && ::IsWindowVisible(window()) && ::GetActiveWindow() == window();
    }
    void runModal(std::initializer_list<Meanwhile::Step> steps) {
        const Meanwhile meanwhile(steps);
        form->showModal(reinterpret_cast<WindowHandle>(hostBox()));
        EXPECT_TRUE(meanwhile.isDone());
    }
};

}  // namespace pellmark::test
