#include "util/cCommonDialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Error.h"
#include "support/MemoryFileSystem.h"
#include "support/ScriptedFileDialogs.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CCommonDialogTest : public testing::Test {
  protected:
    static FileDialogResult failure(std::uint32_t code) {
        FileDialogResult result;
        result.extendedError = code;
        return result;
    }
    Error errorOf(std::uint32_t code) {
        ports.expectOpen([code](const FileDialogHook&) { return failure(code); });
        try {
            dialog.VBGetOpenFileName(request);
        } catch (const Error& error) {
            return error;
        }
        return {0, "none", ""};
    }

    ScriptedFileDialogs ports;
    MemoryFileSystem files;
    cCommonDialog dialog{ports, files, "Norvex"};
    FileDialogRequest request;
};

TEST_F(CCommonDialogTest, EveryArgumentReachesTheDialogAndTheChoiceComesBack) {
    request = {"old.prc", "sssss", "A|*.a|", 2, "C:\\Data", "Open it", "prc", 7, filedialog::kFileMustExist};
    ports.expectOpen([](const FileDialogHook&) {
        return FileDialogResult{true, {"C:\\Data\\new.prc"}, "new.prc", 3, 0};
    });
    EXPECT_TRUE(dialog.VBGetOpenFileName(request));
    const FileDialogRequest& asked = ports.requests().at(0);
    EXPECT_EQ(asked.fileName, "old.prc");
    EXPECT_EQ(asked.fileTitle, "sssss");
    EXPECT_EQ(asked.filter, "A|*.a|");
    EXPECT_EQ(asked.filterIndex, 2);
    EXPECT_EQ(asked.initialFolder, "C:\\Data");
    EXPECT_EQ(asked.title, "Open it");
    EXPECT_EQ(asked.defaultExtension, "prc");
    EXPECT_EQ(asked.owner, 7U);
    EXPECT_EQ(asked.flags, filedialog::kFileMustExist);
    EXPECT_EQ(request.fileName, "C:\\Data\\new.prc");
    EXPECT_EQ(request.fileTitle, "new.prc");
    EXPECT_EQ(request.filterIndex, 3);
    EXPECT_EQ(dialog.APIReturn(), 1);
    EXPECT_EQ(dialog.ExtendedError(), 0U);
}

TEST_F(CCommonDialogTest, ACancelLeavesTheRequestAsItWas) {
    request.fileName = "old.prc";
    request.fileTitle = "sssss";
    ports.expectSave("C:\\a.csv");
    EXPECT_TRUE(dialog.VBGetSaveFileName(request, false));
    request.fileName = "old.prc";
    ports.expectSave("");
    EXPECT_FALSE(dialog.VBGetSaveFileName(request, false));
    EXPECT_EQ(request.fileName, "old.prc");
    EXPECT_EQ(dialog.APIReturn(), 0);
    EXPECT_EQ(dialog.ExtendedError(), 0U);
}

TEST_F(CCommonDialogTest, TheOverwritePromptIsAFlagOfTheSaveDialog) {
    request.flags = filedialog::kPathMustExist;
    ports.expectSave("");
    ports.expectSave("");
    dialog.VBGetSaveFileName(request, true);
    dialog.VBGetSaveFileName(request, false);
    EXPECT_EQ(ports.requests().at(0).flags, filedialog::kPathMustExist | filedialog::kOverwritePrompt);
    EXPECT_EQ(ports.requests().at(1).flags, filedialog::kPathMustExist);
    EXPECT_EQ(request.flags, filedialog::kPathMustExist);
}

TEST_F(CCommonDialogTest, TheChosenFilesAreThoseOfTheLastOpenDialog) {
    ports.expectOpen([](const FileDialogHook&) {
        return FileDialogResult{true, {"C:\\a.prc", "C:\\b.prc"}, "", 1, 0};
    });
    EXPECT_TRUE(dialog.VBGetOpenFileName(request));
    EXPECT_EQ(request.fileName, "C:\\a.prc");
    ports.expectSave("C:\\c.prc");
    dialog.VBGetSaveFileName(request, false);
    EXPECT_THAT(dialog.GetFileNames(), ElementsAre("C:\\a.prc", "C:\\b.prc"));
    ports.expectOpen("");
    dialog.VBGetOpenFileName(request);
    EXPECT_THAT(dialog.GetFileNames(), IsEmpty());
}

