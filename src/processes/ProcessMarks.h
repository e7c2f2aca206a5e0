#pragma once

#include <vector>

#include "controls/grid/Grid.h"
#include "knowledge/KnowledgeBaseService.h"
#include "util/Texts.h"

namespace pellmark {

/// Names of exact matches in green, of partial ones in italics; results that are not listed are passed over.
/// A note at the name says what it means.
void markMatches(Grid& grid, const std::vector<pNode>& results, Texts& texts);

/// Names of processes attached to no feature case in red, which a note explains, all others in black.
void markOrphans(Grid& grid, ProcessStore& store, Texts& texts);

}  // namespace pellmark
