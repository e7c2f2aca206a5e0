#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <tuple>

#include "host/FrmMain.h"
#include "processes/FrmAddEditProcess.h"
#include "processes/FrmAddExistingProcess.h"
#include "processes/FrmEditProcessMaterials.h"
#include "refhost/texts/DelimitedTable.h"
#include "refhost/texts/Languages.h"
#include "steps/FrmAddEditProcessTechStep.h"
#include "support/PortsHarness.h"
#include "support/win32/Person.h"
#include "support/win32/TextRoom.h"
#include "util/FrmFormatColumns.h"
#include "util/FrmProgress.h"
#include "win32/Scale.h"
#include "win32/WideText.h"
#include "win32/forms/Win32Desktop.h"

namespace pellmark::test {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

/// The component's table of texts, which the build puts beside the tests.
std::string componentTexts() {
    wchar_t path[MAX_PATH]{};
    ::GetModuleFileNameW(nullptr, path, MAX_PATH);
    std::wstring folder(path);
    folder.resize(folder.rfind(L'\\'));
    std::ifstream file(fromWide(folder) + "\\Pellmark.csv", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A host's window that nobody sees, with a client area of a size in twips.
class HiddenHost {
  public:
    HiddenHost(Size client, int dpi)
        : window_(::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_CLIPCHILDREN, 0, 0,
                                    Scale(dpi).pixels(client.width), Scale(dpi).pixels(client.height),
                                    nullptr, nullptr, nullptr, nullptr)) {}
    ~HiddenHost() { ::DestroyWindow(window_); }
    HiddenHost(const HiddenHost&) = delete;
    HiddenHost& operator=(const HiddenHost&) = delete;
    WindowHandle handle() const { return reinterpret_cast<WindowHandle>(window_); }

  private:
    HWND window_;
};

/// The forms of the component in one language and at one resolution, over a knowledge base that has a little
/// of everything.
class TranslatedFormsTest : public testing::TestWithParam<std::tuple<std::int16_t, int>>,
                            public PortsHarness {
  protected:
    TranslatedFormsTest() {
        windows_.overrideDpi(dpi());
        const auto table = norvex::parseDelimited(componentTexts(), ';');
        const auto name = norvex::languageOf(std::get<0>(GetParam())).name;
        const auto& heading = table.at(0);
        const auto column =
            static_cast<std::size_t>(std::find(heading.begin(), heading.end(), name) - heading.begin());
        for (const auto& line : table)
            library.translations[line.front()] = line.at(column);
        services_.host.set(host);
        services_.configureTexts(*host, "Norvex - Process Manager");
        process_ = base.addProcess("M10 blind hole");
        base.addCuttingCycle(602, "Drilling", 6);
    }

    int dpi() const { return std::get<1>(GetParam()); }
    std::vector<std::string> complaintsAbout(const Form& form) const {
        return test::complaintsAbout(reinterpret_cast<HWND>(form.handle()), dpi());
    }
    /// As it opens on the screen that there is, as small as a person can make it, and as large.
    void expectRoom(Form& form) {
        const auto window = [&form] { return reinterpret_cast<HWND>(form.handle()); };
        const Meanwhile meanwhile({[&] {
                                       return form.isLoaded() && ::IsWindowVisible(window()) &&
                                              ::GetActiveWindow() == window();
                                   },
                                   [&] {
                                       EXPECT_THAT(complaintsAbout(form), IsEmpty());
                                       if (form.isSizable()) expectRoomInEverySize(form);
                                       form.unload();
                                       return true;
                                   }});
        form.showModal({});
        EXPECT_TRUE(meanwhile.isDone());
    }
    void expectRoomInEverySize(const Form& form) const {
        const auto window = reinterpret_cast<HWND>(form.handle());
        ::SetWindowPos(window, nullptr, 0, 0, 1, 1, SWP_NOMOVE | SWP_NOZORDER);
        EXPECT_THAT(complaintsAbout(form), IsEmpty()) << "at its smallest";
        RECT screen{};
        ::SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
        ::SetWindowPos(window, nullptr, screen.left, screen.top, screen.right - screen.left,
                       screen.bottom - screen.top, SWP_NOZORDER);
        EXPECT_THAT(complaintsAbout(form), IsEmpty()) << "as large as the screen";
    }
    void expectRoomIn(FRView view, Size client) {
        const HiddenHost area(client, dpi());
        FrmMain main(services_.forViews());
        main.SetView(view);
        main.embed(area.handle());
        if (cProcess* list = main.processes()) list->RefreshList("");
        Person::pump();
        EXPECT_THAT(complaintsAbout(main), IsEmpty());
        for (Grid* grid : {&main.VSFGAllProcesses, &main.VSFGProcessCaseResults, &main.VSFGProcessStep}) {
            KeyPress find{'F', false, true};
            grid->keyPressed.raise(find);
        }
        Person::pump();
        EXPECT_THAT(complaintsAbout(main), IsEmpty()) << "while something is looked for";
        main.unload();
    }

    Win32Desktop windows_{::GetModuleHandleW(nullptr), operations};
    Services services_{platformOn(windows_)};
    std::string process_;
};

constexpr Size kUsual{14400, 9000};
constexpr Size kSmallest{9600, 7200};
/// In pixels: the smallest screen that anybody uses, and a fine large one.
constexpr Size kScreens[] = {{640, 480}, {3840, 2160}};

TEST_P(TranslatedFormsTest, TheProcessesViewShowsItsTextsWhole) {
    expectRoomIn(FRView::FRProcesses, kUsual);
    expectRoomIn(FRView::FRProcesses, kSmallest);
}

TEST_P(TranslatedFormsTest, TheProcessCaseViewShowsItsTextsWhole) {
    expectRoomIn(FRView::FRProcesscase, kUsual);
    expectRoomIn(FRView::FRProcesscase, kSmallest);
}

TEST_P(TranslatedFormsTest, BothViewsShowTheirTextsWholeOnTheSmallestAndTheLargestScreen) {
    for (const Size& screen : kScreens) {
        const Scale scale(dpi());
        const Size client{scale.twips(screen.width), scale.twips(screen.height)};
        SCOPED_TRACE(std::to_string(screen.width) + " pixels wide");
        expectRoomIn(FRView::FRProcesses, client);
        expectRoomIn(FRView::FRProcesscase, client);
    }
}

TEST_P(TranslatedFormsTest, TheProcessDialogShowsItsTextsWhole) {
    FrmAddEditProcess dialog(services_.person, base, services_.settings, *host, nullptr, process_, nullptr);
    expectRoom(dialog);
}

TEST_P(TranslatedFormsTest, TheMembersDialogShowsItsTextsWhole) {
    FrmMain main(services_.forViews());
    main.SetView(FRView::FRProcesscase);
    FrmAddExistingProcess dialog(services_.person, services_.forViews().steps.idle, base,
                                 main.caseView()->featureCase, main.VSFGProcessCaseResults,
                                 FrmAddExistingProcess::kNoUnit);
    expectRoom(dialog);
}

TEST_P(TranslatedFormsTest, TheMaterialsDialogShowsItsTextsWhole) {
    FrmEditProcessMaterials dialog(services_.person, base, process_);
    expectRoom(dialog);
}

TEST_P(TranslatedFormsTest, TheStepDialogShowsItsTextsWhole) {
    frmAddEditProcessTechStep dialog(services_.forViews().steps, process_);
    expectRoom(dialog);
}

TEST_P(TranslatedFormsTest, TheFieldChooserShowsItsTextsWhole) {
    FrmMain main(services_.forViews());
    main.SetView(FRView::FRProcesses);
    FrmFormatColumns dialog(services_.person, main.VSFGAllProcesses);
    expectRoom(dialog);
}

TEST_P(TranslatedFormsTest, TheProgressWindowShowsItsTextsWhole) {
    for (const char* what :
         {"Process steps are being added", "The rows are being saved", "The rows are being printed"}) {
        FrmProgress progress(services_.person, idle, services_.texts.GetString(what));
        expectRoom(progress);
    }
}

std::string nameOfCase(const testing::TestParamInfo<std::tuple<std::int16_t, int>>& info) {
    const auto [language, dpi] = info.param;
    return std::string(norvex::languageOf(language).name) + "At" + std::to_string(dpi);
}

INSTANTIATE_TEST_SUITE_P(Languages, TranslatedFormsTest,
                         testing::Combine(testing::Values<std::int16_t>(1, 2, 3, 4, 5, 6, 7),
                                          testing::Values(96, 144, 192)),
                         nameOfCase);

/// The measuring itself: a form whose texts are too long for it.
class TextRoomTest : public testing::Test {
  protected:
    RecordingTrace trace_;
    Operations operations_{trace_};
    Win32Desktop windows_{::GetModuleHandleW(nullptr), operations_};
    Form form_{windows_, "FrmNarrow"};
};

TEST_F(TextRoomTest, EveryTextThatIsCutOffIsComplainedAbout) {
    constexpr Size kClient{6000, 4000};
    Label label{form_, "Label", "A label that is far too long for the little room that it has"};
    Button button{form_, "Button", "A button with a long caption"};
    Frame frame{form_, "Frame", "A box whose title is longer than the box is wide"};
    label.place({0, 0, 900, 255}, kClient, {});
    button.place({0, 400, 900, 375}, kClient, {});
    frame.place({0, 900, 900, 900}, kClient, {});
    form_.load();
    EXPECT_THAT(complaintsAbout(reinterpret_cast<HWND>(form_.handle()), 96), SizeIs(3));
}

TEST_F(TextRoomTest, ControlsThatOverlapOrReachOutAreComplainedAbout) {
    constexpr Size kClient{6000, 4000};
    Button first{form_, "First", "1"};
    Button second{form_, "Second", "2"};
    Button third{form_, "Third", "3"};
    first.place({0, 0, 1200, 375}, kClient, {});
    second.place({1185, 0, 1200, 375}, kClient, {});
    third.place({5500, 0, 1200, 375}, kClient, {});
    form_.load();
    EXPECT_THAT(complaintsAbout(reinterpret_cast<HWND>(form_.handle()), 96), SizeIs(2));
}

}  // namespace
}  // namespace pellmark::test
