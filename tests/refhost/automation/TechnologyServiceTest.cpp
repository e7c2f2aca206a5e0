#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "com/adapters/ExpectError.h"
#include "com/adapters/KnowledgeBaseAdapter.h"
#include "com/adapters/TechnologyServiceAdapter.h"
#include "refhost/automation/NorvexLibrary.h"
#include "refhost/automation/Resources.h"
#include "refhost/technology/Codes.h"
#include "refhost/technology/Cycles.h"
#include "support/TemporaryFolder.h"

namespace pellmark {
namespace {

using test::expectError;
using test::NorvexLibrary;
namespace code = norvex::code;
namespace cycle = norvex::cycle;

/// What a person does in a modal window of this program: a timer calls it until it says that it is done. One
/// at a time.
class Person {
  public:
    using Act = std::function<bool(HWND)>;

    explicit Person(Act act) {
        act_ = std::move(act);
        timer_ = SetTimer(nullptr, 0, 20, &Person::tick);
    }
    Person(const Person&) = delete;
    Person& operator=(const Person&) = delete;
    ~Person() { stop(); }

  private:
    static void stop() {
        KillTimer(nullptr, timer_);
        act_ = nullptr;
    }
    static BOOL CALLBACK findDialog(HWND window, LPARAM found) {
        if (GetDlgItem(window, IDC_TECHNOLOGY_GRID) == nullptr || IsWindowVisible(window) == FALSE)
            return TRUE;
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    }
    static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD) {
        HWND dialog = nullptr;
        EnumThreadWindows(GetCurrentThreadId(), &findDialog, reinterpret_cast<LPARAM>(&dialog));
        if (dialog == nullptr || !act_) return;
        const Act act = std::exchange(act_, nullptr);  // what it does may run messages, too
        if (!act(dialog)) act_ = act;
    }

