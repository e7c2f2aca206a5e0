#pragma once

#include <vector>

#include "controls/grid/Grid.h"
#include "knowledge/KnowledgeBaseService.h"

namespace pellmark {

/// Names of exact matches in green, of partial ones in italics; results that are not listed are passed over.
void markMatches(Grid& grid, const std::vector<pNode>& results);

/// Names of processes attached to no feature case in red, all others in black.
void markOrphans(Grid& grid, ProcessStore& store);

}  // namespace pellmark
