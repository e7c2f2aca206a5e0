#include "win32/ports/Win32FileDialogs.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <vector>

#include "support/win32/PeerHarness.h"
#include "win32/WideText.h"

#include <dlgs.h>  // needs the system's types

namespace pellmark::test {
namespace {

using testing::AnyOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

class Win32FileDialogsTest : public ::testing::Test, protected PeerHarness {
  protected:
    Win32FileDialogsTest() {
        wchar_t temporary[MAX_PATH] = L"";
        ::GetTempPathW(MAX_PATH, temporary);
        folder = fromWide(temporary) + "pellmark-dialogs";
        ::CreateDirectoryW(toWide(folder).c_str(), nullptr);
        request.initialFolder = folder;
        request.title = "Save the steps";
        request.filter = "Tables (*.csv)|*.csv|Process Files (*.prc*)|*.prc|";
        request.owner = reinterpret_cast<WindowHandle>(hostBox());
    }
    ~Win32FileDialogsTest() override {
        for (const std::string& each : made)
            ::DeleteFileW(toWide(each).c_str());
        ::RemoveDirectoryW(toWide(folder).c_str());
    }
    void makeFile(const std::string& name) {
        made.push_back(folder + "\\" + name);
        ::CloseHandle(
            ::CreateFileW(toWide(made.back()).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    }
    static HWND box() { return visibleWindowOfClass(L"#32770"); }
    bool isOpen() {
        if (!heard(FileDialogMessage::Initialised) || box() == nullptr || ::GetForegroundWindow() != box())
            return false;
        wchar_t caption[100] = L"";
        ::GetWindowTextW(box(), caption, 100);
        title = fromWide(caption);
        owner = ::GetWindow(box(), GW_OWNER);
        return true;
    }
    bool heard(FileDialogMessage message) const {
        return std::find(messages.begin(), messages.end(), message) != messages.end();
    }
    FileDialogHook listening() {
        return [this](FileDialogMessage message) {
            messages.push_back(message);
            return message != FileDialogMessage::Ok || refusals-- <= 0;
        };
    }
    static Meanwhile::Step pressing(WORD key) {
        return [key] {
            Person::sendKeys({key});
            return true;
        };
    }
    /// What stands in the open dialog, at whatever depth; null when there is none.
    static HWND within(const wchar_t* className) {
        struct Search {
            const wchar_t* className;
            HWND found = nullptr;
        } search{className};
        ::EnumChildWindows(
            box(),
            [](HWND window, LPARAM lParam) -> BOOL {
                auto& looked = *reinterpret_cast<Search*>(lParam);
                wchar_t name[100] = L"";
                ::GetClassNameW(window, name, 100);
                if (::lstrcmpW(name, looked.className) == 0 && ::IsWindowVisible(window))
                    looked.found = window;
                return looked.found == nullptr ? TRUE : FALSE;
            },
            reinterpret_cast<LPARAM>(&search));
        return search.found;
    }
    /// Opens the dialog, does this in it, and leaves it by Escape once the message has been heard.
    void doing(FileDialogMessage expected, const Meanwhile::Step& what) {
        const Meanwhile meanwhile({[this] { return isOpen(); },
                                   [&] {
                                       messages.clear();
                                       return what();
                                   },
                                   [&] { return heard(expected); }, pressing(VK_ESCAPE)});
        EXPECT_FALSE(dialogs.open(request, listening()).confirmed);
        EXPECT_TRUE(meanwhile.isDone());
    }
    FileDialogResult save(WORD key) {
        const Meanwhile meanwhile({[this] { return isOpen(); }, pressing(key)});
        return dialogs.save(request, listening());
    }
    FileDialogResult open(WORD key) {
        const Meanwhile meanwhile({[this] { return isOpen(); }, pressing(key)});
        return dialogs.open(request, listening());
    }

    Win32FileDialogs dialogs{operations};
    FileDialogRequest request;
    std::string folder;
    std::vector<std::string> made;
    std::vector<FileDialogMessage> messages;
    int refusals = 0;
    std::string title;
    HWND owner = nullptr;
};

TEST_F(Win32FileDialogsTest, EnterChoosesTheNameInItsFolder) {
    request.fileName = "steps.csv";
    request.fileTitle = "sssss";
    const FileDialogResult result = save(VK_RETURN);
    EXPECT_TRUE(result.confirmed);
    EXPECT_THAT(result.fileNames, ElementsAre(folder + "\\steps.csv"));
    EXPECT_THAT(result.fileTitle, AnyOf("steps.csv", "steps"));
    EXPECT_EQ(result.filterIndex, 1);
    EXPECT_EQ(result.extendedError, 0U);
    EXPECT_EQ(title, "Save the steps");
    EXPECT_EQ(owner, host()) << "the host's window, though a control within it asked";
    EXPECT_EQ(messages.back(), FileDialogMessage::Destroyed);
    EXPECT_THAT(messages, Contains(FileDialogMessage::Ok));
    EXPECT_TRUE(trace.lines().empty());
}

TEST_F(Win32FileDialogsTest, EscapeIsACancelAndNoFailure) {
    request.fileName = "steps.csv";
    const FileDialogResult result = save(VK_ESCAPE);
    EXPECT_FALSE(result.confirmed);
    EXPECT_TRUE(result.fileNames.empty());
    EXPECT_EQ(result.extendedError, 0U);
    EXPECT_THAT(messages, Not(Contains(FileDialogMessage::Ok)));
}

TEST_F(Win32FileDialogsTest, ARefusedOkKeepsTheDialogOpen) {
    request.fileName = "steps.csv";
    refusals = 1;
    const Meanwhile meanwhile({[this] { return isOpen(); }, pressing(VK_RETURN),
                               [this] { return heard(FileDialogMessage::Ok) && isOpen(); },
                               pressing(VK_RETURN)});
    EXPECT_TRUE(dialogs.save(request, listening()).confirmed);
    EXPECT_EQ(std::count(messages.begin(), messages.end(), FileDialogMessage::Ok), 2);
}

TEST_F(Win32FileDialogsTest, AnotherFileTypeIsTold) {
    doing(FileDialogMessage::TypeChanged, [] {
        ::SetFocus(::GetDlgItem(box(), cmb1));
        Person::sendKeys({VK_DOWN});
        return true;
    });
}

TEST_F(Win32FileDialogsTest, AnotherFolderIsTold) {
    const std::wstring inner = toWide(folder + "\\inner");
    ::CreateDirectoryW(inner.c_str(), nullptr);
    request.fileName = "inner";
    doing(FileDialogMessage::FolderChanged, pressing(VK_RETURN));
    EXPECT_THAT(messages, Not(Contains(FileDialogMessage::Ok))) << "a folder is no file";
    ::RemoveDirectoryW(inner.c_str());
}

TEST_F(Win32FileDialogsTest, AnotherSelectionIsTold) {
    makeFile("a.csv");
    doing(FileDialogMessage::SelectionChanged, [] {
        const HWND list = within(L"SysListView32");
        if (list == nullptr) return false;
        ::SetFocus(list);
        Person::sendKeys({VK_DOWN});
        return true;
    });
}

TEST_F(Win32FileDialogsTest, NoCharacterOfANameIsLost) {
    const std::string name = "\xE5\xB7\xA5\xE7\xA8\x8B \xC3\xA4 \xD0\xAF.prc";
    makeFile(name);
    request.fileName = name;
    request.filterIndex = 2;
    const FileDialogResult result = open(VK_RETURN);
    EXPECT_THAT(result.fileNames, ElementsAre(folder + "\\" + name));
    EXPECT_EQ(result.filterIndex, 2);
}

TEST_F(Win32FileDialogsTest, AMissingExtensionIsAdded) {
    request.fileName = "steps";
    request.defaultExtension = "*.csv";
    EXPECT_THAT(save(VK_RETURN).fileNames, ElementsAre(folder + "\\steps.csv"));
}

TEST_F(Win32FileDialogsTest, SeveralFilesComeBackWithTheirPaths) {
    makeFile("a.prc");
    makeFile("b.prc");
    request.fileName = "\"a.prc\" \"b.prc\"";
    request.flags = filedialog::kAllowMultiSelect;
    EXPECT_THAT(open(VK_RETURN).fileNames, ElementsAre(folder + "\\a.prc", folder + "\\b.prc"));
}

TEST_F(Win32FileDialogsTest, TheCurrentFolderAndTheKeyboardStayTheHosts) {
    wchar_t before[MAX_PATH] = L"";
    ::GetCurrentDirectoryW(MAX_PATH, before);
    ::SetFocus(hostBox());
    request.fileName = "steps.csv";
    save(VK_RETURN);
    wchar_t after[MAX_PATH] = L"";
    ::GetCurrentDirectoryW(MAX_PATH, after);
    EXPECT_STREQ(before, after);
    EXPECT_EQ(::GetFocus(), hostBox());
}

TEST_F(Win32FileDialogsTest, WhatAListenerThrowsStaysInsideAndIsTraced) {
    request.fileName = "steps.csv";
    const Meanwhile meanwhile(
        {[] { return box() != nullptr && ::GetForegroundWindow() == box(); }, pressing(VK_RETURN)});
    const FileDialogResult result =
        dialogs.save(request, [](FileDialogMessage) -> bool { throw std::runtime_error("not today"); });
    EXPECT_TRUE(result.confirmed);
    EXPECT_TRUE(trace.trapped("cCommonDialog::DialogHook"));
}

TEST_F(Win32FileDialogsTest, TheTitleOfAPathIsItsName) {
    EXPECT_THAT(dialogs.fileTitle("C:\\Data\\\xE5\xB7\xA5.prc"), AnyOf("\xE5\xB7\xA5.prc", "\xE5\xB7\xA5"));
    EXPECT_EQ(dialogs.fileTitle(""), "");
    EXPECT_EQ(dialogs.fileTitle("C:\\Data\\"), "");
}

}  // namespace
}  // namespace pellmark::test
