// A host calls back at any moment: from its own members, while a dialog, a message or a menu is open. This
// sweep drives every command once for each such moment and each thing that the host may do then.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/Application.h"
#include "processes/FrmAddEditProcess.h"
#include "processes/FrmAddExistingProcess.h"
#include "processes/FrmEditProcessMaterials.h"
#include "steps/FrmAddEditProcessTechStep.h"
#include "support/ObligingDesktop.h"
#include "support/ObligingDialogs.h"
#include "support/PortsHarness.h"
#include "util/FrmFormatColumns.h"

namespace pellmark::test {
namespace {

/// One component over a small knowledge base, and a host that does one thing at one moment.
class Sweep {
  public:
    Sweep() {
        const std::string hole = base.addFeatureType("Hole", 3);
        const std::string diameter = base.addKey(hole, "Diameter");
        description.featureTypeId = hole;
        description.valueIds = {base.addValue(diameter, "8")};
        other = base.addValue(diameter, "10");
        const std::string steel = base.addMaterial("Steel", base.addMaterialClass("Metals"));
        for (const char* name : {"Drill", "Ream", "Tap"})
            processes.push_back(base.addProcess(name));
        base.addFeatureCase(hole, description.valueIds, {processes[0], processes[1]});
        base.processStore().addMaterial(processes[0], steel);
        base.addNvxFeatureType(3, "Holes");
        const auto point = [this](const std::string& what) { reached(what); };
        base.addCuttingCycle(602, "Drilling", 6);
        for (const char* name : {"Centre", "Drill"})
            steps.push_back(base.addStep(processes[0], name, 1, 602));
        library.technology.setDefaults(
            FakeTechnology(602, "Drilling").add(1101, 90.0, TechnologyParameter::kKindKept));
        library.technology.onCall = point;
        library.technology.editor = [](FakeTechnology&) { return TechnologyService::kAccepted; };
        library.technology.wizard = [](FakeTechnology&) { return true; };
        library.technology.putFile("C:\\p.prc", {FakeTechnology(602, "Tap")});
        files.makeFile("C:\\p.prc", "x");
        host->builtRule = "D > 8";
        const auto click = [](auto button) { return [button](Form& form) { button(form).click(); }; };
        desktop.scripts["FrmAddEditProcess"] = [](Form& form) {
            auto& dialog = static_cast<FrmAddEditProcess&>(form);
            for (Button* button :
                 {&dialog.FrameMaterialClass.CmdAddAllft, &dialog.FrameMaterialClass.Cmdrefresh,
                  &dialog.CmdBuildExpression, &dialog.CmdHelp, &dialog.CmdOk}) {
                if (dialog.isLoaded()) button->click();
            }
        };
        desktop.scripts["FrmAddExistingProcess"] = [](Form& form) {
            auto& dialog = static_cast<FrmAddExistingProcess&>(form);
            for (Button* button : {&dialog.FrameProcesses.Cmdrefresh, &dialog.FrameProcesses.CmdAddAllft,
                                   &dialog.CmdHelp, &dialog.CmdOk}) {
                if (dialog.isLoaded()) button->click();
            }
        };
        desktop.scripts["FrmFormatColumns"] = [](Form& form) {
            auto& dialog = static_cast<FrmFormatColumns&>(form);
            dialog.List.setSelected(0, false);
            for (Button* button : {&dialog.CmdApply, &dialog.CmdHelp, &dialog.CmdOK}) {
                if (dialog.isLoaded()) button->click();
            }
        };
        desktop.scripts["FrmEditProcessMaterials"] =
            click([](Form& form) -> Button& { return static_cast<FrmEditProcessMaterials&>(form).CmdOk; });
        desktop.scripts["FrmMain"] =
            click([](Form& form) -> Button& { return static_cast<FrmMain&>(form).CmdOK; });
        base.tables().onCall = point;
        host->onCall = point;
        library.onCall = point;
        desktop.onShown = point;
        fileDialogs.onShown = point;
        systemDialogs.onShown = point;
    }

