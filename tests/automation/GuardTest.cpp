#include "automation/Guard.h"

#include <gtest/gtest.h>

#include <new>

#include "base/Error.h"
#include "com/ErrorText.h"

namespace pellmark {
namespace {

template <class Exception>
HRESULT guardedThrow(Exception exception) {
    return guarded("Pellmark.Application", [&] { throw exception; });
}

TEST(GuardTest, ABodyThatEndsWellAnswersOkAndLeavesNoOldErrorText) {
    guardedThrow(std::runtime_error("an earlier failure"));
    EXPECT_EQ(guarded("Pellmark.Application", [] {}), S_OK);
    EXPECT_EQ(takeErrorText(), "");
}

TEST(GuardTest, LackOfMemoryBecomesItsOwnCode) {
    EXPECT_EQ(guardedThrow(std::bad_alloc()), E_OUTOFMEMORY);
}

TEST(GuardTest, AnErrorOfTheComponentKeepsItsNumberItsSourceAndItsText) {
    EXPECT_EQ(static_cast<unsigned long>(guardedThrow(Error(26001, "Norvex.cRegistry", "no such key"))),
              0x800A0000UL + 26001);
    EXPECT_EQ(takeErrorText(), "no such key");
    guardedThrow(Error(26001, "Norvex.cRegistry", "no such key"));
    EXPECT_EQ(takeErrorSource(), "Norvex.cRegistry");
}

TEST(GuardTest, AnErrorNumberThatNoScriptCanShowBecomesAGeneralFailure) {
    EXPECT_EQ(guardedThrow(Error(0, "", "odd")), E_FAIL);
    EXPECT_EQ(guardedThrow(Error(70000, "", "odd")), E_FAIL);
}

TEST(GuardTest, AnyOtherExceptionBecomesAGeneralFailureWithItsText) {
    EXPECT_EQ(guardedThrow(std::runtime_error("caf\xC3\xA9")), E_FAIL);
    EXPECT_EQ(takeErrorText(), "caf\xC3\xA9");
}

TEST(GuardTest, WhatIsNoExceptionAtAllIsCaughtToo) {
    EXPECT_EQ(guardedThrow(42), E_FAIL);
    EXPECT_EQ(takeErrorText(), "Unexpected failure");
}

TEST(GuardTest, AMistakeInTheCallKeepsItsCode) {
    EXPECT_EQ(guardedThrow(CallError(DISP_E_OVERFLOW, "too big", 3)), DISP_E_OVERFLOW);
    EXPECT_EQ(takeErrorText(), "too big");
}

}  // namespace
}  // namespace pellmark
