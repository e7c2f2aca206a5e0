#include <gtest/gtest.h>

#include "com/RegisteredLibrary.h"
#include "com/soak/WorkingDay.h"

namespace pellmark {
namespace {

/// The program soak does the same for as long as one likes.
TEST(SoakTest, AWorkingDayLeavesNothingBehind) {
    SetEnvironmentVariableW(L"NORVEX_KNOWLEDGE_BASE", (programFolder() + L"\\soak-test.db").c_str());
    const RegisteredLibrary hostLibrary(L"Norvex.dll");
    WorkingDay day;
    // What is made once has been made after the warm-up; the turns see two components.
    constexpr int kWarmUp = 3;
    constexpr int kTurns = 6;
    for (int i = 0; i < kWarmUp; ++i)
        day.turn();
    const int windows = day.windowsSeen();
    const Holdings before = day.holdings();
    for (int i = 0; i < kTurns; ++i)
        day.turn();
    const Holdings left = day.holdings() - before;
    EXPECT_GE(day.windowsSeen() - windows, 10 * kTurns) << "every dialog has been open in every turn";
    // One object per turn would be 6, one per dialog 60. Each of Wine's own file dialogs leaves a USER object
    // behind; there are two.
    EXPECT_LT(left.objects.user, kTurns) << left;
    EXPECT_LT(left.objects.gdi, kTurns) << left;
    EXPECT_LT(left.objects.kernel, kTurns) << left;
    EXPECT_LE(left.threads, 1) << left;
    EXPECT_LE(left.temporaryFiles, 1) << left;
    EXPECT_LT(left.mebibytes, 5) << left;
    SetEnvironmentVariableW(L"NORVEX_KNOWLEDGE_BASE", nullptr);
}

}  // namespace
}  // namespace pellmark
