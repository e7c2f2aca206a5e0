#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "refhost/store/SeedModel.h"
#include "refhost/store/SqliteKnowledgeBaseService.h"

namespace norvex::seed {

/// One tool of a step with its cutting data; lengths and speeds in the unit of the process.
struct Tool {
    std::string description;
    std::string material;
    double diameter = 0;
    int teeth = 0;
};

struct Step {
    std::string name;
    std::int16_t cycle = 0;
    Tool tool;
    double speed = 0;
    double feed = 0;  ///< per tooth for tools with teeth, per revolution otherwise
    std::vector<std::pair<std::int32_t, std::string>> more;
    pellmark::TechnologySource source = pellmark::TechnologySource::DbStep;
};

/// One unit system: the names and figures in which the two sets of processes differ.
struct Units;

/// Writes the sample processes, their steps, materials and feature cases through the stores, as a user would.
class SeedProcesses {
  public:
    SeedProcesses(SqliteKnowledgeBaseService& service, const SeedModel& model);
    void write();

  private:
    void writeThreads(const Units& units);
    void writeHoles(const Units& units);
    /// Its steps come from everywhere that steps come from.
    void writeBearingSeat(const Units& units, const Step& rough, const Step& bore);
    void writeSlots(const Units& units);
    void writePockets(const Units& units);
    void writeFaces(const Units& units);
    void writeOrphans();

    std::string add(const Units& units, const std::string& name, const std::string& rule,
                    const std::string& description, const std::vector<Step>& steps,
                    const std::string& classes);
    void addStep(const Units& units, const std::string& processId, std::int16_t priority, const Step& step);
    /// Attaches the process to the feature case of these values, which is made when there is none yet.
    void attach(const std::string& processId, const Units& units, const std::string& featureTypeName,
                const std::vector<std::string>& valueNames);

    SqliteKnowledgeBaseService& service_;
    const SeedModel& model_;
    std::map<std::string, std::string> featureCases_;
};

}  // namespace norvex::seed
