#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "com/adapters/KnowledgeBaseAdapter.h"
#include "com/adapters/TechnologyServiceAdapter.h"
#include "refhost/automation/NorvexLibrary.h"
#include "refhost/automation/Resources.h"
#include "refhost/technology/Catalogue.h"
#include "refhost/technology/Cycles.h"
#include "refhost/texts/Languages.h"
#include "refhost/windows/HostTexts.h"
#include "support/TemporaryFolder.h"
#include "support/win32/Person.h"
#include "support/win32/TextRoom.h"

namespace pellmark {
namespace {

using test::complaintsAbout;
using test::Meanwhile;
using test::NorvexLibrary;
using testing::IsEmpty;

/// The workbench's dialog that describes a feature case; its program is loaded for its resources alone.
constexpr int kCaseDialog = 103;

INT_PTR CALLBACK doNothing(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

/// The technology window while it is open.
HWND technologyWindow() {
    const auto check = [](HWND window, LPARAM found) -> BOOL {
        if (GetDlgItem(window, IDC_TECHNOLOGY_GRID) == nullptr || IsWindowVisible(window) == FALSE)
            return TRUE;
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    };
    HWND dialog = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), check, reinterpret_cast<LPARAM>(&dialog));
    return dialog;
}

/// What looks at the technology window once it is there, and closes it.
Meanwhile::Step closing(std::function<void(HWND)> look) {
    return [look = std::move(look)] {
        const HWND dialog = technologyWindow();
        if (dialog == nullptr) return false;
        look(dialog);
        SendMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        return true;
    };
}

int dpiOfScreen() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dpi;
}

/// The host's own dialogs in one language, on the screen that there is: the suite is run on several ones.
class TranslatedWindowsTest : public testing::TestWithParam<std::int16_t> {
  protected:
    static void SetUpTestSuite() { SetProcessDPIAware(); }  // as the workbench is
    TranslatedWindowsTest() {
        SetEnvironmentVariableW(L"NORVEX_LANGUAGE", std::to_wstring(GetParam()).c_str());
        NorvexLibrary::useKnowledgeBase(folder_.file("texts.db"));
    }
    ~TranslatedWindowsTest() override { SetEnvironmentVariableW(L"NORVEX_LANGUAGE", nullptr); }

    /// What is wrong with a dialog of a program or library beside this one.
    std::vector<std::string> complaintsAboutDialog(const wchar_t* file, int dialog) const {
        const norvex::HostTexts texts(NorvexLibrary::folder(), GetParam());
        const HMODULE module = LoadLibraryExW((NorvexLibrary::folder() + L"\\" + file).c_str(), nullptr,
                                              LOAD_LIBRARY_AS_IMAGE_RESOURCE | LOAD_LIBRARY_AS_DATAFILE);
        const HWND window = CreateDialogParamW(module, MAKEINTRESOURCEW(dialog), nullptr, &doNothing, 0);
        if (window == nullptr) return {"there is no such dialog"};
        texts.translate(window);
        std::vector<std::string> complaints = complaintsAbout(window, dpiOfScreen());
        DestroyWindow(window);
        FreeLibrary(module);
        return complaints;
    }
    TechnologyServiceAdapter service() const {
        return TechnologyServiceAdapter(
            DispatchObject(library_.create(L"Norvex.TechnologyService"), "Norvex.TechnologyService"));
    }

    test::TemporaryFolder folder_;
    NorvexLibrary library_;
};

TEST_P(TranslatedWindowsTest, TheDialogOfTheFeatureCaseShowsItsTextsWhole) {
    EXPECT_THAT(complaintsAboutDialog(L"Workbench.exe", kCaseDialog), IsEmpty());
}

TEST_P(TranslatedWindowsTest, TheExpressionBuilderShowsItsTextsWhole) {
    EXPECT_THAT(complaintsAboutDialog(L"Norvex.dll", IDD_EXPRESSION), IsEmpty());
}

TEST_P(TranslatedWindowsTest, TheTechnologyEditorShowsItsTextsWhole) {
    auto technologies = service();
    const auto technology = technologies.create(norvex::cycle::kPeckDrilling, "");
    std::optional<std::vector<std::string>> complaints;
    const Meanwhile meanwhile(
        {closing([&](HWND dialog) { complaints = complaintsAbout(dialog, dpiOfScreen()); })});
    technologies.edit(*technology, 0);
    ASSERT_TRUE(complaints);
    EXPECT_THAT(*complaints, IsEmpty());
}

