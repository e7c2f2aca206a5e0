#pragma once

#include <memory>

#include "knowledge/KnowledgeBaseService.h"
#include "refhost/store/KnowledgeBase.h"
#include "refhost/store/ProcessOrders.h"

namespace norvex {

/// Processes with their attachments and materials.
class SqliteProcessStore : public pellmark::ProcessStore {
  public:
    explicit SqliteProcessStore(std::shared_ptr<KnowledgeBase> base);

    std::shared_ptr<pellmark::RecordSet> processes(const std::string& id) override;
    std::shared_ptr<pellmark::RecordSet> findProcesses(const pellmark::RowQuery& query) override;
    pellmark::ProcessRecord process(const std::string& id) override;
    std::vector<std::optional<pellmark::ProcessRecord>> processRecords(
        const std::vector<std::string>& ids) override;
    std::shared_ptr<pellmark::RecordSet> orphanProcesses() override;
    std::string addProcess(const pellmark::ProcessRecord& record) override;
    void updateProcess(const pellmark::ProcessRecord& record) override;
    bool deleteProcess(const std::string& id) override;
    void attach(const std::string& processId, const std::string& featureCaseId) override;
    bool detach(const std::string& featureCaseId, const std::string& processId) override;
    void addMaterial(const std::string& processId, const std::string& materialId) override;
    void removeMaterial(const std::string& processId, const std::string& materialId) override;
    std::shared_ptr<pellmark::RecordSet> materialsOf(const std::string& processId) override;

  private:
    Connection& connection() { return base_->connection(); }

    std::shared_ptr<KnowledgeBase> base_;
    std::shared_ptr<ProcessOrders> orders_ = std::make_shared<ProcessOrders>();
};

}  // namespace norvex
