#pragma once

#include <span>
#include <string>

#include "controls/grid/ColumnTable.h"
#include "controls/grid/Grid.h"
#include "knowledge/KnowledgeBaseService.h"
#include "util/UserInterface.h"

namespace pellmark {

/// The columns of the process list: of every process, or of those of a feature case.
std::span<const ColumnSpec> processColumns(bool ofFeatureCase);

bool isStored(ProcessStore& store, const std::string& processId);

/// Shows what the knowledge base holds of a process in the process's row, in a new one where it has none. The
/// row goes where the process does not exist any more.
void showStoredProcess(Grid& grid, ProcessStore& store, const std::string& processId);

/// Says that somebody else has deleted the process that was to be worked on.
void tellProcessIsGone(const UserInterface& person);

}  // namespace pellmark
