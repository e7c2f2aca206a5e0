#include <windows.h>

#include "contract/RegistryContract.h"
#include "win32/ports/Win32CodePage.h"
#include "win32/ports/Win32Registry.h"

namespace pellmark::test {

namespace {

constexpr char kScratchRoot[] = "Software\\PellmarkContractTests";

/// Lets a hive stand for an empty scratch key while it lives, so that the suites may write under the keys
/// that they really use.
class RedirectedHive {
  public:
    RedirectedHive(HKEY hive, const std::string& path) : hive_(hive) {
        HKEY scratch = nullptr;
        EXPECT_EQ(::RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                    &scratch, nullptr),
                  ERROR_SUCCESS);
        scratch_ = scratch;
    }
    RedirectedHive(const RedirectedHive&) = delete;
    RedirectedHive& operator=(const RedirectedHive&) = delete;
    ~RedirectedHive() {
        ::RegOverridePredefKey(hive_, nullptr);
        ::RegCloseKey(scratch_);
    }

    void redirect() { EXPECT_EQ(::RegOverridePredefKey(hive_, scratch_), ERROR_SUCCESS); }

  private:
    HKEY hive_;
    HKEY scratch_ = nullptr;
};

/// Removes the scratch key before and after a test; the first time what a killed run left behind.
class ScratchRoot {
  public:
    ScratchRoot() { ::RegDeleteTreeA(HKEY_CURRENT_USER, kScratchRoot); }
    ScratchRoot(const ScratchRoot&) = delete;
    ScratchRoot& operator=(const ScratchRoot&) = delete;
    ~ScratchRoot() { ::RegDeleteTreeA(HKEY_CURRENT_USER, kScratchRoot); }
};

class Win32UnderTest : public RegistryUnderTest {
  public:
    Win32UnderTest() {
        ::SetEnvironmentVariableA("PELLMARK_TEST", "drills");
        machine_.redirect();
        user_.redirect();
    }
    ~Win32UnderTest() override { ::SetEnvironmentVariableA("PELLMARK_TEST", nullptr); }
    Registry& registry() override { return registry_; }
    const CodePage& codePage() override { return codePage_; }

  private:
    ScratchRoot root_;
    RedirectedHive machine_{HKEY_LOCAL_MACHINE, std::string(kScratchRoot) + "\\Machine"};
    RedirectedHive user_{HKEY_CURRENT_USER, std::string(kScratchRoot) + "\\User"};
    Win32Registry registry_;
    Win32CodePage codePage_;
};

std::unique_ptr<RegistryUnderTest> makeWin32() {
    return std::make_unique<Win32UnderTest>();
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Win32, RegistryContract, ::testing::Values(&makeWin32));
INSTANTIATE_TEST_SUITE_P(Win32, CRegistryContract, ::testing::Values(&makeWin32));
INSTANTIATE_TEST_SUITE_P(Win32, CQDLExtSettingsContract, ::testing::Values(&makeWin32));
INSTANTIATE_TEST_SUITE_P(Win32, CRegDefaultsContract, ::testing::Values(&makeWin32));

}  // namespace pellmark::test
