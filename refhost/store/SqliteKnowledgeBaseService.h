#pragma once

#include <memory>
#include <string>

#include "knowledge/KnowledgeBaseService.h"
#include "refhost/store/KnowledgeBase.h"
#include "refhost/store/SqliteFeatureCaseStore.h"
#include "refhost/store/SqliteMaterialStore.h"
#include "refhost/store/SqliteProcessStore.h"
#include "refhost/store/SqliteStepStore.h"
#include "refhost/store/SqliteUserRights.h"

namespace norvex {

/// The knowledge base of one file. Several services may share a file or even an open KnowledgeBase.
class SqliteKnowledgeBaseService : public pellmark::KnowledgeBaseService {
  public:
    explicit SqliteKnowledgeBaseService(std::shared_ptr<KnowledgeBase> base);
    /// Opens the file as KnowledgeBase::open does.
    explicit SqliteKnowledgeBaseService(const std::string& path, const OpenOptions& options = {});

    bool isConnected() override { return true; }
    SqliteUserRights& userRights() override { return userRights_; }
    SqliteProcessStore& processStore() override { return processStore_; }
    SqliteFeatureCaseStore& featureCaseStore() override { return featureCaseStore_; }
    SqliteMaterialStore& materialStore() override { return materialStore_; }
    SqliteStepStore& stepStore() override { return stepStore_; }

    const std::shared_ptr<KnowledgeBase>& base() const { return base_; }

  private:
    std::shared_ptr<KnowledgeBase> base_;
    SqliteUserRights userRights_;
    SqliteProcessStore processStore_;
    SqliteFeatureCaseStore featureCaseStore_;
    SqliteMaterialStore materialStore_;
    SqliteStepStore stepStore_;
};

}  // namespace norvex
