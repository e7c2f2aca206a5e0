#include "automation/Environment.h"

#include <gtest/gtest.h>

#include <cstddef>

#include "win32/WindowsApi.h"

namespace pellmark::test {
namespace {

constexpr wchar_t kName[] = L"PELLMARK_ENVIRONMENT_TEST";

class EnvironmentTest : public testing::Test {
  public:
    EnvironmentTest(const EnvironmentTest&) = delete;
    EnvironmentTest& operator=(const EnvironmentTest&) = delete;

  protected:
    EnvironmentTest() = default;
    ~EnvironmentTest() override { SetEnvironmentVariableW(kName, nullptr); }
};

TEST_F(EnvironmentTest, AVariableThatIsNotThereIsEmpty) {
    EXPECT_EQ(environmentText(kName), "");
}

TEST_F(EnvironmentTest, AVariableIsReadWholeHoweverLongItIs) {
    for (const std::size_t length : {std::size_t{1}, std::size_t{259}, std::size_t{260}, std::size_t{5000}}) {
        const std::wstring value = L"\x00FC" + std::wstring(length - 1, L'x');
        SetEnvironmentVariableW(kName, value.c_str());
        EXPECT_EQ(environmentText(kName), "\xC3\xBC" + std::string(length - 1, 'x'));
    }
}

}  // namespace
}  // namespace pellmark::test
