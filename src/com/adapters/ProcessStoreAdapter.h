#pragma once

#include "com/adapters/StoreAdapter.h"
#include "knowledge/KnowledgeBaseService.h"

namespace pellmark {

/// The host's processes, reached by name.
class ProcessStoreAdapter : public ProcessStore, private StoreAdapter {
  public:
    explicit ProcessStoreAdapter(std::shared_ptr<DispatchObject> service)
        : StoreAdapter(std::move(service), "ProcessStore") {}

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

  private:
    std::optional<ProcessRecord> processIfPresent(const std::string& id);
};

}  // namespace pellmark
