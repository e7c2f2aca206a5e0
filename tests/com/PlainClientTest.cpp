#include <gtest/gtest.h>

#include "com/ChildProgram.h"
#include "com/EmbeddedTypes.h"

namespace pellmark {
namespace {

// The client is C, so an exception that left the component would end it with another exit code than its own.
TEST(PlainClientTest, AClientInCMakesEveryCallGoodAndBadAndSeesNoException) {
    const ChildResult result = runChild(L"\"" + programFolder() + L"\\plain_client.exe\"");
    EXPECT_EQ(result.exitCode, 0U) << result.output;
    EXPECT_NE(result.output.find("all calls answered"), std::string::npos) << result.output;
}

}  // namespace
}  // namespace pellmark
