#pragma once

#include "knowledge/KnowledgeBaseService.h"
#include "support/FakeTables.h"

namespace pellmark::test {

/// Process steps, their values and the cutting cycles over the fake's tables.
class FakeStepStore : public ProcessStepStore {
  public:
    explicit FakeStepStore(FakeTables& tables) : tables_(tables) {}

    std::shared_ptr<RecordSet> steps(const std::string& processId) override;
    ProcessStepRecord step(const std::string& id) override;
    std::string addStep(const ProcessStepRecord& record) override;
    void updateStep(const ProcessStepRecord& record) override;
    bool deleteStep(const std::string& id) override;
    std::int16_t nextPriority(const std::string& processId) override;
    std::shared_ptr<RecordSet> values(const std::string& stepId) override;
    void addValue(const StepValueRecord& record) override;
    void updateValue(const StepValueRecord& record) override;
    void setValue(const StepValueRecord& record) override;
    void deleteValue(const std::string& stepId, std::int32_t clFileCode) override;
    std::vector<TechnologySource> technologySources(const std::vector<std::string>& stepIds) override;
    std::shared_ptr<RecordSet> cuttingCycles(const std::vector<int>& types) override;

  private:
    FakeTables& tables_;
};

}  // namespace pellmark::test
