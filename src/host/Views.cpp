#include "host/Views.h"

namespace pellmark {

ProcessesView::ProcessesView(const ViewServices& services, Grid& grid)
    : processes(services.person, services.knowledgeBase, services.rights, services.settings, services.gridOps,
                services.host, nullptr) {
    processes.Init(grid);
}

CaseView::CaseView(const ViewServices& services, const FeatureCaseControls& filters, Grid& processGrid)
    : featureCase(services.person, services.knowledgeBase, services.creation),
      processes(services.person, services.knowledgeBase, services.rights, services.settings, services.gridOps,
                services.host, &featureCase) {
    featureCase.Init(filters);
    processes.Init(processGrid);
    subscriptions_.push_back(featureCase.caseChanged.subscribe([this] { caseChanged(); }));
}

void CaseView::caseChanged() {
    processes.RefreshList(wantedProcess_.empty() ? processes.SelectedProcessID() : wantedProcess_);
}

void CaseView::show(const CaseDescription& description) {
    wantedProcess_ = description.processGuid;
    featureCase.SetFeatureCaseUnitGui(description.unit);
    featureCase.SetNvxFeatureTypeGui(description.nvxFeatureType);
    featureCase.SetPartTypeGui(description.partTypeId);
    featureCase.SetFeatureTypeGui(description.featureTypeId);
    featureCase.SetPartMaterialClassGui(description.materialClassId);
    featureCase.SetProcessUnitGui(description.processUnit);
    featureCase.SetValuesGui(description.valueIds);
    wantedProcess_.clear();
    if (!description.processGuid.empty()) processes.SetProcessGui(description.processGuid);
}

CaseDescription CaseView::shown() {
    CaseDescription now{featureCase.description(), processes.SelectedProcessID(), ""};
    return now;
}

}  // namespace pellmark
