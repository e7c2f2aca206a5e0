#pragma once

#include <memory>
#include <string>

#include "contract/KnowledgeBaseContract.h"
#include "refhost/store/ModelWriter.h"
#include "refhost/store/SqliteKnowledgeBaseService.h"
#include "support/TemporaryFolder.h"

namespace pellmark::test {

/// A new knowledge base file without sample data. Adapters over the store derive from it and put their own
/// services in front of path().
class SqliteContractSubject : public ContractSubject {
  public:
    SqliteContractSubject();

    const std::string& path() const { return path_; }

    KnowledgeBaseService& service() override { return first_; }
    KnowledgeBaseService& secondService() override;
    void restrictUser(bool mayEdit, bool mayAdd, bool mayDelete) override;
    void protectProcess(const std::string& processId) override { model_.protectProcess(processId); }
    std::string addMaterialClass(const std::string& name) override { return model_.addMaterialClass(name); }
    std::string addMaterial(const std::string& name, const std::string& classId) override {
        return model_.addMaterial(name, classId);
    }
    void addNvxFeatureType(std::int16_t id, const std::string& name) override {
        model_.addNvxFeatureType(id, name);
    }
    std::string addPartType(const std::string& name) override { return model_.addPartType(name); }
    std::string addFeatureType(const std::string& name, std::int16_t nvxFeatureType,
                               const std::string& partTypeId, std::int16_t unitCode) override {
        return model_.addFeatureType(name, nvxFeatureType, partTypeId, unitCode);
    }
    std::string addKey(const std::string& featureTypeId, const std::string& name) override {
        return model_.addKey(featureTypeId, name);
    }
    std::string addKeyValue(const std::string& keyId, const std::string& name) override {
        return model_.addValue(keyId, name);
    }
    void setTechnologySource(const std::string& stepId, TechnologySource source) override {
        first_.stepStore().setTechnologySource(stepId, source);
    }
    void addCuttingCycle(std::int16_t id, const std::string& name, int type) override {
        model_.addCuttingCycle(id, name, type);
    }

  private:
    TemporaryFolder folder_;
    std::string path_;
    norvex::SqliteKnowledgeBaseService first_;
    std::unique_ptr<norvex::SqliteKnowledgeBaseService> second_;
    norvex::ModelWriter model_;
};

}  // namespace pellmark::test
