#pragma once

#include <cstddef>

#include "refhost/store/SqliteKnowledgeBaseService.h"
#include "support/Measure.h"

namespace bench {

/// What the line above the list costs: from a typed text to the texts of the first screen.
void findAndSort(Table& table, norvex::SqliteKnowledgeBaseService& service, std::size_t count);

}  // namespace bench
