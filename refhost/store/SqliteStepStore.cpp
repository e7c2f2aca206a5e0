#include "refhost/store/SqliteStepStore.h"

#include <limits>
#include <utility>

#include "base/Guid.h"
#include "knowledge/MemoryRecordSet.h"
#include "refhost/store/Lengths.h"
#include "refhost/store/Rows.h"
#include "refhost/store/Statement.h"

namespace norvex {

using pellmark::Guid;
using pellmark::MemoryRecordSet;
using pellmark::ProcessStepRecord;
using pellmark::RecordSet;
using pellmark::StepValueRecord;
using pellmark::TechnologySource;
namespace errors = pellmark::errors;
namespace field = pellmark::field;

namespace {

constexpr const char* kSource = "KnowledgeBase";

/// A sentence with two places: the code of a value and the name of its step.
Sentence aboutValue(const char* english, Connection& connection, std::int64_t step, std::int32_t code) {
    Statement find(connection, "SELECT name FROM process_step WHERE row = ?");
    find.bind(step);
    const std::string name = find.step() ? find.text(0) : std::string();
    return Sentence(english, {std::to_string(code), name});
}

}  // namespace

SqliteStepStore::SqliteStepStore(std::shared_ptr<KnowledgeBase> base) : base_(std::move(base)) {}

std::shared_ptr<RecordSet> SqliteStepStore::steps(const std::string& processId) {
    auto records = std::make_shared<MemoryRecordSet>(std::vector<std::string>{
        field::kId, field::kProcessId, field::kPriority, field::kName, field::kCuttingCycleId});
    Statement list(connection(),
                   "SELECT s.id, p.id, s.priority, s.name, s.cutting_cycle FROM process p "
                   "JOIN process_step s ON s.process = p.row WHERE p.id = ? ORDER BY s.priority, s.row");
    list.bindId(processId);
    while (list.step()) {
        records->addRow(list.guid(0), {list.id(1), list.view(2), list.view(3), list.view(4)});
    }
    return records;
}

ProcessStepRecord SqliteStepStore::step(const std::string& id) {
    Statement find(connection(),
                   "SELECT s.id, s.name, p.id, s.priority, s.cutting_cycle FROM process_step s "
                   "JOIN process p ON p.row = s.process WHERE s.id = ?");
    find.bindId(id);
    if (!find.step()) throwNotFound(Sentence(kind::kStep.gone));
    return {find.id(0), find.text(1), find.id(2), static_cast<std::int16_t>(find.integer(3)),
            static_cast<std::int16_t>(find.integer(4))};
}

std::string SqliteStepStore::addStep(const ProcessStepRecord& record) {
    checkLengths(record);
    Transaction change(connection(), Transaction::Kind::Write);
    const Guid id = Guid::random();
    Statement add(
        connection(),
        "INSERT INTO process_step (id, process, priority, name, cutting_cycle) VALUES (?, ?, ?, ?, ?)");
    add.bind(id).bind(requireRow(connection(), kind::kProcess, record.processId));
    add.bind(std::int64_t{record.priority}).bind(record.name).bind(std::int64_t{record.cuttingCycleId}).run();
    change.commit();
    return id.text();
}

void SqliteStepStore::updateStep(const ProcessStepRecord& record) {
    checkLengths(record);
    Transaction change(connection(), Transaction::Kind::Write);
    const std::int64_t step = requireRow(connection(), kind::kStep, record.id);
    Statement update(connection(),
                     "UPDATE process_step SET process = ?, priority = ?, name = ?, cutting_cycle = ? "
                     "WHERE row = ?");
    update.bind(requireRow(connection(), kind::kProcess, record.processId));
    update.bind(std::int64_t{record.priority}).bind(record.name).bind(std::int64_t{record.cuttingCycleId});
    update.bind(step).run();
    change.commit();
}

bool SqliteStepStore::deleteStep(const std::string& id) {
    Statement remove(connection(), "DELETE FROM process_step WHERE id = ?");
    remove.bindId(id).run();
    return connection().changes() > 0;
}

std::int16_t SqliteStepStore::nextPriority(const std::string& processId) {
    Statement find(connection(),
                   "SELECT max(s.priority) FROM process p JOIN process_step s ON s.process = p.row "
                   "WHERE p.id = ?");
    find.bindId(processId);
    if (!find.step() || find.isNull(0)) return 1;
    constexpr std::int64_t kGreatest = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(std::min(find.integer(0), kGreatest - 1) + 1);
}

std::shared_ptr<RecordSet> SqliteStepStore::values(const std::string& stepId) {
    auto records =
        std::make_shared<MemoryRecordSet>(std::vector<std::string>{field::kClFileCode, field::kValue});
    Statement list(connection(),
                   "SELECT v.code, v.value FROM process_step s JOIN step_value v ON v.step = s.row "
                   "WHERE s.id = ? ORDER BY v.code");
    list.bindId(stepId);
    while (list.step())
        records->addRow({list.view(0), list.view(1)});
    return records;
}

void SqliteStepStore::addValue(const StepValueRecord& record) {
    Transaction change(connection(), Transaction::Kind::Write);
    const std::int64_t step = requireRow(connection(), kind::kStep, record.stepId);
    Statement add(connection(), "INSERT OR IGNORE INTO step_value (step, code, value) VALUES (?, ?, ?)");
    add.bind(step).bind(std::int64_t{record.clFileCode}).bind(record.value).run();
    if (connection().changes() == 0) {
        throw HostError(errors::kNotUnique, kSource,
                        aboutValue(sentence("The value %1 of the process step '%2' exists already."),
                                   connection(), step, record.clFileCode));
    }
    change.commit();
}

void SqliteStepStore::updateValue(const StepValueRecord& record) {
    Transaction change(connection(), Transaction::Kind::Write);
    const std::int64_t step = requireRow(connection(), kind::kStep, record.stepId);
    Statement update(connection(), "UPDATE step_value SET value = ? WHERE step = ? AND code = ?");
    update.bind(record.value).bind(step).bind(std::int64_t{record.clFileCode}).run();
    if (connection().changes() == 0) {
        throwNotFound(aboutValue(sentence("The value %1 of the process step '%2' no longer exists."),
                                 connection(), step, record.clFileCode));
    }
    change.commit();
}

void SqliteStepStore::setValue(const StepValueRecord& record) {
    Transaction change(connection(), Transaction::Kind::Write);
    const std::int64_t step = requireRow(connection(), kind::kStep, record.stepId);
    Statement set(connection(),
                  "INSERT INTO step_value (step, code, value) VALUES (?, ?, ?) "
                  "ON CONFLICT (step, code) DO UPDATE SET value = excluded.value");
    set.bind(step).bind(std::int64_t{record.clFileCode}).bind(record.value).run();
    change.commit();
}

void SqliteStepStore::deleteValue(const std::string& stepId, std::int32_t clFileCode) {
    Statement remove(connection(),
                     "DELETE FROM step_value WHERE step = (SELECT row FROM process_step WHERE id = ?) "
                     "AND code = ?");
    remove.bindId(stepId).bind(std::int64_t{clFileCode}).run();
}

std::vector<TechnologySource> SqliteStepStore::technologySources(const std::vector<std::string>& stepIds) {
    std::vector<TechnologySource> sources;
    sources.reserve(stepIds.size());
    // One transaction, so that the file is locked and its state read once and not for each step.
    Transaction view(connection(), Transaction::Kind::Read);
    Statement find(connection(), "SELECT source FROM process_step WHERE id = ?");
    for (const std::string& id : stepIds) {
        find.bindId(id);
        const bool isKnown = find.step() && !find.isNull(0);
        sources.push_back(isKnown ? static_cast<TechnologySource>(find.integer(0))
                                  : TechnologySource::DbStep);
        find.reset();
    }
    return sources;
}

void SqliteStepStore::setTechnologySource(const std::string& stepId, TechnologySource source) {
    Transaction change(connection(), Transaction::Kind::Write);
    const std::int64_t step = requireRow(connection(), kind::kStep, stepId);
    Statement update(connection(), "UPDATE process_step SET source = ? WHERE row = ?");
    update.bind(static_cast<std::int64_t>(source)).bind(step).run();
    change.commit();
}

std::shared_ptr<RecordSet> SqliteStepStore::cuttingCycles(const std::vector<int>& types) {
    auto records = std::make_shared<MemoryRecordSet>(std::vector<std::string>{field::kId, field::kName});
    Statement list(connection(), "SELECT id, name FROM cutting_cycle WHERE type = ? ORDER BY id");
    for (const int type : types) {
        list.bind(std::int64_t{type});
        while (list.step())
            records->addRow({list.view(0), list.view(1)});
        list.reset();
    }
    return records;
}

}  // namespace norvex
