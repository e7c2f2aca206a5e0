#pragma once

#include <set>
#include <string>
#include <vector>

#include "knowledge/KnowledgeBaseService.h"
#include "support/FakeFeatureCaseStore.h"
#include "support/FakeProcessStore.h"
#include "support/FakeStepStore.h"
#include "support/FakeTables.h"

namespace pellmark::test {

/// The knowledge base in memory that every controller test runs on. It starts empty, obeys the same contract
/// as the real ones, notes each call and fails where a test orders it to.
///
///     FakeKnowledgeBase base;
///     const auto id = base.addProcess("Drill", unit::kInch);
///     base.throwOn("attach");
///     EXPECT_THAT(base.calls(), Contains("deleteProcess " + id));
class FakeKnowledgeBase : public KnowledgeBaseService, private UserRights {
  public:
    FakeKnowledgeBase();
    FakeKnowledgeBase(const FakeKnowledgeBase&) = delete;
    FakeKnowledgeBase& operator=(const FakeKnowledgeBase&) = delete;

    bool isConnected() override { return connected; }
    UserRights& userRights() override { return *this; }
    ProcessStore& processStore() override { return processStore_; }
    FeatureCaseStore& featureCaseStore() override { return featureCaseStore_; }
    MaterialStore& materialStore() override { return processStore_; }
    ProcessStepStore& stepStore() override { return stepStore_; }

    // --- what a test sets --------------------------------------------------------------------------------
    bool connected = true;
    std::set<int> allowed{PermissionEdit, PermissionAdd, PermissionDelete};
    /// Every later call of the operation throws, after it has been noted. Operations are named as in the
    /// interface, but for the values of steps: "stepValues", "addStepValue", "updateStepValue",
    /// "setStepValue", "deleteStepValue", and "may".
    void throwOn(const std::string& operation, std::int32_t number = errors::kKnowledgeBase,
                 const std::string& description = "The knowledge base failed on purpose.");
    void stopThrowing() { tables_.failures.clear(); }
    /// deleteProcess, detach and deleteStep answer false for this id, addStep "" for a process of this id.
    void refuse(const std::string& id) { tables_.refused.insert(id); }

    // --- what a test reads -------------------------------------------------------------------------------
    /// "deleteProcess {id}", "attach {process} {case}", in order; the fillers below are not noted.
    const std::vector<std::string>& calls() const { return tables_.calls; }
    /// The calls of one operation, arguments included.
    std::vector<std::string> callsOf(const std::string& operation) const;
    void forgetCalls() { tables_.calls.clear(); }
    /// What is stored, for looking behind the interface.
    FakeTables& tables() { return tables_; }

    // --- fillers: each returns the new id, in registry form ----------------------------------------------
    std::string addProcess(const std::string& name, std::int16_t unitCode = unit::kMetric,
                           const std::string& rule = {}, const std::string& description = {});
    void protect(const std::string& processId);
    std::string addStep(const std::string& processId, const std::string& name, std::int16_t priority,
                        std::int16_t cuttingCycleId = 0);
    /// From now on technologySources answers this for the step.
    void setTechnologySource(const std::string& stepId, TechnologySource source) {
        tables_.requireStep(stepId).source = source;
    }
    std::string addFeatureType(const std::string& name, std::int16_t nvxFeatureType = -1,
                               const std::string& partTypeId = {}, std::int16_t unitCode = unit::kNone);
    std::string addKey(const std::string& featureTypeId, const std::string& name);
    std::string addValue(const std::string& keyId, const std::string& name);
    /// A feature case with these values and processes.
    std::string addFeatureCase(const std::string& featureTypeId, const std::vector<std::string>& valueIds,
                               const std::vector<std::string>& processIds = {});
    std::string addMaterialClass(const std::string& name);
    std::string addMaterial(const std::string& name, const std::string& classId);
    std::string addPartType(const std::string& name);
    void addNvxFeatureType(std::int16_t id, const std::string& name);
    void addCuttingCycle(std::int16_t id, const std::string& name, int type);

  private:
    bool may(int operation) override;

    FakeTables tables_;
    FakeProcessStore processStore_;
    FakeFeatureCaseStore featureCaseStore_;
    FakeStepStore stepStore_;
};

}  // namespace pellmark::test
