#pragma once

#include "controls/grid/Grid.h"
#include "knowledge/KnowledgeBaseService.h"
#include "settings/cQDLExtSettings.h"
#include "util/Texts.h"

namespace pellmark {

/// Colours every row of the step list by where its step's technology comes from, and names that source in the
/// fixed column, which then is as wide as its widest text. Asks the knowledge base once for all rows.
void decorateSteps(Grid& grid, ProcessStepStore& store, cQDLExtSettings& settings, Texts& texts);

}  // namespace pellmark
