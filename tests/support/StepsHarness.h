#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "controls/grid/Grid.h"
#include "steps/cProcessSteps.h"
#include "support/ActingIdle.h"
#include "support/FakeKnowledgeBase.h"
#include "support/FakeTechnologyService.h"
#include "support/MemoryFileSystem.h"
#include "support/MemoryRegistry.h"
#include "support/PortableCodePage.h"
#include "support/RecordingClipboard.h"
#include "support/RecordingPrinter.h"
#include "support/RecordingTrace.h"
#include "support/ScriptedDesktop.h"
#include "support/ScriptedFileDialogs.h"
#include "support/ScriptedSystemDialogs.h"

namespace pellmark::test {

/// The step list with the services it works with, faked, beside a process list that is a bare grid. The form
/// has a window, so that dialogs have an owner.
struct StepsHarness {
    static constexpr const char* kSettings =
        "Software\\Orvane\\Norvex\\ExtensionSettings\\GlobalQDLSettings\\";

    StepsHarness() {
        base.addCuttingCycle(602, "Drilling", 6);
        base.addCuttingCycle(402, "Tapping", 4);
        base.addCuttingCycle(1012, "Milling", 101);
        base.addCuttingCycle(432, "Pocket", 43);
        processGrid.setHeadings("Id|Name");
        processGrid.setColKey(0, field::kId);
        processGrid.setColKey(1, field::kName);
        texts.setTitle("The title");
        form.embed(7);
    }

    void set(const std::string& option, const std::string& value) {
        registry.setText(Registry::kCurrentUser, kSettings, option, value);
    }
    /// Shows all processes of the knowledge base in the process list and selects the first.
    void listProcesses() {
        const Grid::RedrawOff off(processGrid);
        processGrid.bind(base.processStore().processes(""));
        gridOps.SetRowDataToIds(processGrid);
        processGrid.select(1, 0);
    }
    /// Another process is selected, and the step list is told.
    void moveTo(int row) {
        processGrid.select(row, 0);
        steps.FollowProcess();
    }
    void start() {
        listProcesses();
        steps.Init(grid);
        base.forgetCalls();
    }
    StepServices services() {
        return {person, rights, base, technology, settings, gridOps, dialogs, fileIO, files, idle};
    }
    std::vector<std::string> column(const char* key) const {
        std::vector<std::string> cells;
        for (int row = 1; row < grid.rows(); ++row)
            cells.push_back(grid.text(row, key));
        return cells;
    }
    std::vector<std::string> names() const { return column(field::kName); }
    /// The values of a step as the knowledge base holds them.
    std::map<std::int32_t, std::string> valuesOf(const std::string& stepId) {
        return base.tables().requireStep(stepId).values;
    }
    /// The calls that change the knowledge base, in order.
    std::vector<std::string> changes() const {
        std::vector<std::string> made;
        for (const std::string& call : base.calls()) {
            for (const char* operation : {"add", "update", "set", "delete"}) {
                if (call.starts_with(operation)) made.push_back(call);
            }
        }
        return made;
    }

    class Help : public HelpLauncher {
      public:
        void openHelp(WindowHandle owner) override { owners.push_back(owner); }
        std::vector<WindowHandle> owners;
    };
    /// Translations that a test sets.
    class Translations : public TranslationService {
      public:
        explicit Translations(const std::map<std::string, std::string>& table) : table_(table) {}
        void setCallingApplication(const std::string&) override {}
        void setResourceFile(const std::string&) override {}
        void setOutputLanguage(std::int16_t) override {}
        std::string GetString(const std::string& english) override {
            const auto at = table_.find(english);
            return at == table_.end() ? english : at->second;
        }

      private:
        const std::map<std::string, std::string>& table_;
    };
    void translate(const std::string& english, const std::string& text) {
        translations[english] = text;
        texts.setService(std::make_unique<Translations>(translations));
    }

    FakeKnowledgeBase base;
    FakeTechnologyService technology;
    MemoryRegistry registry;
    PortableCodePage codePage;
    MemoryFileSystem files;
    ActingIdle idle;
    RecordingTrace trace;
    Operations operations{trace};
    ScriptedDesktop desktop{operations};
    ScriptedFileDialogs fileDialogs;
    ScriptedSystemDialogs systemDialogs;
    RecordingClipboard clipboard;
    RecordingPrinter printer;
    std::map<std::string, std::string> translations;
    Texts texts{operations};
    Help help;
    cRegDefaults layouts{registry, codePage, "Norvex", "Norvex - Process Manager", trace};
    UserInterface person{desktop, texts, help, layouts};
    Rights rights{base, person};
    cFileIO fileIO{files, codePage, idle, trace};
    cQDLExtSettings settings{registry, codePage, files, "Norvex", trace};
    cCommonDialog dialogs{fileDialogs, systemDialogs, printer, files, "Norvex"};
    cVSGridOps gridOps{
        {person, files, fileIO, codePage, dialogs, clipboard, printer, idle, settings, "C:\\Pellmark"}};
    Form form{desktop, "FrmTest"};
    Grid processGrid{form, "VSFGProcesses"};
    Grid grid{form, "VSFGProcessStep"};
    cProcessSteps steps{services(), &processGrid};
};

}  // namespace pellmark::test
