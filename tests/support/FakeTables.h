#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/Error.h"
#include "base/Guid.h"
#include "knowledge/Records.h"

namespace pellmark::test {

/// The tables of the fake knowledge base in the plainest form there is, the log of the calls made on it and
/// the failures that a test has ordered.
struct FakeTables {
    struct Process {
        Guid id;
        ProcessRecord record;
        bool isProtected = false;
        std::set<std::string> materials;  ///< ids in registry form
    };
    struct FeatureCase {
        Guid id;
        FeatureCaseDescription description;
        std::set<std::string> values;
        std::set<std::string> processes;
    };
    struct Step {
        Guid id;
        ProcessStepRecord record;
        std::map<std::int32_t, std::string> values;
        TechnologySource source = TechnologySource::DbStep;
    };
    struct Named {
        std::string id;
        std::string name;
        std::string ownerId;  ///< a material's class, a key's feature type, a value's key
    };
    struct FeatureType {
        std::string id;
        std::string name;
        std::int16_t nvxFeatureType = -1;
        std::string partTypeId;
        std::int16_t unit = unit::kNone;
    };
    struct CuttingCycle {
        int id = 0;
        std::string name;
        int type = 0;
    };

    std::vector<Process> processes;
    std::vector<FeatureCase> featureCases;
    std::vector<Step> steps;
    std::vector<Named> materialClasses, materials, partTypes, keys, values;
    std::vector<Named> nvxFeatureTypes;
    std::vector<FeatureType> featureTypes;
    std::vector<CuttingCycle> cuttingCycles;

    bool findsProcesses = true;  ///< the optional member is there

    /// Told of each call by its operation, before it is carried out: the host's code may do anything then.
    std::function<void(const std::string& operation)> onCall;
    std::vector<std::string> calls;         ///< "attach {…} {…}", in order
    std::map<std::string, Error> failures;  ///< by operation
    std::set<std::string> refused;          ///< ids of processes and steps that deleteX and detach refuse

    /// Ids that count up, so that creation order is id order and a failing test shows readable ids.
    Guid newId();

    /// Notes the call and throws when the test has ordered that operation to fail.
    void called(const std::string& operation, const std::string& first = {}, const std::string& second = {});
    bool refuses(const std::string& id) const;

    Process* findProcess(const std::string& id);
    FeatureCase* findFeatureCase(const std::string& id);
    Step* findStep(const std::string& id);
    Process& requireProcess(const std::string& id);
    FeatureCase& requireFeatureCase(const std::string& id);
    Step& requireStep(const std::string& id);

  private:
    std::uint32_t lastId_ = 0;
};

/// Registry form of an id, or the text as it is when it is no GUID.
std::string canonicalId(const std::string& id);

/// The order of lists by name: ASCII case ignored, then by id.
bool beforeByName(const std::string& leftName, const std::string& leftId, const std::string& rightName,
                  const std::string& rightId);

const FakeTables::Named* findNamed(const std::vector<FakeTables::Named>& list, const std::string& id);

/// As findNamed, but throws Error (not found).
const FakeTables::Named& requireNamed(const std::vector<FakeTables::Named>& list, const std::string& id,
                                      const std::string& what);

[[noreturn]] void throwNotFound(const std::string& what, const std::string& id);

}  // namespace pellmark::test
