#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "knowledge/RecordSet.h"
#include "knowledge/Records.h"
#include "knowledge/RowQuery.h"

/// The host's machining knowledge base as the component needs it. Three implementations obey one contract
/// suite: the in-memory fake, the SQLite store and the adapter over the host's automation objects. Every
/// call stands by itself; failures are thrown as Error with a text that a person can act on.
///
/// Rules that hold throughout: an id is GUID text in any case, with or without braces, and comes back in
/// registry form. An id that is not a GUID is unknown like any other. A question about an unknown id has an
/// empty answer; a change that names an unknown record throws errors::kNotFound, unless stated otherwise.
/// "By name" ignores the case of ASCII letters, equal names by id. A text longer than its field (limit::)
/// throws errors::kValueTooLong and changes nothing.
namespace pellmark {

/// Operation codes of the rights check.
enum Permission : int { PermissionEdit = 1, PermissionAdd = 2, PermissionDelete = 3 };

class UserRights {
  public:
    virtual ~UserRights() = default;
    /// May the current user perform the operation? A code other than the three is never allowed.
    virtual bool may(int operation) = 0;
};

class ProcessStore {
  public:
    virtual ~ProcessStore() = default;

    /// Fields `_Id`, `_Name`, `_Unit`, `_Rule`, `_Description`. "" gives all processes by name; an id gives
    /// that one, or no record when it is unknown.
    virtual std::shared_ptr<RecordSet> processes(const std::string& id) = 0;
    /// The processes that a query finds, in its order; the fields are those of processes(""). Null where the
    /// store cannot search or sort by itself. An answer may end early, see RecordSet::hasMore.
    virtual std::shared_ptr<RecordSet> findProcesses(const RowQuery& query) = 0;
    /// Throws errors::kNotFound when the process does not exist.
    virtual ProcessRecord process(const std::string& id) = 0;
    /// The current values of many processes in one call, in the order asked; nothing in the place of one
    /// that does not exist.
    virtual std::vector<std::optional<ProcessRecord>> processRecords(const std::vector<std::string>& ids) = 0;
    /// The processes attached to no feature case; at least the field `_Id`.
    virtual std::shared_ptr<RecordSet> orphanProcesses() = 0;
    /// Returns the new id; record.Id is not read.
    virtual std::string addProcess(const ProcessRecord& record) = 0;
    /// Writes every field of the process that record.Id names.
    virtual void updateProcess(const ProcessRecord& record) = 0;
    /// False when the knowledge base refuses (protected, or gone already). Takes steps, values, links to
    /// materials and attachments along.
    virtual bool deleteProcess(const std::string& id) = 0;
    /// Attaching twice is harmless.
    virtual void attach(const std::string& processId, const std::string& featureCaseId) = 0;
    /// True also when the process was not attached or an id is unknown; false when the knowledge base
    /// refuses.
    virtual bool detach(const std::string& featureCaseId, const std::string& processId) = 0;
    /// Adding a present material and removing an absent or unknown one are harmless.
    virtual void addMaterial(const std::string& processId, const std::string& materialId) = 0;
    virtual void removeMaterial(const std::string& processId, const std::string& materialId) = 0;
    /// Fields `_Id` (the material's), `_Name`, `_PartMaterialGroupId`; by name.
    virtual std::shared_ptr<RecordSet> materialsOf(const std::string& processId) = 0;
};

class FeatureCaseStore {
  public:
    virtual ~FeatureCaseStore() = default;

    /// Processes attached to feature cases that have any of the description's values, through each such
    /// case; ExactMatch where the case has all of them. Oldest case first, within a case by process name.
    /// The description's process unit and material class narrow the answer in both styles, where they are
    /// given. A process that has materials, but none of the class, is left out; one without materials applies
    /// to every class in style 0, and to none in style 1. Another style throws errors::kInvalidArgument.
    virtual std::vector<pNode> processesOfValues(const FeatureCaseDescription& description, int style) = 0;
    /// The new feature case's id. It has no values yet. Without a known feature type there is no case:
    /// errors::kNotFound.
    virtual std::string createFeatureCase(const FeatureCaseDescription& description) = 0;
    /// Adding a present value is harmless.
    virtual void addValue(const std::string& valueId, const std::string& featureCaseId) = 0;
    /// All feature cases of the type, oldest first; exactMatch where the case's values are exactly those.
    virtual std::vector<FeatureCaseMatch> matches(const std::string& featureTypeId,
                                                  const std::vector<std::string>& valueIds) = 0;

