#pragma once

#include <memory>

#include "knowledge/KnowledgeBaseService.h"
#include "refhost/store/KnowledgeBase.h"

namespace norvex {

/// All materials with their classes.
class SqliteMaterialStore : public pellmark::MaterialStore {
  public:
    explicit SqliteMaterialStore(std::shared_ptr<KnowledgeBase> base);
    std::shared_ptr<pellmark::RecordSet> materials() override;

  private:
    std::shared_ptr<KnowledgeBase> base_;
};

}  // namespace norvex