    /// A person's gesture, as a window brings it: inside a scope.
    void gesture(const std::function<void(FrmMain&)>& body) {
        const Operations::Scope scope(operations);
        if (auto* form = static_cast<FrmMain*>(desktop.loaded("FrmMain"))) body(*form);
    }
    void showCase() {
        if (app) app->ShowWindowProcessCaseView(host, description);
    }
    void showAll() {
        if (app) app->ShowWindowProcessesView(host, "");
    }
    /// Takes an item of the menu that a right click on the grid opens.
    void take(Grid FrmMain::*grid, const std::string& item) {
        desktop.menuItem = item;
        gesture([grid](FrmMain& form) { (form.*grid).mousePressed.raise({MouseButton::Right, 1, 0, {}}); });
    }
    void press(Grid FrmMain::*grid, int keyCode, bool control = false) {
        gesture([=](FrmMain& form) {
            KeyPress key{keyCode, false, control};
            (form.*grid).keyPressed.raise(key);
        });
    }

    RecordingTrace trace;
    Operations operations{trace};
    FakeKnowledgeBase base;
    MemoryRegistry registry;
    PortableCodePage codePage;
    MemoryFileSystem files;
    NoIdle idle;
    RecordingHelp help;
    ObligingFileDialogs fileDialogs;
    ObligingSystemDialogs systemDialogs;
    RecordingClipboard clipboard;
    RecordingPrinter printer;
    FakeHostLibrary library{base};
    ObligingDesktop desktop{operations};
    std::shared_ptr<FakeHost> host = std::make_shared<FakeHost>();
    CaseDescription description;
    std::string other;
    std::vector<std::string> processes;
    std::vector<std::string> steps;
    std::unique_ptr<Application> app = std::make_unique<Application>(
        Platform{desktop, registry, codePage, files, idle, help, fileDialogs, systemDialogs, clipboard,
                 printer, library, operations, "C:\\Pellmark", "Norvex"});

    /// The moments that have passed, and what the host does at one of them.
    std::vector<std::string> moments;
    std::size_t strikeAt = SIZE_MAX;
    std::function<void(Sweep&)> strike;