TEST_F(CCommonDialogTest, AFailureIsRaisedUnderTheNameOfWhomItBelongsTo) {
    const Error ofDialog = errorOf(0x3003);
    EXPECT_EQ(ofDialog.number(), 0x3003);
    EXPECT_EQ(ofDialog.source(), "Norvex.CommonDialog");
    EXPECT_EQ(dialog.ExtendedError(), 0x3003U);
    EXPECT_EQ(dialog.APIReturn(), 0);
    EXPECT_EQ(errorOf(1001).source(), "Norvex.CommonDialog");
    EXPECT_EQ(errorOf(1000).source(), "Norvex.VBError");
    EXPECT_EQ(errorOf(1).source(), "Norvex.VBError");
    ports.expectSave([](const FileDialogHook&) { return failure(0xFFFF); });
    EXPECT_THROW(dialog.VBGetSaveFileName(request, true), Error);
}

TEST_F(CCommonDialogTest, TheTitleOfAPathIsTheSystems) {
    EXPECT_EQ(dialog.VBGetFileTitle("C:\\a.prc"), "title of C:\\a.prc");
}

TEST_F(CCommonDialogTest, AFileExistsAlsoWhenItIsHidden) {
    files.makeFile("C:\\Data\\a.prc");
    files.makeFile("C:\\Data\\b.prc", "", FileSystem::kHidden);
    EXPECT_TRUE(dialog.FileExists("C:\\Data\\a.prc"));
    EXPECT_TRUE(dialog.FileExists("C:\\Data\\b.prc"));
    for (const char* none :
         {"C:\\Data\\c.prc", "C:\\Data", "C:\\Data\\", "C:\\Data\\*.prc", "C:\\Data\\?.prc", ""}) {
        EXPECT_FALSE(dialog.FileExists(none)) << none;
    }
}

class NotedEvents : public FileDialogEvents {
  public:
    void InitDialog() override { heard.push_back("InitDialog"); }
    void TypeChange() override { heard.push_back("TypeChange"); }
    bool ConfirmOK() override {
        heard.push_back("ConfirmOK");
        return confirms;
    }
    void FolderChange() override { heard.push_back("FolderChange"); }
    void FileChange() override { heard.push_back("FileChange"); }
    void DialogClose() override { heard.push_back("DialogClose"); }

    std::vector<std::string> heard;
    bool confirms = true;
};

TEST_F(CCommonDialogTest, WhatHappensInADialogIsToldToTheTarget) {
    NotedEvents events;
    dialog.setEvents(&events);
    std::vector<bool> answers;
    const auto happen = [&](const FileDialogHook& hook) {
        using enum FileDialogMessage;
        for (const auto message : {Initialised, TypeChanged, Ok, FolderChanged, SelectionChanged, Destroyed})
            answers.push_back(hook(message));
        return FileDialogResult{};
    };
    ports.expectOpen(happen);
    dialog.VBGetOpenFileName(request);
    EXPECT_THAT(events.heard, ElementsAre("InitDialog", "TypeChange", "ConfirmOK", "FolderChange",
                                          "FileChange", "DialogClose"));
    EXPECT_THAT(answers, testing::Each(true));

    answers.clear();
    events.confirms = false;
    ports.expectSave(happen);
    dialog.VBGetSaveFileName(request, true);
    EXPECT_THAT(answers, ElementsAre(true, true, false, true, true, true));
}

TEST_F(CCommonDialogTest, WithoutATargetADialogIsLeftAlone) {
    ports.expectOpen([](const FileDialogHook& hook) {
        EXPECT_TRUE(hook(FileDialogMessage::Ok));
        return FileDialogResult{};
    });
    EXPECT_FALSE(dialog.VBGetOpenFileName(request));
}

TEST_F(CCommonDialogTest, ATargetThatDoesNothingRefusesNothing) {
    FileDialogEvents quiet;
    dialog.setEvents(&quiet);
    using enum FileDialogMessage;
    for (const auto message : {Initialised, TypeChanged, Ok, FolderChanged, SelectionChanged, Destroyed})
        EXPECT_TRUE(dialog.DialogHook(message));
}

}  // namespace
}  // namespace pellmark::test
