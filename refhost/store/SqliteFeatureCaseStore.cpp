#include "refhost/store/SqliteFeatureCaseStore.h"

#include <set>
#include <utility>

#include "knowledge/MemoryRecordSet.h"
#include "refhost/store/Rows.h"
#include "refhost/store/Statement.h"

namespace norvex {

using pellmark::FeatureCaseDescription;
using pellmark::FeatureCaseMatch;
using pellmark::Guid;
using pellmark::MemoryRecordSet;
using pellmark::pNode;
using pellmark::RecordSet;
namespace field = pellmark::field;

namespace {

constexpr const char* kSource = "KnowledgeBase";

/// The value ids of a question without repetitions. One that is no GUID belongs to no feature case.
struct AskedValues {
    explicit AskedValues(const std::vector<std::string>& texts) {
        std::set<std::array<std::uint8_t, 16>> seen;
        for (const std::string& text : texts) {
            const auto id = Guid::parse(text);
            if (!id) {
                hasUnknown = true;
            } else if (seen.insert(id->bytes).second) {
                ids.push_back(*id);
            }
        }
    }

    std::vector<Guid> ids;
    bool hasUnknown = false;

    /// "(?, ?, ?)"
    std::string placeholders() const {
        std::string list;
        for (std::size_t i = 0; i < ids.size(); ++i)
            list += i == 0 ? "?" : ", ?";
        return "(" + list + ")";
    }
    void bindTo(Statement& statement) const {
        for (const Guid& id : ids)
            statement.bind(id);
    }
};

/// How the filters of the view narrow the processes of a case.
struct Filters {
    bool byUnit;
    bool byClass;
    bool withoutMaterials;  ///< whether a process without materials applies to the class
};

/// Processes of all feature cases that have any of the values.
std::string processesSql(const AskedValues& asked, const Filters& filters) {
    std::string sql =
        "SELECT p.id, c.id, p.name, p.unit, p.rule, p.description, found.hits "
        "FROM (SELECT cv.feature_case AS feature_case, count(*) AS hits FROM feature_value v "
        "      JOIN feature_case_value cv ON cv.value = v.row WHERE v.id IN " +
        asked.placeholders() +
        "      GROUP BY cv.feature_case) found "
        "JOIN feature_case c ON c.row = found.feature_case "
        "JOIN attachment a ON a.feature_case = c.row "
        "JOIN process p ON p.row = a.process ";
    sql += "WHERE true ";
    if (filters.byUnit) sql += "AND p.unit = ? ";
    if (filters.byClass) {
        sql +=
            "AND (EXISTS (SELECT 1 FROM process_material pm JOIN material m ON m.row = pm.material "
            "             JOIN material_class k ON k.row = m.material_class "
            "             WHERE pm.process = p.row AND k.id = ?) ";
        if (filters.withoutMaterials) {
            sql += "OR NOT EXISTS (SELECT 1 FROM process_material pm WHERE pm.process = p.row)";
        }
        sql += ") ";
    }
    return sql + "ORDER BY c.row, p.name COLLATE NOCASE, p.id";
}

void bindRow(Statement& statement, std::optional<std::int64_t> row) {
    if (row) {
        statement.bind(*row);
    } else {
        statement.bindNull();
    }
}

}  // namespace

SqliteFeatureCaseStore::SqliteFeatureCaseStore(std::shared_ptr<KnowledgeBase> base)
    : base_(std::move(base)) {}

std::vector<pNode> SqliteFeatureCaseStore::processesOfValues(const FeatureCaseDescription& description,
                                                             int style) {
    if (style != 0 && style != 1) {
        throw HostError(pellmark::errors::kInvalidArgument, kSource,
                        Sentence("There are only the list styles 0 and 1."));
    }
    const AskedValues asked(description.valueIds);
    const Filters filters{description.processUnit >= 0, !description.materialClassId.empty(), style == 0};
    Statement list(connection(), processesSql(asked, filters));
    asked.bindTo(list);
    if (filters.byUnit) list.bind(std::int64_t{description.processUnit});
    if (filters.byClass) list.bindId(description.materialClassId);
    std::vector<pNode> nodes;
    while (list.step()) {
        const bool hasAll =
            !asked.hasUnknown && list.integer(6) == static_cast<std::int64_t>(asked.ids.size());
        nodes.push_back({list.id(0), list.id(1), list.text(2), static_cast<std::int16_t>(list.integer(3)),
                         list.text(4), list.text(5), hasAll});
    }
    return nodes;
}

std::string SqliteFeatureCaseStore::createFeatureCase(const FeatureCaseDescription& description) {
    Transaction change(connection(), Transaction::Kind::Write);
    const Guid id = Guid::random();
    Statement add(connection(),
                  "INSERT INTO feature_case (id, feature_type, nvx_feature_type, part_type, unit, "
                  "material_class, process_unit) VALUES (?, ?, ?, ?, ?, ?, ?)");
    add.bind(id);
    add.bind(requireRow(connection(), kind::kFeatureType, description.featureTypeId));
    add.bind(std::int64_t{description.nvxFeatureType});
    bindRow(add, findRow(connection(), "part_type", description.partTypeId));
    add.bind(std::int64_t{description.unit});
    bindRow(add, findRow(connection(), "material_class", description.materialClassId));
    add.bind(std::int64_t{description.processUnit});
    add.run();
    change.commit();
    return id.text();
}

void SqliteFeatureCaseStore::addValue(const std::string& valueId, const std::string& featureCaseId) {
    Transaction change(connection(), Transaction::Kind::Write);
    const std::int64_t featureCase = requireRow(connection(), kind::kFeatureCase, featureCaseId);
    const std::int64_t value = requireRow(connection(), kind::kValue, valueId);
    Statement add(connection(),
                  "INSERT OR IGNORE INTO feature_case_value (feature_case, value) VALUES (?, ?)");
    add.bind(featureCase).bind(value).run();
    change.commit();
}

std::vector<FeatureCaseMatch> SqliteFeatureCaseStore::matches(const std::string& featureTypeId,
                                                              const std::vector<std::string>& valueIds) {
    const AskedValues asked(valueIds);
    Statement list(connection(),
                   "SELECT c.id, t.id, "
                   "(SELECT count(*) FROM feature_case_value cv WHERE cv.feature_case = c.row), "
                   "(SELECT count(*) FROM feature_case_value cv JOIN feature_value v ON v.row = cv.value "
                   " WHERE cv.feature_case = c.row AND v.id IN " +
                       asked.placeholders() +
                       ") FROM feature_type t JOIN feature_case c ON c.feature_type = t.row "
                       "WHERE t.id = ? ORDER BY c.row");
    asked.bindTo(list);
    list.bindId(featureTypeId);
    const auto wanted = static_cast<std::int64_t>(asked.ids.size());
    std::vector<FeatureCaseMatch> found;
    while (list.step()) {
        const bool exact = !asked.hasUnknown && list.integer(2) == wanted && list.integer(3) == wanted;
        found.push_back({list.id(0), list.id(1), exact});
    }
    return found;
}

std::shared_ptr<RecordSet> SqliteFeatureCaseStore::nvxFeatureTypes() {
    auto records = std::make_shared<MemoryRecordSet>(std::vector<std::string>{field::kId, field::kName});
    Statement list(connection(), "SELECT id, name FROM nvx_feature_type ORDER BY id");
    while (list.step())
        records->addRow({list.view(0), list.view(1)});
    return records;
}

std::shared_ptr<RecordSet> SqliteFeatureCaseStore::partTypes() {
    Statement list(connection(), "SELECT id, name FROM part_type ORDER BY row");
    return idsAndNames(list);
}

std::shared_ptr<RecordSet> SqliteFeatureCaseStore::materialClasses() {
    Statement list(connection(), "SELECT id, name FROM material_class ORDER BY row");
    return idsAndNames(list);
}

std::shared_ptr<RecordSet> SqliteFeatureCaseStore::featureTypes(std::int16_t nvxFeatureType,
                                                                const std::string& partTypeId,
                                                                std::int16_t unitCode) {
    Statement list(connection(),
                   "SELECT t.id, t.name FROM feature_type t LEFT JOIN part_type p ON p.row = t.part_type "
                   "WHERE (?1 < 0 OR t.nvx_feature_type = ?1) "
                   "AND (?2 OR t.part_type IS NULL OR p.id = ?3) "
                   "AND (?4 < 0 OR t.unit IS NULL OR t.unit < 0 OR t.unit = ?4) ORDER BY t.row");
    list.bind(std::int64_t{nvxFeatureType}).bind(std::int64_t{partTypeId.empty()});
    list.bindId(partTypeId).bind(std::int64_t{unitCode});
    return idsAndNames(list);
}

std::shared_ptr<RecordSet> SqliteFeatureCaseStore::keys(const std::string& featureTypeId) {
    Statement list(connection(),
                   "SELECT k.id, k.name FROM feature_type t JOIN feature_key k ON k.feature_type = t.row "
                   "WHERE t.id = ? ORDER BY k.row");
    list.bindId(featureTypeId);
    return idsAndNames(list);
}

std::shared_ptr<RecordSet> SqliteFeatureCaseStore::values(const std::string& featureTypeId) {
    auto records =
        std::make_shared<MemoryRecordSet>(std::vector<std::string>{field::kId, field::kName, field::kKeyId});
    Statement list(
        connection(),
        "SELECT v.id, v.name, k.id FROM feature_type t "
        "JOIN feature_key k ON k.feature_type = t.row JOIN feature_value v ON v.feature_key = k.row "
        "WHERE t.id = ? ORDER BY k.row, v.row");
    list.bindId(featureTypeId);
    while (list.step())
        records->addRow(list.guid(0), {list.view(1), list.id(2)});
    return records;
}

std::shared_ptr<RecordSet> SqliteFeatureCaseStore::idsAndNames(Statement& list) {
    auto records = std::make_shared<MemoryRecordSet>(std::vector<std::string>{field::kId, field::kName});
    while (list.step())
        records->addRow(list.guid(0), {list.view(1)});
    return records;
}

}  // namespace norvex