  private:
    void reached(const std::string& what) {
        moments.push_back(what);
        if (moments.size() - 1 != strikeAt || !strike) return;
        const auto once = std::exchange(strike, nullptr);
        once(*this);
    }
};

struct Command {
    const char* name;
    std::function<void(Sweep&)> run;
};

const std::vector<Command>& commands() {
    static const std::vector<Command> all{
        {"ShowWindowProcessesView", [](Sweep& s) { s.showAll(); }},
        {"ShowWindowProcessCaseView", [](Sweep& s) { s.showCase(); }},
        {"OpenProcess", [](Sweep& s) { s.app->OpenProcess(s.host, 9, s.description); }},
        {"OpenFeatureCase", [](Sweep& s) { s.app->OpenFeatureCase(s.host, 9, s.description); }},
        {"OpenFeatureCase of a new case",
         [](Sweep& s) {
             s.description.valueIds = {s.other};
             s.app->OpenFeatureCase(s.host, 9, s.description);
         }},
        {"EditFeatureCase", [](Sweep& s) { s.app->EditFeatureCase(s.host, 9, s.description); }},
        {"EditProcess",
         [](Sweep& s) {
             s.description.processGuid = s.processes[0];
             s.app->EditProcess(s.host, 9, s.description);
         }},
        {"OpenProcess over an embedded view",
         [](Sweep& s) {
             s.showCase();
             if (s.app) s.app->OpenProcess(s.host, 9, s.description);
         }},
        {"New...", [](Sweep& s) { s.take(&FrmMain::VSFGProcessCaseResults, "mnuProcessAddNew"); }},
        {"Edit...", [](Sweep& s) { s.take(&FrmMain::VSFGProcessCaseResults, "mnuProcessEdit"); }},
        {"Cancel of a changed process",
         [](Sweep& s) {
             s.desktop.scripts["FrmAddEditProcess"] = [](Form& form) {
                 auto& dialog = static_cast<FrmAddEditProcess&>(form);
                 dialog.TxtName.setText("other");
                 dialog.CmdCancel.click();
             };
             s.take(&FrmMain::VSFGProcessCaseResults, "mnuProcessEdit");
         }},
        {"Process Members...",
         [](Sweep& s) { s.take(&FrmMain::VSFGProcessCaseResults, "mnuProcessEditProcessses"); }},
        {"Delete", [](Sweep& s) { s.take(&FrmMain::VSFGProcessCaseResults, "mnuProcessDelete"); }},
        {"Delete From Feature Case",
         [](Sweep& s) { s.take(&FrmMain::VSFGProcessCaseResults, "mnuProcessDeleteFromfeatureCase"); }},
        {"Save... of the processes",
         [](Sweep& s) {
             s.fileDialogs.answer = "C:\\q.csv";
             s.take(&FrmMain::VSFGProcessCaseResults, "mnuProcessSaveAs");
         }},
        {"Save... of what the code page lacks",
         [](Sweep& s) {
             s.fileDialogs.answer = "C:\\q.csv";
             s.gesture([](FrmMain& form) { form.VSFGProcessCaseResults.setText(1, 2, "\xE5\xB7\xA5"); });
             s.take(&FrmMain::VSFGProcessCaseResults, "mnuProcessSaveAs");
         }},
        {"Save... over a file that is open elsewhere",
         [](Sweep& s) {
             s.fileDialogs.answer = "C:\\p.prc";
             s.files.openElsewhere("C:\\p.prc");
             s.take(&FrmMain::VSFGProcessCaseResults, "mnuProcessSaveAs");
         }},
        {"Print... of the processes",
         [](Sweep& s) { s.take(&FrmMain::VSFGProcessCaseResults, "mnuProcessPrint"); }},
        {"Print... of many processes",
         [](Sweep& s) {
             s.gesture([](FrmMain& form) { form.VSFGProcessCaseResults.setRows(300); });
             s.take(&FrmMain::VSFGProcessCaseResults, "mnuProcessPrint");
         }},
        {"Print... without a printer",
         [](Sweep& s) {
             s.printer.installed = false;
             s.take(&FrmMain::VSFGProcessCaseResults, "mnuProcessPrint");
         }},
        {"Print... of the steps", [](Sweep& s) { s.take(&FrmMain::VSFGProcessStep, "mnuProcessStepPrint"); }},
        {"Properties", [](Sweep& s) { s.take(&FrmMain::VSFGProcessCase, "mnuProperties"); }},
        {"the Delete key", [](Sweep& s) { s.press(&FrmMain::VSFGProcessCaseResults, KeyPress::kDelete); }},
        {"Ctrl+M", [](Sweep& s) { s.press(&FrmMain::VSFGProcessCaseResults, 'M', true); }},
        {"a double click",
         [](Sweep& s) {
             s.gesture([](FrmMain& form) { form.VSFGProcessCaseResults.doubleClicked.raise(1); });
         }},
        {"another row",
         [](Sweep& s) { s.gesture([](FrmMain& form) { form.VSFGProcessCaseResults.select(2, 0); }); }},
        {"a drag",
         [](Sweep& s) {
             s.gesture([](FrmMain& form) {
                 DragData drag;
                 form.VSFGProcessCaseResults.dragStarted.raise(drag);
             });
         }},
        {"another value",
         [](Sweep& s) {
             s.gesture([&s](FrmMain& form) {
                 if (form.VSFGProcessCase.beginEdit(2, 1)) form.VSFGProcessCase.commitEdit(s.other);
             });
         }},
        {"a filter", [](Sweep& s) { s.gesture([](FrmMain& form) { form.CmbFTUnit.choose(1); }); }},
        {"the material filter",
         [](Sweep& s) { s.gesture([](FrmMain& form) { form.CmbPartMaterial.choose(1); }); }},
        {"New step",
         [](Sweep& s) {
             s.desktop.scripts["frmAddEditProcessTechStep"] = [](Form& form) {
                 static_cast<frmAddEditProcessTechStep&>(form).CmdOk.click();
             };
             s.take(&FrmMain::VSFGProcessStep, "mnuProcessStepAddNew");
         }},
        {"Edit step", [](Sweep& s) { s.take(&FrmMain::VSFGProcessStep, "mnuProcessStepEdit"); }},
        {"Delete step", [](Sweep& s) { s.take(&FrmMain::VSFGProcessStep, "mnuProcessStepDelete"); }},
        {"Open a process file",
         [](Sweep& s) {
             s.fileDialogs.answer = "C:\\p.prc";
             s.take(&FrmMain::VSFGProcessStep, "mnuProcessStepOpen");
         }},
        {"Save a process file",
         [](Sweep& s) {
             s.fileDialogs.answer = "C:\\q.prc";
             s.take(&FrmMain::VSFGProcessStep, "mnuProcessStepSave");
         }},
        {"another name of a step",
         [](Sweep& s) {
             s.gesture([](FrmMain& form) {
                 Grid& grid = form.VSFGProcessStep;
                 if (grid.beginEdit(1, grid.colIndex(field::kName))) grid.commitEdit("Spot drill");
             });
         }},
        {"another step",
         [](Sweep& s) { s.gesture([](FrmMain& form) { form.VSFGProcessStep.select(2, 4); }); }},
        {"a drag of steps",
         [](Sweep& s) {
             s.gesture([](FrmMain& form) {
                 DragData drag;
                 form.VSFGProcessStep.dragStarted.raise(drag);
             });
         }},
        {"Ctrl+F and what is typed there",
         [](Sweep& s) {
             s.press(&FrmMain::VSFGProcessCaseResults, 'F', true);
             s.gesture([](FrmMain& form) { form.FindProcessCaseResults.TxtFind.setText("dr"); });
             s.gesture([](FrmMain& form) { form.FindProcessCaseResults.CmdCloseFind.click(); });
         }},
        {"finding in the list of all",
         [](Sweep& s) {
             s.showAll();
             s.press(&FrmMain::VSFGAllProcesses, 'F', true);
             s.gesture([](FrmMain& form) { form.FindAllProcesses.TxtFind.setText("dr"); });
         }},
        {"finding a step",
         [](Sweep& s) {
             s.press(&FrmMain::VSFGProcessStep, 'F', true);
             s.gesture([](FrmMain& form) { form.FindProcessStep.TxtFind.setText("dr"); });
         }},
        {"sorting",
         [](Sweep& s) {
             s.gesture([](FrmMain& form) { form.VSFGProcessCaseResults.headingClicked.raise(2); });
             s.gesture([](FrmMain& form) { form.VSFGProcessStep.headingClicked.raise(4); });
         }},
        {"F5", [](Sweep& s) { s.press(&FrmMain::VSFGProcessCaseResults, KeyPress::kF5); }},
        {"F5 among steps", [](Sweep& s) { s.press(&FrmMain::VSFGProcessStep, KeyPress::kF5); }},
        {"Enter", [](Sweep& s) { s.press(&FrmMain::VSFGProcessCaseResults, KeyPress::kEnter); }},
        {"Insert", [](Sweep& s) { s.press(&FrmMain::VSFGProcessCaseResults, KeyPress::kInsert); }},
        {"Ctrl+C", [](Sweep& s) { s.press(&FrmMain::VSFGProcessCaseResults, 'C', true); }},
        {"Ctrl+C among steps", [](Sweep& s) { s.press(&FrmMain::VSFGProcessStep, 'C', true); }},
        {"Format Columns...",
         [](Sweep& s) { s.take(&FrmMain::VSFGProcessCaseResults, "mnuProcessFormatColumns"); }},
        {"Format Columns... of the steps",
         [](Sweep& s) { s.take(&FrmMain::VSFGProcessStep, "mnuProcessStepFormatColumns"); }},
        {"a resized column",
         [](Sweep& s) {
             s.gesture([](FrmMain& form) { form.VSFGProcessCaseResults.userResizedColumn(2, 1234); });
         }},
        {"a tab", [](Sweep& s) { s.gesture([](FrmMain& form) { form.TabCtrl.click(0); }); }},
        {"Help", [](Sweep& s) { s.gesture([](FrmMain& form) { form.CmdHelp.click(); }); }},
        {"Help without a help window",
         [](Sweep& s) {
             s.help.shows = false;
             s.gesture([](FrmMain& form) { form.CmdHelp.click(); });
         }},
        {"Exit", [](Sweep& s) { s.gesture([](FrmMain& form) { form.CmdCancel.click(); }); }},
        {"Edit... of the list of all",
         [](Sweep& s) {
             s.showAll();
             s.take(&FrmMain::VSFGAllProcesses, "mnuProcessEdit");
         }},
        {"Edit... of a process that somebody else has deleted",
         [](Sweep& s) {
             s.showAll();
             s.base.tables().processes.clear();
             s.take(&FrmMain::VSFGAllProcesses, "mnuProcessEdit");
         }},
        {"Delete in the list of all",
         [](Sweep& s) {
             s.showAll();
             s.take(&FrmMain::VSFGAllProcesses, "mnuProcessDelete");
         }},
    };
    return all;
}

/// What a host may do at any moment. `ends` where the component must be gone when the command has returned.
struct Strike {
    const char* name;
    bool ends;
    std::function<void(Sweep&)> act;
};

const std::vector<Strike>& strikes() {
    static const std::vector<Strike> all{
        {"ShowWindowProcessesView", false, [](Sweep& s) { s.showAll(); }},
        {"ShowWindowProcessCaseView", false, [](Sweep& s) { s.showCase(); }},
        {"OpenProcess", false, [](Sweep& s) { EXPECT_EQ(s.app->OpenProcess(s.host, 9, s.description), ""); }},
        {"EditFeatureCase", false, [](Sweep& s) { s.app->EditFeatureCase(s.host, 9, s.description); }},
        {"OpenFeatureCase", false,
         [](Sweep& s) { EXPECT_EQ(s.app->OpenFeatureCase(s.host, 9, s.description), ""); }},
        {"EditProcess", false, [](Sweep& s) { s.app->EditProcess(s.host, 9, s.description); }},
        {"Dispose", true, [](Sweep& s) { s.app->Dispose(); }},
        {"the last Release", true, [](Sweep& s) { s.operations.whenIdle([&s] { s.app.reset(); }); }},
        {"the end of the host's window", false,
         [](Sweep& s) {
             const std::vector<Form*> forms = s.desktop.allLoaded();
             for (Form* form : forms)
                 form->windowGone();
         }},
    };
    return all;
}

/// The embedded case view stands before the commands of its grids; the calls begin with nothing.
void prepare(Sweep& sweep, std::size_t command) {
    constexpr std::size_t kCalls = 8;
    if (command >= kCalls) sweep.showCase();
    sweep.moments.clear();
}

class ReentryTest : public testing::TestWithParam<std::size_t> {};

TEST_P(ReentryTest, NothingThatAHostDoesMeanwhileBreaksTheCommand) {
    const Command& command = commands()[GetParam()];
    std::vector<std::string> moments;
    {
        Sweep dry;
        prepare(dry, GetParam());
        command.run(dry);
        moments = dry.moments;
    }
    int strikesMade = 0;
    for (std::size_t at = 0; at < moments.size(); ++at) {
        // of the many translations the first and the last stand for all
        if (moments[at] == "GetString" && at != 0 && at + 1 != moments.size() &&
            moments[at - 1] == "GetString")
            continue;
        for (const Strike& strike : strikes()) {
            SCOPED_TRACE(std::string(strike.name) + " at " + moments[at]);
            int aliveAfter = 0;
            {
                Sweep sweep;
                prepare(sweep, GetParam());
                sweep.strikeAt = at;
                sweep.strike = strike.act;
                command.run(sweep);
                EXPECT_FALSE(sweep.strike) << "the moment never came";
                EXPECT_FALSE(sweep.operations.running());
                if (strike.ends) {
                    EXPECT_EQ(sweep.library.alive, 0);
                    EXPECT_TRUE(sweep.desktop.allLoaded().empty());
                }
                sweep.app.reset();
                aliveAfter = sweep.library.alive;
                EXPECT_TRUE(sweep.desktop.allLoaded().empty());
            }
            EXPECT_EQ(aliveAfter, 0);
            ++strikesMade;
        }
    }
    RecordProperty("strikes", strikesMade);
    RecordProperty("moments", static_cast<int>(moments.size()));
}

INSTANTIATE_TEST_SUITE_P(Commands, ReentryTest, testing::Range(std::size_t{0}, commands().size()),
                         [](const auto& each) { return "C" + std::to_string(each.param); });

}  // namespace
}  // namespace pellmark::test
