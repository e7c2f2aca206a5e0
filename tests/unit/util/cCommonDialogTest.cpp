#include "util/cCommonDialog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "base/Error.h"
#include "support/MemoryFileSystem.h"
#include "support/RecordingPrinter.h"
#include "support/ScriptedFileDialogs.h"
#include "support/ScriptedSystemDialogs.h"

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
    ScriptedSystemDialogs others;
    RecordingPrinter printer;
    cCommonDialog dialog{ports, others, printer, files, "Norvex"};
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

TEST_F(CCommonDialogTest, OnlyAConfirmedDialogThatNamesAFileIsAChoice) {
    request.fileName = "old.prc";
    ports.expectOpen([](const FileDialogHook&) {
        return FileDialogResult{false, {"C:\\Data\\new.prc"}, "new.prc", 1, 0};
    });
    EXPECT_FALSE(dialog.VBGetOpenFileName(request));
    ports.expectOpen([](const FileDialogHook&) { return FileDialogResult{true, {}, "", 1, 0}; });
    EXPECT_FALSE(dialog.VBGetOpenFileName(request));
    EXPECT_EQ(request.fileName, "old.prc");
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

TEST_F(CCommonDialogTest, AColourIsTakenWhenItIsConfirmed) {
    Color color = kRed;
    others.expectColor([](ColorChoice& choice) {
        EXPECT_EQ(choice.color, kRed);
        choice.color = kGreen;
        return true;
    });
    EXPECT_TRUE(dialog.VBChooseColor(color, 7, 2));
    EXPECT_EQ(color, kGreen);
    EXPECT_EQ(others.shown.at(0).owner, 7U);
    EXPECT_EQ(others.shown.at(0).flags, 2U);
    EXPECT_EQ(dialog.APIReturn(), 1);
    others.expectColor([](ColorChoice& choice) {
        choice.color = kBlack;
        return false;
    });
    EXPECT_FALSE(dialog.VBChooseColor(color, 7));
    EXPECT_EQ(color, kGreen);
    EXPECT_EQ(dialog.APIReturn(), 0);
}

TEST_F(CCommonDialogTest, MixedColoursAreShownAndKept) {
    for (const int index : {0, 15})
        EXPECT_EQ(dialog.CustomColor(index), 0xFFFFFFU);
    dialog.setCustomColor(0, 0x010203);
    dialog.setCustomColor(15, 0x040506);
    others.expectColor([](ColorChoice& choice) {
        EXPECT_EQ(choice.customColors[0], 0x010203U);
        EXPECT_EQ(choice.customColors[15], 0x040506U);
        choice.customColors[1] = kRed;
        return false;
    });
    Color color = kBlack;
    dialog.VBChooseColor(color, 0);
    EXPECT_EQ(dialog.CustomColor(0), 0x010203U);
    EXPECT_EQ(dialog.CustomColor(1), kRed);
}

TEST_F(CCommonDialogTest, ThereAreSixteenMixedColours) {
    for (const int index : {-1, 16}) {
        try {
            dialog.setCustomColor(index, kRed);
            FAIL() << "nothing was thrown";
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), 5);
            EXPECT_EQ(error.source(), "Norvex.VBError");
        }
    }
    EXPECT_THROW(dialog.CustomColor(16), Error);
}

TEST_F(CCommonDialogTest, AFontComesWithItsColour) {
    Font font{"Arial", 10};
    Color color = kRed;
    others.expectFont([](FontChoice& choice) {
        EXPECT_EQ(choice.font.name, "Arial");
        EXPECT_EQ(choice.color, kRed);
        choice = {Font{"Tahoma", 8.25, true}, kBlack};
        return true;
    });
    EXPECT_TRUE(dialog.VBChooseFont(font, color, 7, 3));
    EXPECT_EQ(font, (Font{"Tahoma", 8.25, true}));
    EXPECT_EQ(color, kBlack);
    EXPECT_EQ(others.shown.at(0).flags, 3U);
    others.expectFont([](FontChoice& choice) {
        choice.font.name = "Other";
        return false;
    });
    EXPECT_FALSE(dialog.VBChooseFont(font, color, 7));
    EXPECT_EQ(font.name, "Tahoma");
}

