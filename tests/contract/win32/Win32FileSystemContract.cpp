#include <windows.h>

#include "base/Error.h"
#include "contract/FileSystemContract.h"
#include "win32/Handles.h"
#include "win32/WideText.h"
#include "win32/ports/Win32CodePage.h"
#include "win32/ports/Win32FileSystem.h"

namespace pellmark::test {

namespace {

/// Paths of the scratch folder are absolute and plain, so this prefix alone lifts the length limit.
std::wstring longPath(const std::string& path) {
    return L"\\\\?\\" + toWide(path);
}

void removeTree(const std::wstring& folder) {
    WIN32_FIND_DATAW found{};
    {
        const FindHandle search(::FindFirstFileW((folder + L"\\*").c_str(), &found));
        if (!search) return;
        do {
            const std::wstring name = found.cFileName;
            if (name == L"." || name == L"..") continue;
            const std::wstring path = folder + L"\\" + name;
            if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
                removeTree(path);
            } else {
                ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
                ::DeleteFileW(path.c_str());
            }
        } while (::FindNextFileW(search.get(), &found));
    }
    ::RemoveDirectoryW(folder.c_str());
}

class Win32FilesUnderTest : public FileSystemUnderTest {
  public:
    Win32FilesUnderTest() {
        folder_ = files_.temporaryFolder() + "PellmarkContract" + std::to_string(::GetCurrentProcessId());
        removeTree(longPath(folder_));
        makeFolder(folder_);
    }
    ~Win32FilesUnderTest() override { removeTree(longPath(folder_)); }

    FileSystem& files() override { return files_; }
    std::string folder() override { return folder_; }
    void makeFolder(const std::string& path) override {
        EXPECT_TRUE(::CreateDirectoryW(longPath(path).c_str(), nullptr)) << path;
    }
    void setAttributes(const std::string& path, std::uint32_t attributes) override {
        EXPECT_TRUE(::SetFileAttributesW(longPath(path).c_str(), attributes)) << path;
    }

    std::string whyReadOnlyIsNotKept() override {
        const HMODULE system = ::GetModuleHandleW(L"ntdll.dll");
        const bool isWine = ::GetProcAddress(system, "wine_get_version") != nullptr;
        return isWine ? "Wine keeps the attribute as Unix permissions, which root may pass." : "";
    }

  private:
    Win32CodePage codePage_;
    Win32FileSystem files_{codePage_};
    std::string folder_;
};

std::unique_ptr<FileSystemUnderTest> makeWin32Files() {
    return std::make_unique<Win32FilesUnderTest>();
}

}  // namespace

TEST(Win32FileSystemTest, AFileThatAnotherProgramHoldsIsRefusedWithPermissionDenied) {
    Win32FilesUnderTest underTest;
    const std::string path = underTest.folder() + "\\held.txt";
    underTest.files().write(path, "kept");
    const FileHandle held(::CreateFileW(longPath(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                        FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(held);
    try {
        underTest.files().append(path, "x");
        FAIL() << "nothing was thrown";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), errors::kPermissionDenied);
        EXPECT_NE(error.description().find("held.txt"), std::string::npos);
    }
}

TEST(Win32FileSystemTest, AFileThatAnotherProgramHoldsIsNotReplaced) {
    Win32FilesUnderTest underTest;
    const std::string held = underTest.folder() + "\\held.txt";
    const std::string fresh = underTest.folder() + "\\fresh.txt";
    underTest.files().write(held, "kept");
    underTest.files().write(fresh, "new");
    // as spreadsheets open a table: others may read it
    FileHandle handle(::CreateFileW(longPath(held).c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ,
                                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(handle);
    try {
        underTest.files().replace(fresh, held);
        FAIL() << "nothing was thrown";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), errors::kPermissionDenied);
        EXPECT_NE(error.description().find("held.txt"), std::string::npos);
    }
    handle.reset();
    EXPECT_EQ(underTest.files().read(held, 0, 100), "kept");
    EXPECT_EQ(underTest.files().read(fresh, 0, 100), "new");
}

TEST(Win32FileSystemTest, ATemporaryFolderThatDoesNotFitIntoTheBufferIsNone) {
    wchar_t before[512] = {};
    ::GetEnvironmentVariableW(L"TMP", before, 512);
    ::SetEnvironmentVariableW(L"TMP", (L"C:\\" + std::wstring(280, L'x')).c_str());
    const Win32CodePage codePage;
    EXPECT_EQ(Win32FileSystem(codePage).temporaryFolder(), "");
    ::SetEnvironmentVariableW(L"TMP", before);
}

INSTANTIATE_TEST_SUITE_P(Win32, FileSystemContract, ::testing::Values(&makeWin32Files));

}  // namespace pellmark::test
