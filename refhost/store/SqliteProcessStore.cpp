#include "refhost/store/SqliteProcessStore.h"

#include <optional>
#include <utility>

#include "base/Guid.h"
#include "knowledge/MemoryRecordSet.h"
#include "refhost/store/Lengths.h"
#include "refhost/store/ProcessFinder.h"
#include "refhost/store/ProcessKeys.h"
#include "refhost/store/ProcessRecordSet.h"
#include "refhost/store/Rows.h"
#include "refhost/store/Statement.h"

namespace norvex {

using pellmark::Guid;
using pellmark::MemoryRecordSet;
using pellmark::ProcessRecord;
using pellmark::RecordSet;
using pellmark::RowQuery;
namespace field = pellmark::field;

namespace {

constexpr const char* kSource = "KnowledgeBase";
constexpr const char* kOneProcess = "SELECT id, name, unit, rule, description FROM process WHERE id = ?";

/// The record in a row of kOneProcess; a unit that does not fit is no unit.
ProcessRecord recordOf(const Statement& row) {
    const std::int64_t unitCode = row.integer(2);
    const auto unit = static_cast<std::int16_t>(unitCode);
    return {row.id(0), row.text(1), unit == unitCode ? unit : std::int16_t{0}, row.text(4), row.text(3)};
}

}  // namespace

SqliteProcessStore::SqliteProcessStore(std::shared_ptr<KnowledgeBase> base) : base_(std::move(base)) {}

std::shared_ptr<RecordSet> SqliteProcessStore::processes(const std::string& id) {
    if (id.empty()) return std::make_shared<ProcessRecordSet>(base_, orders_);
    auto records = std::make_shared<MemoryRecordSet>(
        std::vector<std::string>{field::kId, field::kName, field::kUnit, field::kRule, field::kDescription});
    Statement find(connection(), kOneProcess);
    find.bindId(id);
    if (find.step()) {
        records->addRow(find.guid(0), {find.view(1), find.view(2), find.view(3), find.view(4)});
    }
    return records;
}

std::shared_ptr<RecordSet> SqliteProcessStore::findProcesses(const RowQuery& query) {
    const bool isSorted = !query.sortField.empty();
    if (isSorted && !base_->isReadOnly()) completeProcessKeys(connection());
    const auto reader = base_->borrowReader();
    Transaction view(*reader, Transaction::Kind::Read);
    std::optional<ProcessKeysAside> keys;
    if (isSorted && base_->isReadOnly()) keys.emplace(*reader);
    const ProcessRows order = orders_->by(*reader, query.sortField);
    ProcessRecordSet::Arranged arranged{order, order, reader, false};
    if (query.descending) {
        arranged.rows = std::make_shared<std::vector<std::uint32_t>>(order->rbegin(), order->rend());
    }
    ProcessFinder finder(*reader, query);
    arranged.rows = finder.among(arranged.rows);
    arranged.hasMore = finder.hasMore();
    view.commit();
    return std::make_shared<ProcessRecordSet>(base_, std::move(arranged));
}

ProcessRecord SqliteProcessStore::process(const std::string& id) {
    Statement find(connection(), kOneProcess);
    find.bindId(id);
    if (!find.step()) throwNotFound(Sentence(kind::kProcess.gone));
    return recordOf(find);
}

std::vector<std::optional<ProcessRecord>> SqliteProcessStore::processRecords(
    const std::vector<std::string>& ids) {
    std::vector<std::optional<ProcessRecord>> records;
    records.reserve(ids.size());
    // Without it, every look-up would take and release the lock of the file.
    Transaction view(connection(), Transaction::Kind::Read);
    Statement find(connection(), kOneProcess);
    for (const std::string& id : ids) {
        find.bindId(id);
        records.push_back(find.step() ? std::optional(recordOf(find)) : std::nullopt);
        find.reset();
    }
    view.commit();
    return records;
}

std::shared_ptr<RecordSet> SqliteProcessStore::orphanProcesses() {
    auto records = std::make_shared<MemoryRecordSet>(std::vector<std::string>{field::kId});
    Statement list(connection(), "SELECT id FROM process INDEXED BY process_orphan WHERE attachments = 0");
    while (list.step())
        records->addRow(list.guid(0), {});
    return records;
}

std::string SqliteProcessStore::addProcess(const ProcessRecord& record) {
    checkLengths(record);
    const Guid id = Guid::random();
    Statement add(connection(),
                  "INSERT INTO process (id, name, unit, rule, description) VALUES (?, ?, ?, ?, ?)");
    add.bind(id).bind(record.Name).bind(std::int64_t{record.Unit}).bind(record.Rule).bind(record.Description);
    add.run();
    return id.text();
}

void SqliteProcessStore::updateProcess(const ProcessRecord& record) {
    checkLengths(record);
    Statement update(connection(),
                     "UPDATE process SET name = ?, unit = ?, rule = ?, description = ? WHERE id = ?");
    update.bind(record.Name).bind(std::int64_t{record.Unit}).bind(record.Rule).bind(record.Description);
    update.bindId(record.Id).run();
    if (connection().changes() == 0) throwNotFound(Sentence(kind::kProcess.gone));
}

bool SqliteProcessStore::deleteProcess(const std::string& id) {
    Statement remove(connection(), "DELETE FROM process WHERE id = ? AND protected = 0");
    remove.bindId(id).run();
    return connection().changes() > 0;
}

void SqliteProcessStore::attach(const std::string& processId, const std::string& featureCaseId) {
    Transaction change(connection(), Transaction::Kind::Write);
    const std::int64_t process = requireRow(connection(), kind::kProcess, processId);
    const std::int64_t featureCase = requireRow(connection(), kind::kFeatureCase, featureCaseId);
    Statement add(connection(), "INSERT OR IGNORE INTO attachment (feature_case, process) VALUES (?, ?)");
    add.bind(featureCase).bind(process).run();
    change.commit();
}

bool SqliteProcessStore::detach(const std::string& featureCaseId, const std::string& processId) {
    Statement remove(
        connection(),
        "DELETE FROM attachment WHERE feature_case = (SELECT row FROM feature_case WHERE id = ?) "
        "AND process = (SELECT row FROM process WHERE id = ?)");
    remove.bindId(featureCaseId).bindId(processId).run();
    return true;
}

void SqliteProcessStore::addMaterial(const std::string& processId, const std::string& materialId) {
    Transaction change(connection(), Transaction::Kind::Write);
    const std::int64_t process = requireRow(connection(), kind::kProcess, processId);
    const std::int64_t material = requireRow(connection(), kind::kMaterial, materialId);
    Statement add(connection(), "INSERT OR IGNORE INTO process_material (process, material) VALUES (?, ?)");
    add.bind(process).bind(material).run();
    change.commit();
}

void SqliteProcessStore::removeMaterial(const std::string& processId, const std::string& materialId) {
    Statement remove(connection(),
                     "DELETE FROM process_material WHERE process = (SELECT row FROM process WHERE id = ?) "
                     "AND material = (SELECT row FROM material WHERE id = ?)");
    remove.bindId(processId).bindId(materialId).run();
}

std::shared_ptr<RecordSet> SqliteProcessStore::materialsOf(const std::string& processId) {
    auto records = std::make_shared<MemoryRecordSet>(
        std::vector<std::string>{field::kId, field::kName, field::kPartMaterialGroupId});
    Statement list(connection(),
                   "SELECT m.id, m.name, c.id FROM process p "
                   "JOIN process_material pm ON pm.process = p.row "
                   "JOIN material m ON m.row = pm.material "
                   "LEFT JOIN material_class c ON c.row = m.material_class "
                   "WHERE p.id = ? ORDER BY m.name COLLATE NOCASE, m.id");
    list.bindId(processId);
    while (list.step())
        records->addRow(list.guid(0), {list.view(1), list.id(2)});
    return records;
}

}  // namespace norvex