    /// The model behind the filters; each by its usual order.
    /// `_Id` (a small number), `_Name`
    virtual std::shared_ptr<RecordSet> nvxFeatureTypes() = 0;
    /// `_Id`, `_Name`
    virtual std::shared_ptr<RecordSet> partTypes() = 0;
    /// `_Id`, `_Name`
    virtual std::shared_ptr<RecordSet> materialClasses() = 0;
    /// `_Id`, `_Name` of the feature types of a Norvex feature type, a part type and a unit; -1 and ""
    /// leave that part open. A feature type that names no part type or no unit fits every one.
    virtual std::shared_ptr<RecordSet> featureTypes(std::int16_t nvxFeatureType,
                                                    const std::string& partTypeId, std::int16_t unitCode) = 0;
    /// `_Id`, `_Name`
    virtual std::shared_ptr<RecordSet> keys(const std::string& featureTypeId) = 0;
    /// `_Id`, `_Name`, `_KeyId` of all values of all keys of the feature type, key by key.
    virtual std::shared_ptr<RecordSet> values(const std::string& featureTypeId) = 0;
};

class MaterialStore {
  public:
    virtual ~MaterialStore() = default;
    /// Fields `_Id`, `_Name`, `_PartMaterialGroupId`; by name.
    virtual std::shared_ptr<RecordSet> materials() = 0;
};

class ProcessStepStore {
  public:
    virtual ~ProcessStepStore() = default;
    /// Fields `_Id`, `_ProcessId`, `_Priority`, `_Name`, `_NVXCuttingCycleID`, by priority, equal
    /// priorities in the order of their adding; "" gives none.
    virtual std::shared_ptr<RecordSet> steps(const std::string& processId) = 0;
    /// Throws errors::kNotFound when the step does not exist.
    virtual ProcessStepRecord step(const std::string& id) = 0;
    /// Returns the new id; record.id is not read.
    virtual std::string addStep(const ProcessStepRecord& record) = 0;
    /// Writes every field of the step that record.id names, its process included.
    virtual void updateStep(const ProcessStepRecord& record) = 0;
    /// Takes the step's values along. False when the step is gone already.
    virtual bool deleteStep(const std::string& id) = 0;
    /// One more than the highest priority of the process's steps, 1 when it has none; 32767 at most.
    virtual std::int16_t nextPriority(const std::string& processId) = 0;
    /// Fields `_CLFileCode`, `_Value`, by code.
    virtual std::shared_ptr<RecordSet> values(const std::string& stepId) = 0;
    /// A second value with the same code throws errors::kNotUnique.
    virtual void addValue(const StepValueRecord& record) = 0;
    /// The step must have a value with that code: errors::kNotFound.
    virtual void updateValue(const StepValueRecord& record) = 0;
    /// Updates the value with that code, or adds it when the step has none. The step must exist.
    virtual void setValue(const StepValueRecord& record) = 0;
    /// Removing a value that the step does not have, or from an unknown step, is harmless.
    virtual void deleteValue(const std::string& stepId, std::int32_t clFileCode) = 0;
    /// Where the technology of each step comes from, in the order asked. One call for as many steps as a grid
    /// shows; a step that is unknown, or of which nothing is known, counts as TechnologySource::DbStep.
    virtual std::vector<TechnologySource> technologySources(const std::vector<std::string>& stepIds) = 0;
    /// `_Id` (a small number), `_Name` of the cutting cycles of the given types, in the order of the types,
    /// within a type by id.
    virtual std::shared_ptr<RecordSet> cuttingCycles(const std::vector<int>& types) = 0;
};

class KnowledgeBaseService {
  public:
    virtual ~KnowledgeBaseService() = default;
    virtual bool isConnected() = 0;
    virtual UserRights& userRights() = 0;
    virtual ProcessStore& processStore() = 0;
    virtual FeatureCaseStore& featureCaseStore() = 0;
    virtual MaterialStore& materialStore() = 0;
    virtual ProcessStepStore& stepStore() = 0;
};

}  // namespace pellmark
