#pragma once

#include "featurecases/FeatureCaseCreation.h"
#include "knowledge/KnowledgeBaseService.h"
#include "ports/HostInterfaces.h"
#include "settings/cQDLExtSettings.h"
#include "steps/StepServices.h"
#include "util/Rights.h"
#include "util/UserInterface.h"
#include "util/cVSGridOps.h"

namespace pellmark {

/// What the controllers of a view are made of. The main form hands each the few that it takes; nobody else
/// sees them together. Borrowed from the Application.
struct ViewServices {
    UserInterface person;
    KnowledgeBaseService& knowledgeBase;
    Rights& rights;
    cQDLExtSettings& settings;
    cVSGridOps& gridOps;
    HostApplication& host;
    FeatureCaseCreation& creation;
    StepServices steps;
};

}  // namespace pellmark
