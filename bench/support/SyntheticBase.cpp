#include "support/SyntheticBase.h"

#include <array>
#include <cstring>
#include <filesystem>

#include "base/Guid.h"
#include "knowledge/Records.h"
#include "refhost/store/KnowledgeBase.h"
#include "refhost/store/ModelWriter.h"
#include "refhost/store/ProcessKeys.h"
#include "refhost/store/SqliteFeatureCaseStore.h"
#include "refhost/store/Statement.h"

namespace bench {

namespace {

using norvex::Statement;

/// Spreads consecutive numbers over 64 bits, so that ids and names come in no order.
std::uint64_t scattered(std::uint64_t number) {
    number = (number + 1) * 0x9E3779B97F4A7C15ULL;
    number = (number ^ (number >> 30U)) * 0xBF58476D1CE4E5B9ULL;
    number = (number ^ (number >> 27U)) * 0x94D049BB133111EBULL;
    return number ^ (number >> 31U);
}

pellmark::Guid idOf(std::size_t number) {
    const std::array<std::uint64_t, 2> parts{scattered(number),
                                             scattered(number + (std::uint64_t{1} << 40U))};
    pellmark::Guid id;
    std::memcpy(id.bytes.data(), parts.data(), id.bytes.size());
    return id;
}

void addProcesses(norvex::Connection& connection, std::size_t count) {
    static constexpr std::array kKinds{"Drill",  "Tap",  "Ream", "Face mill",
                                       "Pocket", "Slot", "Bore", "Chamfer"};
    static constexpr std::array kMaterials{"steel", "stainless steel", "cast iron", "aluminium", "titanium"};
    Statement add(connection,
                  "INSERT INTO process (id, name, unit, rule, description) VALUES (?, ?, ?, ?, ?)");
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint64_t random = scattered(i);
        const std::string size = std::to_string(random % 1000 / 10) + "." + std::to_string(random % 10);
        const std::string name = std::string(kKinds[random % kKinds.size()]) + " " + size + " mm in " +
                                 kMaterials[random / 8 % kMaterials.size()] + ", no. " + std::to_string(i);
        const std::string rule = "Diameter >= " + size + " and Depth <= " + std::to_string(random % 97);
        const std::string description =
            "Made for measurements; tool " + std::to_string(random % 9973) + " with internal coolant.";
        add.bind(idOf(i)).bind(name).bind(std::int64_t{70} + static_cast<std::int64_t>(random % 2));
        add.bind(rule).bind(description).run();
        add.reset();
    }
}

void attachNineOfTen(const std::shared_ptr<norvex::KnowledgeBase>& base) {
    norvex::ModelWriter model(base->connection());
    pellmark::FeatureCaseDescription description;
    description.featureTypeId = model.addFeatureType("Hole", 1, {}, -1);
    norvex::SqliteFeatureCaseStore(base).createFeatureCase(description);
    base->connection().execute(
        "INSERT INTO attachment (feature_case, process) "
        "SELECT (SELECT max(row) FROM feature_case), row FROM process WHERE row % 10 <> 0");
}

}  // namespace

std::string syntheticBase(const std::string& folder, std::size_t processes) {
    const std::filesystem::path path =
        std::filesystem::path(folder) / ("processes-" + std::to_string(processes) + ".nkb");
    if (std::filesystem::exists(path)) return path.string();
    std::filesystem::create_directories(folder);
    const std::filesystem::path unfinished = path.string() + ".unfinished";
    std::filesystem::remove(unfinished);
    {
        norvex::OpenOptions options;
        options.seed = false;
        const auto base = norvex::KnowledgeBase::open(unfinished.string(), options);
        norvex::Transaction all(base->connection(), norvex::Transaction::Kind::Write);
        addProcesses(base->connection(), processes);
        attachNineOfTen(base);
        norvex::completeProcessKeys(base->connection());
        all.commit();
    }
    std::filesystem::rename(unfinished, path);
    return path.string();
}

}  // namespace bench
