#include "contract/KnowledgeBaseContract.h"
#include "contract/SqliteContractSubject.h"
#include "support/FakeKnowledgeBase.h"

namespace pellmark::test {

namespace {

class FakeContractSubject : public ContractSubject {
  public:
    KnowledgeBaseService& service() override { return fake_; }
    KnowledgeBaseService& secondService() override { return fake_; }
    void restrictUser(bool mayEdit, bool mayAdd, bool mayDelete) override {
        fake_.allowed.clear();
        if (mayEdit) fake_.allowed.insert(PermissionEdit);
        if (mayAdd) fake_.allowed.insert(PermissionAdd);
        if (mayDelete) fake_.allowed.insert(PermissionDelete);
    }
    void protectProcess(const std::string& processId) override { fake_.protect(processId); }
    std::string addMaterialClass(const std::string& name) override { return fake_.addMaterialClass(name); }
    std::string addMaterial(const std::string& name, const std::string& classId) override {
        return fake_.addMaterial(name, classId);
    }
    void addNvxFeatureType(std::int16_t id, const std::string& name) override {
        fake_.addNvxFeatureType(id, name);
    }
    std::string addPartType(const std::string& name) override { return fake_.addPartType(name); }
    std::string addFeatureType(const std::string& name, std::int16_t nvxFeatureType,
                               const std::string& partTypeId, std::int16_t unitCode) override {
        return fake_.addFeatureType(name, nvxFeatureType, partTypeId, unitCode);
    }
    std::string addKey(const std::string& featureTypeId, const std::string& name) override {
        return fake_.addKey(featureTypeId, name);
    }
    std::string addKeyValue(const std::string& keyId, const std::string& name) override {
        return fake_.addValue(keyId, name);
    }
    void setTechnologySource(const std::string& stepId, TechnologySource source) override {
        fake_.setTechnologySource(stepId, source);
    }
    void addCuttingCycle(std::int16_t id, const std::string& name, int type) override {
        fake_.addCuttingCycle(id, name, type);
    }

  private:
    FakeKnowledgeBase fake_;
};

}  // namespace

std::vector<ContractFactory> contractFactories() {
    return {{"Fake", [] { return std::make_unique<FakeContractSubject>(); }},
            {"Sqlite", [] { return std::make_unique<SqliteContractSubject>(); }}};
}

}  // namespace pellmark::test