TEST_F(CCommonDialogTest, ThePrinterIsSetToWhatWasChosen) {
    const PrinterSettings chosen{"Plotter", 4, Orientation::Landscape, 8, -3, "driver"};
    printer.setSettings({"Laser", 2, Orientation::Portrait, 9, 600});
    others.expectPrint([&](PrinterSettings& settings) {
        EXPECT_EQ(settings, printer.settings());
        settings = chosen;
        return true;
    });
    PageRange pages;
    EXPECT_TRUE(dialog.VBPrintDlg(pages, 7, 5));
    EXPECT_EQ(pages, PageRange{});
    EXPECT_EQ(printer.settings(), chosen);
    EXPECT_EQ(others.shown.at(0).owner, 7U);
    EXPECT_EQ(others.shown.at(0).flags, 5U);
    others.expectPrint([](PrinterSettings& settings) {
        settings.copies = 9;
        return false;
    });
    EXPECT_FALSE(dialog.VBPrintDlg(pages, 7));
    EXPECT_EQ(printer.settings(), chosen);
}

TEST_F(CCommonDialogTest, ARangeOfPagesIsProposedAndTakenWhenItIsConfirmed) {
    PageRange pages{2, 4};
    others.expectPrintChoice([](PrintChoice& choice) {
        EXPECT_EQ(choice.pages, (PageRange{2, 4}));
        choice.pages = {3, 3};
        return true;
    });
    EXPECT_TRUE(dialog.VBPrintDlg(pages, 7));
    EXPECT_EQ(pages, (PageRange{3, 3}));
    others.expectPrintChoice([](PrintChoice& choice) {
        choice.pages = {};
        return false;
    });
    EXPECT_FALSE(dialog.VBPrintDlg(pages, 7));
    EXPECT_EQ(pages, (PageRange{3, 3}));
}

TEST_F(CCommonDialogTest, PageSetupSetsThePrinterAndTheMargins) {
    PageMargins margins{1, 2, 3, 4};
    others.expectPageSetup([](PageChoice& choice) {
        EXPECT_EQ(choice.margins, (PageMargins{1, 2, 3, 4}));
        choice.margins.left = 1440;
        choice.settings.orientation = Orientation::Landscape;
        choice.settings.paperSize = 8;
        return true;
    });
    EXPECT_TRUE(dialog.VBPageSetupDlg(margins, 7));
    EXPECT_EQ(margins, (PageMargins{1440, 2, 3, 4}));
    EXPECT_EQ(printer.settings().orientation, Orientation::Landscape);
    EXPECT_EQ(printer.settings().paperSize, 8);
    others.expectPageSetup([](PageChoice& choice) {
        choice.margins = {};
        return false;
    });
    EXPECT_FALSE(dialog.VBPageSetupDlg(margins, 7));
    EXPECT_EQ(margins.left, 1440);
}

TEST_F(CCommonDialogTest, EveryDialogThatFailsRaisesItsCode) {
    Color color = kBlack;
    Font font;
    PageMargins margins;
    PageRange pages;
    const std::function<void()> dialogs[] = {
        [&] { dialog.VBChooseColor(color, 0); }, [&] { dialog.VBChooseFont(font, color, 0); },
        [&] { dialog.VBPrintDlg(pages, 0); }, [&] { dialog.VBPageSetupDlg(margins, 0); }};
    for (const auto& show : dialogs) {
        for (const auto& [code, source] :
             {std::pair{1000U, "Norvex.VBError"}, {1001U, "Norvex.CommonDialog"}}) {
            others.failNext(code);
            try {
                show();
                ADD_FAILURE() << "nothing was thrown";
            } catch (const Error& error) {
                EXPECT_EQ(error.number(), static_cast<std::int32_t>(code));
                EXPECT_EQ(error.source(), source);
                EXPECT_EQ(dialog.ExtendedError(), code);
                EXPECT_EQ(dialog.APIReturn(), 0);
            }
        }
    }
}

}  // namespace
}  // namespace pellmark::test
