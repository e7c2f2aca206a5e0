#pragma once

#include <memory>

#include "refhost/store/KnowledgeBase.h"

namespace norvex {

/// Fills an empty knowledge base with users and sample machining data. Call inside a write transaction.
void writeSeedData(const std::shared_ptr<KnowledgeBase>& base);

}  // namespace norvex
