#pragma once

#include <string>
#include <vector>

#include "featurecases/cFeatureCase.h"
#include "host/ViewServices.h"
#include "processes/cProcess.h"
#include "steps/cProcessSteps.h"

namespace pellmark {

/// The controllers of the list of all processes.
class ProcessesView {
  public:
    ProcessesView(const ViewServices& services, Grid& grid, FindLine& line);

    cProcess processes;
};

/// The controllers of a feature case, wired to each other: the case decides which processes are listed, and
/// the selected process which steps.
class CaseView {
  public:
    /// A grid and the line in which a person finds something in it.
    struct List {
        Grid& grid;
        FindLine& line;
    };
    CaseView(const ViewServices& services, const FeatureCaseControls& filters, const List& processList,
             const List& stepList);

    /// Shows what the host describes. Filters that the description leaves open stay as they are. Where it
    /// names no process, the one that the person went to stays while it is listed; else the first is
    /// proposed.
    void show(const CaseDescription& description);
    /// What is shown and selected now, so that it can be shown again.
    CaseDescription shown();
    /// Shows it in a new view: filters that were open are open again, whatever was chosen in between.
    void showAgain(const CaseDescription& before);

    cFeatureCase featureCase;
    cProcess processes;
    cProcessSteps steps;

  private:
    void caseChanged();
    void processChanged();
    /// The process that the person went to, "" while that is the first of the list: what a list begins with
    /// is its proposal, and another case proposes its own.
    std::string chosenProcess() const;

    Grid& processGrid_;
    std::string wantedProcess_;
    std::string wantedStep_;
    std::vector<Subscription> subscriptions_;
};

}  // namespace pellmark
