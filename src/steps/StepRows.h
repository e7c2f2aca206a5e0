#pragma once

#include <string>

#include "controls/grid/Grid.h"
#include "steps/StepServices.h"

namespace pellmark {

/// Shows what the knowledge base holds of a step in the step's row, where it has one. False when the step
/// does not exist any more; its row has been removed then.
bool showStoredStep(Grid& grid, ProcessStepStore& store, const std::string& id);

/// Says that somebody else has deleted the step that was being worked on.
void tellStepIsGone(const UserInterface& person);

}  // namespace pellmark
