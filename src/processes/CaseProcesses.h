#pragma once

#include <vector>

#include "knowledge/KnowledgeBaseService.h"

namespace pellmark {

/// The processes of a feature case as they are listed: exact matches first, then the partial ones, each in
/// the order in which the knowledge base found them, and each process once. Name, unit, rule and description
/// are what the store holds now, not what the feature case remembers; a process that is gone meanwhile is
/// left out.
///
/// Asks nothing without values, nor with a list style other than 0 and 1. Throws what the knowledge base
/// throws.
std::vector<pNode> processesOfCase(KnowledgeBaseService& knowledgeBase,
                                   const FeatureCaseDescription& description, int style);

}  // namespace pellmark
