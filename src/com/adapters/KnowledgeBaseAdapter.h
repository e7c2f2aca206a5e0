#pragma once

#include "com/adapters/FeatureCaseStoreAdapter.h"
#include "com/adapters/ProcessStepStoreAdapter.h"
#include "com/adapters/ProcessStoreAdapter.h"
#include "com/adapters/StoreAdapter.h"
#include "knowledge/KnowledgeBaseService.h"

namespace pellmark {

class UserRightsAdapter : public UserRights, private StoreAdapter {
  public:
    explicit UserRightsAdapter(std::shared_ptr<DispatchObject> service)
        : StoreAdapter(std::move(service), "UserRights") {}
    bool may(int operation) override;
};

class MaterialStoreAdapter : public MaterialStore, private StoreAdapter {
  public:
    explicit MaterialStoreAdapter(std::shared_ptr<DispatchObject> service)
        : StoreAdapter(std::move(service), "MaterialStore") {}
    std::shared_ptr<RecordSet> materials() override;
};

/// The host's knowledge base as core sees it, over an automation object whose members are called by name.
class KnowledgeBaseAdapter : public KnowledgeBaseService {
  public:
    explicit KnowledgeBaseAdapter(DispatchObject service);

    bool isConnected() override;
    UserRights& userRights() override { return rights_; }
    ProcessStore& processStore() override { return processes_; }
    FeatureCaseStore& featureCaseStore() override { return featureCases_; }
    MaterialStore& materialStore() override { return materials_; }
    ProcessStepStore& stepStore() override { return steps_; }

  private:
    std::shared_ptr<DispatchObject> service_;
    UserRightsAdapter rights_;
    ProcessStoreAdapter processes_;
    FeatureCaseStoreAdapter featureCases_;
    MaterialStoreAdapter materials_;
    ProcessStepStoreAdapter steps_;
};

}  // namespace pellmark
