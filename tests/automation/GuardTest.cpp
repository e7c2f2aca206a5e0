#include "automation/Guard.h"

#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

#include "base/Error.h"
#include "com/ErrorText.h"

namespace pellmark {
namespace {

template <class Exception>
HRESULT trapThrown(Exception exception) {
    return trapAsResult("Pellmark.Application", [&] { throw exception; });
}

TEST(GuardTest, ABodyThatEndsWellAnswersOkAndLeavesNoOldErrorText) {
    trapThrown(std::runtime_error("an earlier failure"));
    EXPECT_EQ(trapAsResult("Pellmark.Application", [] {}), S_OK);
    EXPECT_EQ(takeErrorText(), "");
}

TEST(GuardTest, LackOfMemoryBecomesItsOwnCode) {
    EXPECT_EQ(trapThrown(std::bad_alloc()), E_OUTOFMEMORY);
}

TEST(GuardTest, AnErrorOfTheComponentKeepsItsNumberItsSourceAndItsText) {
    EXPECT_EQ(static_cast<unsigned long>(trapThrown(Error(26001, "Norvex.cRegistry", "no such key"))),
              0x800A0000UL + 26001);
    EXPECT_EQ(takeErrorText(), "no such key");
    trapThrown(Error(26001, "Norvex.cRegistry", "no such key"));
    EXPECT_EQ(takeErrorSource(), "Norvex.cRegistry");
}

TEST(GuardTest, AnErrorNumberThatNoScriptCanShowBecomesAGeneralFailure) {
    EXPECT_EQ(trapThrown(Error(0, "", "odd")), E_FAIL);
    EXPECT_EQ(trapThrown(Error(70000, "", "odd")), E_FAIL);
}

TEST(GuardTest, AnyOtherExceptionBecomesAGeneralFailureWithItsText) {
    EXPECT_EQ(trapThrown(std::runtime_error("caf\xC3\xA9")), E_FAIL);
    EXPECT_EQ(takeErrorText(), "caf\xC3\xA9");
}

TEST(GuardTest, WhatIsNoExceptionAtAllIsCaughtToo) {
    EXPECT_EQ(trapThrown(42), E_FAIL);
    EXPECT_EQ(takeErrorText(), "Unexpected failure");
}

TEST(GuardTest, AMistakeInTheCallKeepsItsCode) {
    EXPECT_EQ(trapThrown(CallError(DISP_E_OVERFLOW, "too big", 3)), DISP_E_OVERFLOW);
    EXPECT_EQ(takeErrorText(), "too big");
}

TEST(GuardTest, ADispatchCallGetsItsDetailsInAPlaceOfTheirOwn) {
    EXCEPINFO exception{};
    UINT argument = 99;
    EXPECT_EQ(
        trapAsResult("Pellmark.Application", &exception, &argument, [] { throw Error(5, "src", "no"); }),
        DISP_E_EXCEPTION);
    EXPECT_EQ(Bstr::adopt(exception.bstrSource).utf8(), "src");
    EXPECT_EQ(Bstr::adopt(exception.bstrDescription).utf8(), "no");
    EXPECT_EQ(argument, 99U);
    EXPECT_EQ(trapAsResult("Pellmark.Application", nullptr, &argument,
                           [] { throw CallError(DISP_E_OVERFLOW, "too big", 3); }),
              DISP_E_OVERFLOW);
    EXPECT_EQ(argument, 3U);
}

TEST(GuardTest, APersonIsToldTheTextOfAFailureAndNothingElse) {
    std::vector<std::string> told;
    const auto tell = [&](const std::string& text) { told.push_back(text); };
    EXPECT_TRUE(trapAndTell(tell, [] {}));
    EXPECT_FALSE(trapAndTell(tell, [] { throw Error(26104, "Norvex", "The file is locked"); }));
    EXPECT_FALSE(trapAndTell(tell, [] { throw std::runtime_error("unforeseen"); }));
    EXPECT_FALSE(trapAndTell(tell, [] { throw 42; }));
    EXPECT_EQ(told, (std::vector<std::string>{"The file is locked", "unforeseen", "Unexpected failure"}));
}

TEST(GuardTest, AFailureWhileAPersonIsToldGoesNoFurther) {
    const auto tell = [](const std::string&) { throw std::bad_alloc(); };
    EXPECT_FALSE(trapAndTell(tell, [] { throw std::runtime_error("unforeseen"); }));
}

}  // namespace
}  // namespace pellmark
