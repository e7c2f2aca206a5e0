#pragma once

#include "knowledge/KnowledgeBaseService.h"
#include "support/FakeTables.h"

namespace pellmark::test {

/// Processes, their materials and the list of all materials over the fake's tables.
class FakeProcessStore : public ProcessStore, public MaterialStore {
  public:
    explicit FakeProcessStore(FakeTables& tables) : tables_(tables) {}

    std::shared_ptr<RecordSet> processes(const std::string& id) override;
    std::shared_ptr<RecordSet> findProcesses(const RowQuery& query) override;
    ProcessRecord process(const std::string& id) override;
    std::vector<std::optional<ProcessRecord>> processRecords(const std::vector<std::string>& ids) override;
    std::shared_ptr<RecordSet> orphanProcesses() override;
    std::string addProcess(const ProcessRecord& record) override;
    void updateProcess(const ProcessRecord& record) override;
    bool deleteProcess(const std::string& id) override;
    void attach(const std::string& processId, const std::string& featureCaseId) override;
    bool detach(const std::string& featureCaseId, const std::string& processId) override;
    void addMaterial(const std::string& processId, const std::string& materialId) override;
    void removeMaterial(const std::string& processId, const std::string& materialId) override;
    std::shared_ptr<RecordSet> materialsOf(const std::string& processId) override;
    std::shared_ptr<RecordSet> materials() override;

  private:
    std::vector<const FakeTables::Process*> byName() const;
    std::shared_ptr<RecordSet> materialRecords(const std::set<std::string>* only) const;

    FakeTables& tables_;
};

}  // namespace pellmark::test