    static inline Act act_;
    static inline UINT_PTR timer_ = 0;
};

HWND gridOf(HWND dialog) {
    return GetDlgItem(dialog, IDC_TECHNOLOGY_GRID);
}

std::string cell(HWND dialog, int row, int column) {
    wchar_t text[256] = {};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = 256;
    SendMessageW(gridOf(dialog), LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return fromWide(text);
}

int rowOf(HWND dialog, const std::string& caption) {
    for (int row = 0; row < ListView_GetItemCount(gridOf(dialog)); ++row) {
        if (cell(dialog, row, 0) == caption) return row;
    }
    ADD_FAILURE() << "no row " << caption;
    return 0;
}

HWND inputOf(HWND dialog) {
    const HWND input = FindWindowExW(gridOf(dialog), nullptr, L"Edit", nullptr);
    return input;
}

/// Types a value into a row of the grid, beginning with its first character, and presses a key behind it.
void type(HWND dialog, const std::string& caption, const std::wstring& text, WPARAM lastKey = VK_RETURN) {
    const HWND grid = gridOf(dialog);
    SetFocus(grid);
    ListView_SetItemState(grid, -1, 0, LVIS_SELECTED);
    ListView_SetItemState(grid, rowOf(dialog, caption), LVIS_SELECTED | LVIS_FOCUSED,
                          LVIS_SELECTED | LVIS_FOCUSED);
    SendMessageW(grid, WM_CHAR, text.front(), 1);
    const HWND input = inputOf(dialog);
    ASSERT_NE(input, nullptr);
    for (const wchar_t character : text.substr(1))
        SendMessageW(input, WM_CHAR, static_cast<WPARAM>(character), 1);
    SendMessageW(input, WM_KEYDOWN, lastKey, 1);
}

std::string messageOf(HWND dialog) {
    wchar_t text[512] = {};
    GetDlgItemTextW(dialog, IDC_TECHNOLOGY_MESSAGE, text, 512);
    return fromWide(text);
}

void press(HWND dialog, int button) {
    SendMessageW(GetDlgItem(dialog, button), BM_CLICK, 0, 0);
}

class TechnologyServiceTest : public testing::Test {
  protected:
    TechnologyServiceTest() {
        NorvexLibrary::useKnowledgeBase(folder_.file("technology.db"));
        process_ = base_->processStore().addProcess({"", "A", unit::kInch, "", ""});
    }
    ~TechnologyServiceTest() override { SetEnvironmentVariableW(L"NORVEX_UNIT", nullptr); }

    DispatchObject create(const wchar_t* progId) { return {library_.create(progId), fromWide(progId)}; }
    TechnologySource sourceOf(const std::string& step) {
        return base_->stepStore().technologySources({step}).at(0);
    }
    /// Stores a step of that technology, as the component does, and answers what it counts as.
    TechnologySource storedSource(TechnologyObject& technology) {
        const std::string step = base_->stepStore().addStep({"", "S", process_, 1, 602});
        service_->stored(step, technology);
        return sourceOf(step);
    }

    test::TemporaryFolder folder_;
    NorvexLibrary library_;
    std::unique_ptr<KnowledgeBaseAdapter> base_ = [this] {
        NorvexLibrary::useKnowledgeBase(folder_.file("technology.db"));
        return std::make_unique<KnowledgeBaseAdapter>(create(L"Norvex.KnowledgeBaseService"));
    }();
    std::unique_ptr<TechnologyServiceAdapter> service_ =
        std::make_unique<TechnologyServiceAdapter>(create(L"Norvex.TechnologyService"));
    std::string process_;
};

TEST_F(TechnologyServiceTest, ATechnologyHasTheDefaultsOfItsCycleInTheUnitOfItsProcess) {
    const auto inch = service_->create(cycle::kDrilling, process_);
    EXPECT_EQ(inch->cuttingCycleId(), cycle::kDrilling);
    EXPECT_EQ(inch->operationName(), "Drilling");
    EXPECT_EQ(inch->parameterOf(code::kCuttingSpeed)->value(), Variant(262.0));
    const auto metric = service_->create(cycle::kDrilling, "");
    EXPECT_EQ(metric->parameterOf(code::kCuttingSpeed)->value(), Variant(80.0));
    EXPECT_EQ(metric->parameterOf(code::kCuttingSpeed)->kind(), TechnologyParameter::kKindInput);
    EXPECT_EQ(metric->parameterOf(code::kCuttingSpeed)->state(), 0);
    EXPECT_EQ(metric->parameter(1).kind(), TechnologyParameter::kKindKept);
    EXPECT_EQ(metric->parameterOf(1), nullptr);
}

TEST_F(TechnologyServiceTest, AnUnknownProcessIsAnError) {
    expectError(errors::kNotFound, "The process no longer exists",
                [&] { service_->create(602, "{0BADF00D-0000-4000-8000-000000000001}"); });
}

TEST_F(TechnologyServiceTest, WhatIsHandedOverIsKeptInItsType) {
    const auto technology = service_->create(602, "");
    technology->parameterOf(code::kToolDiameter)->setValue(std::string("6.80"));
    EXPECT_EQ(technology->parameterOf(code::kToolDiameter)->value(), Variant("6.80"));
    technology->parameterOf(code::kToolDiameter)->setValue(std::string("6.8"));
    EXPECT_EQ(technology->parameterOf(code::kToolDiameter)->value(), Variant(6.8));
    technology->parameterOf(code::kToolDescription)->setValue(std::string("12"));
    EXPECT_EQ(technology->parameterOf(code::kToolDescription)->value(), Variant("12"));
    technology->parameterOf(code::kCoolant)->setValue(Variant());
    EXPECT_EQ(technology->parameterOf(code::kCoolant)->value(), Variant());
    EXPECT_EQ(technology->parameterOf(code::kToolDiameter)->state(), 1);
}

TEST_F(TechnologyServiceTest, AnArgumentThatIsNoTechnologyIsRefused) {
    auto service = create(L"Norvex.TechnologyService");
    auto stranger = create(L"Norvex.LanguageConverter");
    expectError(errors::kHostInterface, "Edit does not take", [&] {
        service.call("Edit", {stranger.pointer(), 0});
    });
    expectError(errors::kHostInterface, "Edit does not take", [&] { service.call("Edit", {5, 0}); });
    expectError(errors::kHostInterface, "WriteFile does not take", [&] {
        service.call("WriteFile", {"x.prc", 5});
    });
}

TEST_F(TechnologyServiceTest, AProcessFileComesBackAsItWasWritten) {
    TechnologyService::OperationList operations;
    for (const char* diameter : {"6.8", "0.50"}) {
        operations.push_back(service_->create(602, process_));
        operations.back()->setOperationName(std::string("Drill ") + diameter);
        operations.back()->parameterOf(code::kToolDiameter)->setValue(std::string(diameter));
        operations.back()->parameterOf(code::kToolDescription)->setValue(std::string("a \"b\"\nc"));
    }
    const std::string path = folder_.file("a.prc");
    ASSERT_TRUE(service_->write(path, operations));
    std::vector<std::int32_t> told;
    auto again = service_->read(path, [&](std::int32_t done, std::int32_t all) {
        told.push_back(done * 10 + all);
        return true;
    });
    ASSERT_EQ(again.size(), 2U);
    EXPECT_EQ(told, (std::vector<std::int32_t>{12, 22}));
    EXPECT_EQ(again[1]->operationName(), "Drill 0.50");
    EXPECT_EQ(again[1]->count(), 2) << "defaults are no values of the step";
    EXPECT_EQ(again[1]->parameterOf(code::kToolDiameter)->value(), Variant("0.50"));
    EXPECT_EQ(again[0]->parameterOf(code::kToolDescription)->value(), Variant("a \"b\"\nc"));
    EXPECT_EQ(storedSource(*again[0]), TechnologySource::File);
    const std::string copy = folder_.file("b.prc");
    ASSERT_TRUE(service_->write(copy, again));
    EXPECT_EQ(test::readFile(copy), test::readFile(path));
}

TEST_F(TechnologyServiceTest, ADamagedFileIsAnErrorWithItsLine) {
    const std::string path = folder_.file("a.prc");
    test::writeFile(path,
                    "Norvex process file, version 1\noperations 1\noperation 602 metric \"A\"\n1001 = x\n");
    expectError(errors::kInvalidArgument, "Line 4: ", [&] { service_->read(path, nullptr); });
    test::writeFile(path, "Norvex process file, version 9\n");
    expectError(errors::kInvalidArgument, "newer program", [&] { service_->read(path, nullptr); });
    expectError(errors::kFileNotFound, "cannot be opened",
                [&] { service_->read(folder_.file("none.prc"), nullptr); });
}

TEST_F(TechnologyServiceTest, AFileThatCannotBeWrittenIsFalse) {
    EXPECT_FALSE(service_->write(folder_.file("missing") + "\\a.prc", {}));
    EXPECT_FALSE(service_->write("Z:\\nul\\a.prc", {}));
}

TEST_F(TechnologyServiceTest, TheFolderOfProcessFilesIsMade) {
    const std::string folder = folder_.file("files");
    SetEnvironmentVariableW(L"NORVEX_PROCESS_FOLDER", toWide(folder + "\\").c_str());
    EXPECT_EQ(service_->defaultFolder(), folder);
    EXPECT_NE(GetFileAttributesW(toWide(folder).c_str()), INVALID_FILE_ATTRIBUTES);
    SetEnvironmentVariableW(L"NORVEX_PROCESS_FOLDER", nullptr);
    EXPECT_TRUE(service_->defaultFolder().ends_with("\\Documents\\Norvex"));
}

TEST_F(TechnologyServiceTest, TheEditorShowsTheDefaultsAndOkTakesThemOver) {
    const auto technology = service_->create(602, process_);
    const Person person([](HWND dialog) {
        EXPECT_EQ(cell(dialog, rowOf(dialog, "Cutting speed"), 1), "262");
        EXPECT_EQ(cell(dialog, rowOf(dialog, "Cutting speed"), 2), "ft/min");
        EXPECT_EQ(cell(dialog, rowOf(dialog, "Cutting speed"), 3), "Default");
        press(dialog, IDOK);
        return true;
    });
    EXPECT_EQ(service_->edit(*technology, 0), TechnologyService::kAccepted);
    EXPECT_EQ(storedSource(*technology), TechnologySource::DbDefaults);
}

TEST_F(TechnologyServiceTest, WhatIsTypedInTheEditorIsTheUsers) {
    const auto technology = service_->create(602, "");
    const Person person([](HWND dialog) {
        type(dialog, "Cutting speed", L"95,5");
        EXPECT_EQ(cell(dialog, rowOf(dialog, "Cutting speed"), 1), "95.5");
        EXPECT_EQ(ListView_GetNextItem(gridOf(dialog), -1, LVNI_SELECTED),
                  rowOf(dialog, "Cutting speed") + 1);
        press(dialog, IDOK);
        return true;
    });
    EXPECT_EQ(service_->edit(*technology, 0), TechnologyService::kAccepted);
    EXPECT_EQ(technology->parameterOf(code::kCuttingSpeed)->value(), Variant(95.5));
    EXPECT_EQ(technology->parameterOf(code::kCuttingSpeed)->state(), TechnologyParameter::kStateSet);
    EXPECT_EQ(storedSource(*technology), TechnologySource::User);
}

TEST_F(TechnologyServiceTest, AnImpossibleValueIsRefusedWithTheReasonAndTheEditingGoesOn) {
    const auto technology = service_->create(602, "");
    const Person person([](HWND dialog) {
        type(dialog, "Tool diameter", L"-3");
        EXPECT_EQ(messageOf(dialog), "Tool diameter must be more than 0 and at most 500 mm.");
        const HWND input = inputOf(dialog);
        EXPECT_NE(input, nullptr);
        SendMessageW(input, WM_KEYDOWN, VK_ESCAPE, 1);
        EXPECT_EQ(inputOf(dialog), nullptr);
        EXPECT_EQ(cell(dialog, rowOf(dialog, "Tool diameter"), 1), "10");
        EXPECT_NE(IsWindow(dialog), FALSE) << "Escape ends the editing of the cell alone";
        press(dialog, IDCANCEL);
        return true;
    });
    EXPECT_NE(service_->edit(*technology, 0), TechnologyService::kAccepted);
}

TEST_F(TechnologyServiceTest, CancelLeavesTheTechnologyAsItWas) {
    const auto technology = service_->create(602, "");
    const Person person([](HWND dialog) {
        type(dialog, "Cutting speed", L"95");
        press(dialog, IDC_TECHNOLOGY_COMPUTE);
        press(dialog, IDCANCEL);
        return true;
    });
    EXPECT_NE(service_->edit(*technology, 0), TechnologyService::kAccepted);
    EXPECT_EQ(technology->parameterOf(code::kCuttingSpeed)->value(), Variant(80.0));
    EXPECT_EQ(storedSource(*technology), TechnologySource::DbDefaults);
}

TEST_F(TechnologyServiceTest, TheTableAndTheFormulaMakeTheStepTheirs) {
    const auto fromTable = service_->create(602, "");
    {
        const Person person([](HWND dialog) {
            press(dialog, IDC_TECHNOLOGY_TABLE);
            press(dialog, IDOK);
            return true;
        });
        EXPECT_EQ(service_->edit(*fromTable, 0), TechnologyService::kAccepted);
    }
    EXPECT_EQ(fromTable->parameterOf(code::kCuttingSpeed)->value(), Variant(90.0));
    EXPECT_EQ(storedSource(*fromTable), TechnologySource::SfdbCalculated);
    const auto computed = service_->create(602, "");
    const Person person([](HWND dialog) {
        press(dialog, IDC_TECHNOLOGY_COMPUTE);
        press(dialog, IDOK);
        return true;
    });
    EXPECT_EQ(service_->edit(*computed, 0), TechnologyService::kAccepted);
    EXPECT_EQ(computed->parameterOf(code::kSpindleSpeed)->value(), Variant(2550.0));
    EXPECT_EQ(storedSource(*computed), TechnologySource::CalcoraComputed);
}

TEST_F(TechnologyServiceTest, TheWizardCanBeFinishedFromItsFirstPage) {
    const auto technology = service_->create(602, "");
    const Person person([](HWND dialog) {
        type(dialog, "Tool diameter", L"6.8");
        press(dialog, IDOK);
        return true;
    });
    EXPECT_TRUE(service_->runStepWizard(*technology, 0));
    EXPECT_EQ(technology->parameterOf(code::kToolDiameter)->value(), Variant(6.8));
}

TEST_F(TechnologyServiceTest, AWizardThatIsFinishedEarlyStopsAtThePageThatIsNotSound) {
    const auto technology = service_->create(602, "");
    technology->parameterOf(code::kCuttingSpeed)->setValue(-5.0);
    std::string title;
    std::string reason;
    const Person person([&](HWND dialog) {
        press(dialog, IDOK);
        EXPECT_NE(IsWindow(dialog), FALSE);
        wchar_t text[128] = {};
        GetWindowTextW(dialog, text, 128);
        title = fromWide(text);
        reason = messageOf(dialog);
        press(dialog, IDCANCEL);
        return true;
    });
    EXPECT_FALSE(service_->runStepWizard(*technology, 0));
    EXPECT_EQ(title, "Step wizard - Drilling (2 / 3: Speeds and feeds)");
    EXPECT_THAT(reason, testing::StartsWith("Cutting speed must be"));
}

TEST_F(TechnologyServiceTest, TheWizardGoesThroughItsPagesAndItsValuesAreTheSteps) {
    const auto technology = service_->create(602, "");
    technology->parameterOf(code::kToolDiameter)->setValue(6.8);
    std::vector<std::string> titles;
    const Person person([&](HWND dialog) {
        for (int page = 0; page < 3; ++page) {
            wchar_t title[128] = {};
            GetWindowTextW(dialog, title, 128);
            titles.push_back(fromWide(title));
            if (page == 1) type(dialog, "Cutting speed", L"95");
            if (page < 2) press(dialog, IDC_TECHNOLOGY_NEXT);
        }
        press(dialog, IDC_TECHNOLOGY_BACK);
        EXPECT_EQ(cell(dialog, rowOf(dialog, "Cutting speed"), 1), "95");
        press(dialog, IDC_TECHNOLOGY_NEXT);
        press(dialog, IDOK);
        return true;
    });
    EXPECT_TRUE(service_->runStepWizard(*technology, 0));
    EXPECT_EQ(titles,
              (std::vector<std::string>{"Step wizard - Drilling (1 / 3: Tool)",
                                        "Step wizard - Drilling (2 / 3: Speeds and feeds)",
                                        "Step wizard - Drilling (3 / 3: Depths, retract and coolant)"}));
    EXPECT_EQ(technology->parameterOf(code::kCuttingSpeed)->value(), Variant(95.0));
    EXPECT_EQ(storedSource(*technology), TechnologySource::DbStep);
}

TEST_F(TechnologyServiceTest, TheServiceAnswersWhileItsEditorIsOpen) {
    const auto technology = service_->create(602, "");
    const Person person([&](HWND dialog) {
        EXPECT_EQ(service_->create(801, "")->operationName(), "Tapping");
        EXPECT_EQ(base_->processStore().process(process_).Name, "A");
        EXPECT_EQ(technology->parameterOf(code::kCuttingSpeed)->value(), Variant(80.0));
        press(dialog, IDOK);
        return true;
    });
    EXPECT_EQ(service_->edit(*technology, 0), TechnologyService::kAccepted);
}

TEST_F(TechnologyServiceTest, TheEditorStandsOverItsOwnerAndKeepsItDisabled) {
    const HWND owner = CreateWindowExW(0, L"STATIC", L"owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 20, 1000,
                                       800, nullptr, nullptr, nullptr, nullptr);
    const auto technology = service_->create(602, "");
    const Person person([owner](HWND dialog) {
        EXPECT_EQ(GetWindow(dialog, GW_OWNER), owner);
        EXPECT_FALSE(IsWindowEnabled(owner));
        RECT over{};
        RECT under{};
        GetWindowRect(dialog, &over);
        GetWindowRect(owner, &under);
        EXPECT_NEAR(over.left + over.right, under.left + under.right, 2);
        EXPECT_NEAR(over.top + over.bottom, under.top + under.bottom, 2);
        press(dialog, IDCANCEL);
        return true;
    });
    service_->edit(*technology, reinterpret_cast<WindowHandle>(owner));
    EXPECT_TRUE(IsWindowEnabled(owner));
    DestroyWindow(owner);
}

TEST_F(TechnologyServiceTest, AStepThatIsGoneCannotBeRememberedAsStored) {
    const auto technology = service_->create(602, "");
    expectError(errors::kNotFound, "The process step no longer exists",
                [&] { service_->stored("{0BADF00D-0000-4000-8000-000000000001}", *technology); });
}

}  // namespace
}  // namespace pellmark
