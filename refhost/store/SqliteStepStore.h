#pragma once

#include <memory>

#include "knowledge/KnowledgeBaseService.h"
#include "refhost/store/KnowledgeBase.h"

namespace norvex {

/// The technology steps of processes, their values, and the cutting cycles.
class SqliteStepStore : public pellmark::ProcessStepStore {
  public:
    explicit SqliteStepStore(std::shared_ptr<KnowledgeBase> base);

    std::shared_ptr<pellmark::RecordSet> steps(const std::string& processId) override;
    pellmark::ProcessStepRecord step(const std::string& id) override;
    std::string addStep(const pellmark::ProcessStepRecord& record) override;
    void updateStep(const pellmark::ProcessStepRecord& record) override;
    bool deleteStep(const std::string& id) override;
    std::int16_t nextPriority(const std::string& processId) override;
    std::shared_ptr<pellmark::RecordSet> values(const std::string& stepId) override;
    void addValue(const pellmark::StepValueRecord& record) override;
    void updateValue(const pellmark::StepValueRecord& record) override;
    void setValue(const pellmark::StepValueRecord& record) override;
    void deleteValue(const std::string& stepId, std::int32_t clFileCode) override;
    std::vector<pellmark::TechnologySource> technologySources(
        const std::vector<std::string>& stepIds) override;
    /// Remembers where the step's technology comes from; the step must exist.
    void setTechnologySource(const std::string& stepId, pellmark::TechnologySource source);
    std::shared_ptr<pellmark::RecordSet> cuttingCycles(const std::vector<int>& types) override;

  private:
    Connection& connection() { return base_->connection(); }

    std::shared_ptr<KnowledgeBase> base_;
};

}  // namespace norvex
