#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "com/LoadedServer.h"

namespace pellmark {
namespace {

std::string lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char each) { return static_cast<char>(std::tolower(each)); });
    return text;
}

/// Names in a directory of the loaded image.
class Image {
  public:
    Image() : base_(reinterpret_cast<const unsigned char*>(GetModuleHandleW(L"Pellmark.dll"))) {}

    std::set<std::string> imports() const {
        std::set<std::string> names;
        auto* each = at<IMAGE_IMPORT_DESCRIPTOR>(directory(IMAGE_DIRECTORY_ENTRY_IMPORT));
        for (; each->Name != 0; ++each) {
            names.insert(lower(at<char>(each->Name)));
        }
        return names;
    }
    std::set<std::string> exports() const {
        const auto* table = at<IMAGE_EXPORT_DIRECTORY>(directory(IMAGE_DIRECTORY_ENTRY_EXPORT));
        std::set<std::string> names;
        for (DWORD i = 0; i < table->NumberOfNames; ++i) {
            names.insert(at<char>(at<DWORD>(table->AddressOfNames)[i]));
        }
        return names;
    }

  private:
    template <class Type>
    const Type* at(DWORD offset) const {
        return reinterpret_cast<const Type*>(base_ + offset);
    }
    DWORD directory(int index) const {
        const auto* dos = at<IMAGE_DOS_HEADER>(0);
        const auto* headers = at<IMAGE_NT_HEADERS>(static_cast<DWORD>(dos->e_lfanew));
        return headers->OptionalHeader.DataDirectory[index].VirtualAddress;
    }

    const unsigned char* base_;
};

// what every Windows has; a compiler's run-time library or another DLL of ours would not be there
const std::set<std::string> kSystem{"advapi32.dll", "comctl32.dll", "comdlg32.dll", "gdi32.dll",
                                    "imm32.dll",    "kernel32.dll", "msvcrt.dll",   "ole32.dll",
                                    "oleaut32.dll", "shell32.dll",  "shlwapi.dll",  "user32.dll",
                                    "uxtheme.dll",  "winspool.drv", "dwmapi.dll"};

TEST(ImportsTest, TheDllNeedsNothingBeyondTheSystem) {
    const LoadedServer server;
    const std::set<std::string> imports = Image().imports();
    EXPECT_TRUE(imports.contains("kernel32.dll"));
    for (const std::string& name : imports) {
        EXPECT_TRUE(kSystem.contains(name)) << name;
    }
}

TEST(ImportsTest, TheDllExportsItsFiveEntryPointsAndNothingElse) {
    const LoadedServer server;
    EXPECT_EQ(Image().exports(), (std::set<std::string>{"DllCanUnloadNow", "DllGetClassObject", "DllInstall",
                                                        "DllRegisterServer", "DllUnregisterServer"}));
}

}  // namespace
}  // namespace pellmark
