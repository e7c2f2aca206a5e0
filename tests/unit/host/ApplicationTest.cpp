#include "host/Application.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/FrmMain.h"
#include "support/PortsHarness.h"

namespace pellmark::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

/// Every public method as one call without arguments that matter.
using Call = std::function<void(Application&, const std::shared_ptr<HostApplication>&)>;
const std::vector<std::pair<std::string, Call>> kCalls{
    {"ShowWindowProcessesView", [](auto& app, auto& host) { app.ShowWindowProcessesView(host, ""); }},
    {"ShowWindowProcessCaseView", [](auto& app, auto& host) { app.ShowWindowProcessCaseView(host, {}); }},
    {"OpenProcess", [](auto& app, auto& host) { EXPECT_EQ(app.OpenProcess(host, 9, {}), ""); }},
    {"EditFeatureCase", [](auto& app, auto& host) { app.EditFeatureCase(host, 9, {}); }},
    {"OpenFeatureCase", [](auto& app, auto& host) { EXPECT_EQ(app.OpenFeatureCase(host, 9, {}), ""); }},
    {"EditProcess", [](auto& app, auto& host) { app.EditProcess(host, 9, {}); }},
};

class ApplicationTest : public testing::Test, protected PortsHarness {
  protected:
    std::vector<std::string> windows() { return desktop.windows(); }
    std::unique_ptr<Application> app = std::make_unique<Application>(platform());
};

TEST_F(ApplicationTest, WithoutAHostObjectNothingHappens) {
    for (const auto& [name, call] : kCalls)
        call(*app, nullptr);
    EXPECT_THAT(windows(), IsEmpty());
    EXPECT_THAT(library.translationCalls, IsEmpty());
}

TEST_F(ApplicationTest, WithoutAConnectionEveryMethodSaysSoAndEndsEmpty) {
    base.connected = false;
    library.translations["Not connected to database"] = "Keine Verbindung";
    for (const auto& [name, call] : kCalls) {
        SCOPED_TRACE(name);
        desktop.expectMessage("Keine Verbindung");
        call(*app, host);
        EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Critical);
        EXPECT_THAT(desktop.messages().back().title, testing::StartsWith("Norvex - Process "));
    }
    EXPECT_THAT(windows(), IsEmpty());
}

TEST_F(ApplicationTest, AMissingHostLibraryCountsAsNotConnected) {
    library.missing = true;
    app = std::make_unique<Application>(platform());
    ASSERT_NE(app->missingKnowledgeBase(), "");
    desktop.expectMessage("Not connected to database\n\n" + app->missingKnowledgeBase());
    app->ShowWindowProcessesView(host, "");
    EXPECT_THAT(trace.lines(), Contains(HasSubstr("Services::createKnowledgeBase: error 26105")));
    app->Dispose();
    EXPECT_EQ(app->missingKnowledgeBase(), "");
}

TEST_F(ApplicationTest, TheTranslationServiceIsBoundAtEachCall) {
    host->language = 5;
    app->ShowWindowProcessesView(host, "");
    EXPECT_THAT(library.translationCalls,
                ElementsAre("CallingApplication Norvex - Process Manager",
                            "ResourceFile C:\\Pellmark\\Pellmark.csv", "OutputLanguage 5"));
}

TEST_F(ApplicationTest, TheServiceHearsTheTitleThatTheComponentHasByThen) {
    library.translations["Norvex - Process Manager"] = "Prozesse";
    for (int call = 0; call < 2; ++call)
        app->ShowWindowProcessesView(host, "");
    EXPECT_EQ(library.translationCalls.front(), "CallingApplication Norvex - Process Manager");
    EXPECT_THAT(library.translationCalls, Contains("CallingApplication Prozesse"));
}

TEST_F(ApplicationTest, TheProcessesViewIsEmbeddedInTheHostsWindow) {
    const std::string id = base.addProcess("b");
    base.addProcess("a");
    app->ShowWindowProcessesView(host, id);
    EXPECT_THAT(windows(), ElementsAre("create FrmMain", "embed FrmMain 7"));
    auto& main = static_cast<FrmMain&>(*desktop.loaded("FrmMain"));
    EXPECT_EQ(main.processes()->SelectedProcessID(), id);
    EXPECT_FALSE(main.CmdOK.visible());
    EXPECT_EQ(main.CmdCancel.caption(), "Exit");
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(ApplicationTest, ASecondCallOnlySwitchesTheViewAndReselects) {
    app->ShowWindowProcessesView(host, "");
    app->ShowWindowProcessesView(host, "");
    EXPECT_THAT(windows(), ElementsAre("create FrmMain", "embed FrmMain 7"));
}

TEST_F(ApplicationTest, ASecondCallThatNamesNoProcessKeepsTheSelection) {
    base.addProcess("a");
    const std::string id = base.addProcess("b");
    app->ShowWindowProcessesView(host, id);
    app->ShowWindowProcessesView(host, "");
    const Grid& grid = static_cast<FrmMain&>(*desktop.loaded("FrmMain")).VSFGAllProcesses;
    EXPECT_EQ(grid.rowData(grid.row()), id);
}

TEST_F(ApplicationTest, AnotherHostWindowGetsTheFormAgain) {
    app->ShowWindowProcessesView(host, "");
    host->window = 8;
    app->ShowWindowProcessesView(host, "");
    EXPECT_THAT(windows(), ElementsAre("create FrmMain", "embed FrmMain 7", "embed FrmMain 8"));
}

TEST_F(ApplicationTest, DisposeReleasesEverythingAndLaterCallsDoNothing) {
    app->ShowWindowProcessesView(host, "");
    EXPECT_EQ(library.alive, 4);
    app->Dispose();
    EXPECT_EQ(library.alive, 0);
    EXPECT_THAT(windows(), Contains("destroy FrmMain"));
    EXPECT_EQ(host.use_count(), 1);
    app->ShowWindowProcessesView(host, "");
    app->Dispose();
    EXPECT_THAT(trace.lines(), Contains(StartsWith("Application::ShowWindowProcessesView: error 5")));
}

TEST_F(ApplicationTest, DestroyingItIsDisposingOfIt) {
    app->ShowWindowProcessesView(host, "");
    app.reset();
    EXPECT_EQ(library.alive, 0);
    EXPECT_THAT(windows(), Contains("destroy FrmMain"));
}

}  // namespace
}  // namespace pellmark::test
