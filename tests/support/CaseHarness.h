#pragma once

#include <string>
#include <vector>

#include "controls/list/ListView.h"
#include "featurecases/cFeatureCase.h"
#include "host/FrmMain.h"
#include "processes/cProcess.h"
#include "support/PortsHarness.h"

namespace pellmark::test {

/// A knowledge base of one feature type with two keys, and the views of the main form over it, as the dialogs
/// of the process list find them.
struct CaseHarness : ServicesHarness {
    CaseHarness() {
        services.configureTexts(*host, "Norvex - Process Manager");
        hole = base.addFeatureType("Hole");
        diameter = base.addKey(hole, "Diameter");
        d8 = base.addValue(diameter, "8");
        d10 = base.addValue(diameter, "10");
        m8 = base.addValue(base.addKey(hole, "Thread"), "M8");
        metals = base.addMaterialClass("Metals");
    }

    FrmMain& mainForm() { return main; }
    cProcess& list() { return *main.processes(); }
    cFeatureCase& view() { return main.caseView()->featureCase; }
    /// All processes of the knowledge base.
    void openProcesses() {
        mainForm().SetView(FRView::FRProcesses);
        list().RefreshList("");
        base.forgetCalls();
    }
    /// The processes of a hole with these values.
    void openCase(const std::vector<std::string>& values, std::int16_t unitCode = unit::kMetric) {
        mainForm().SetView(FRView::FRProcesscase);
        view().SetFeatureCaseUnitGui(unitCode);
        view().SetFeatureTypeGui(hole);
        view().SetValuesGui(values);
        base.forgetCalls();
    }
    static std::vector<std::string> shown(const ListView& list) {
        std::vector<std::string> texts;
        for (int i = 0; i < list.count(); ++i)
            texts.push_back(list.text(i, 0));
        return texts;
    }
    /// The calls that change the knowledge base, in order.
    std::vector<std::string> changes() const {
        std::vector<std::string> made;
        for (const std::string& call : base.calls()) {
            for (const char* operation :
                 {"add", "update", "create", "attach", "detach", "remove", "delete"}) {
                if (call.starts_with(operation)) made.push_back(call);
            }
        }
        return made;
    }

    FrmMain main{services.forViews()};
    std::string hole, diameter, d8, d10, m8, metals;
};

}  // namespace pellmark::test
