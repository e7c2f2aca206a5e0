#include "refhost/store/SqliteKnowledgeBaseService.h"

#include <utility>

namespace norvex {

SqliteKnowledgeBaseService::SqliteKnowledgeBaseService(std::shared_ptr<KnowledgeBase> base)
    : base_(std::move(base)),
      userRights_(base_),
      processStore_(base_),
      featureCaseStore_(base_),
      materialStore_(base_),
      stepStore_(base_) {}

SqliteKnowledgeBaseService::SqliteKnowledgeBaseService(const std::string& path, const OpenOptions& options)
    : SqliteKnowledgeBaseService(KnowledgeBase::open(path, options)) {}

}  // namespace norvex
