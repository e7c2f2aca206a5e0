#include "host/Views.h"

namespace pellmark {

ProcessesView::ProcessesView(const ViewServices& services, Grid& grid, FindLine& line)
    : processes(services.person, services.knowledgeBase, services.rights, services.settings, services.gridOps,
                services.steps.idle, services.host, nullptr) {
    processes.Init(grid);
    processes.offerFinding(line);
}

CaseView::CaseView(const ViewServices& services, const FeatureCaseControls& filters, const List& processList,
                   const List& stepList)
    : featureCase(services.person, services.knowledgeBase, services.creation),
      processes(services.person, services.knowledgeBase, services.rights, services.settings, services.gridOps,
                services.steps.idle, services.host, &featureCase),
      steps(services.steps, &processList.grid),
      processGrid_(processList.grid) {
    processGrid_.bind(nullptr);  // what the view before this one listed is of another case
    featureCase.Init(filters);
    processes.Init(processList.grid);
    processes.offerFinding(processList.line);
    steps.Init(stepList.grid);
    steps.offerFinding(stepList.line);
    const auto on = [this](Subscription subscription) { subscriptions_.push_back(std::move(subscription)); };
    on(featureCase.caseChanged.subscribe([this] { caseChanged(); }));
    on(processes.currentChanged.subscribe([this] { processChanged(); }));
    on(steps.processStepsStored.subscribe([this](const std::string& processId) {
        ProcessRecord stored;
        stored.Id = processId;
        processes.UpdateFromDb(stored);
    }));
}

void CaseView::caseChanged() {
    processes.RefreshList(wantedProcess_.empty() ? chosenProcess() : wantedProcess_);
}

std::string CaseView::chosenProcess() const {
    const bool isProposed = processGrid_.row() <= processGrid_.fixedRows();
    return isProposed ? std::string() : processes.SelectedProcessID();
}

void CaseView::processChanged() {
    if (wantedStep_.empty()) {
        steps.FollowProcess();
    } else {
        steps.SetProcessStepGui(wantedStep_);
    }
}

void CaseView::show(const CaseDescription& description) {
    // What the host names is selected as the lists are filled, so that nothing is read twice for it.
    wantedProcess_ = description.processGuid;
    wantedStep_ = description.processStepGuid;
    featureCase.SetFeatureCaseUnitGui(description.unit);
    featureCase.SetNvxFeatureTypeGui(description.nvxFeatureType);
    featureCase.SetPartTypeGui(description.partTypeId);
    featureCase.SetFeatureTypeGui(description.featureTypeId);
    featureCase.SetPartMaterialClassGui(description.materialClassId);
    featureCase.SetProcessUnitGui(description.processUnit);
    featureCase.SetValuesGui(description.valueIds);
    wantedProcess_.clear();
    wantedStep_.clear();
    if (!description.processGuid.empty()) processes.SetProcessGui(description.processGuid);
}

void CaseView::showAgain(const CaseDescription& before) {
    featureCase.openFilters();
    show(before);
}

CaseDescription CaseView::shown() {
    CaseDescription now{featureCase.description(), processes.SelectedProcessID(), steps.SelectedStepID()};
    return now;
}

}  // namespace pellmark