/// Everything that the line below the grid may say, with long parts.
std::vector<std::wstring> refusals(const norvex::HostTexts& texts) {
    const std::string longest = texts.of("Feed per revolution");
    std::vector<std::wstring> filled;
    for (const char* english :
         {"%1 follows from the other values.", "%1 may have %2 characters at most.",
          "%1 must be a whole number.", "%1 must be a number; '%2' is none.",
          "%1 must be more than %2 and at most %3.", "%1 must be at least %2 and at most %3.",
          "%1 at %2 asks for a spindle speed of %3 1/min.", "The spindle speed fits %1 at %2.",
          "A stepover of %1 is wider than the tool, which has %2.",
          "The table of speeds and feeds has nothing for this material: %1.",
          "The feed of a thread is its pitch: enter the pitch first.",
          "The feed depends on the tool diameter: enter the diameter first.",
          "The spindle speed needs a cutting speed and a diameter.", "The operation needs a name.",
          "This cycle does not cut."}) {
        std::string text = texts.of(english);
        const std::pair<const char*, std::string> parts[] = {
            {"%1", longest}, {"%2", "0.0039 ft/min"}, {"%3", "19685.0394 in/min"}};
        for (const auto& [mark, part] : parts) {
            if (const std::size_t at = text.find(mark); at != std::string::npos) text.replace(at, 2, part);
        }
        filled.push_back(toWide(text));
    }
    std::string choices;
    for (const char* choice : norvex::choices())
        choices += (choices.empty() ? "" : ", ") + std::string(choice);
    std::string list = texts.of("%1 is one of %2.");
    list.replace(list.find("%1"), 2, texts.of("Coolant"));
    list.replace(list.find("%2"), 2, choices);
    filled.push_back(toWide(list));
    return filled;
}

TEST_P(TranslatedWindowsTest, TheTechnologyEditorHasRoomForWhatItRefusesAlsoInItsSmallestSize) {
    auto technologies = service();
    const auto technology = technologies.create(norvex::cycle::kPeckDrilling, "");
    const auto lines = refusals({NorvexLibrary::folder(), GetParam()});
    std::vector<std::string> complaints{"the editor was not seen"};
    const Meanwhile meanwhile({closing([&](HWND dialog) {
        complaints.clear();
        MINMAXINFO limits{};
        SendMessageW(dialog, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
        SetWindowPos(dialog, nullptr, 0, 0, limits.ptMinTrackSize.x, limits.ptMinTrackSize.y,
                     SWP_NOMOVE | SWP_NOZORDER);
        for (const std::wstring& line : lines) {
            SetDlgItemTextW(dialog, IDC_TECHNOLOGY_MESSAGE, line.c_str());
            for (std::string& each : complaintsAbout(dialog, dpiOfScreen()))
                complaints.push_back(std::move(each));
        }
    })});
    technologies.edit(*technology, 0);
    EXPECT_THAT(complaints, IsEmpty());
}

TEST_P(TranslatedWindowsTest, TheStepWizardShowsItsTextsWhole) {
    auto technologies = service();
    const auto technology = technologies.create(norvex::cycle::kPeckDrilling, "");
    std::vector<std::string> complaints{"the wizard was not seen"};
    const Meanwhile meanwhile({closing([&](HWND dialog) {
        complaints = complaintsAbout(dialog, dpiOfScreen());
        for (int page = 1; page < 3; ++page) {
            SendMessageW(dialog, WM_COMMAND, IDC_TECHNOLOGY_NEXT, 0);
            for (std::string& each : complaintsAbout(dialog, dpiOfScreen()))
                complaints.push_back(std::move(each));
        }
    })});
    technologies.runStepWizard(*technology, 0);
    EXPECT_THAT(complaints, IsEmpty());
}

std::string nameOfCase(const testing::TestParamInfo<std::int16_t>& language) {
    return std::string(norvex::languageOf(language.param).name);
}

INSTANTIATE_TEST_SUITE_P(Languages, TranslatedWindowsTest, testing::Values<std::int16_t>(1, 2, 3, 4, 5, 6, 7),
                         nameOfCase);

}  // namespace
}  // namespace pellmark
