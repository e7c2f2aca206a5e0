#include "refhost/store/ProcessRecordSet.h"

#include <algorithm>
#include <limits>

#include "base/Error.h"
#include "knowledge/Records.h"

namespace norvex {

using pellmark::Guid;
using pellmark::MemoryRecordSet;
namespace field = pellmark::field;

namespace {

/// A screen shows some 40 rows; a page holds that and the next scroll.
constexpr std::size_t kPageRows = 128;
constexpr std::size_t kKeptPages = 8;

const std::vector<std::string>& processFields() {
    static const std::vector<std::string> names{field::kId, field::kName, field::kUnit, field::kRule,
                                                field::kDescription};
    return names;
}

void addRow(MemoryRecordSet& records, Statement& row) {
    records.addRow(row.guid(0), {row.view(1), row.view(2), row.view(3), row.view(4)});
}

}  // namespace

ProcessRecordSet::ProcessRecordSet(std::shared_ptr<KnowledgeBase> base)
    : base_(std::move(base)),
      reader_(base_->borrowReader()),
      view_(std::make_unique<Transaction>(*reader_, Transaction::Kind::Read)) {
    Statement tally(*reader_, "SELECT value FROM tally WHERE name = 'process'");
    if (tally.step()) count_ = static_cast<std::size_t>(std::max<std::int64_t>(tally.integer(0), 0));
}

ProcessRecordSet::~ProcessRecordSet() = default;

const std::vector<std::string>& ProcessRecordSet::fields() const {
    return processFields();
}

std::string ProcessRecordSet::text(std::size_t record, std::size_t field) {
    if (record >= count_) return {};
    return page(record / kPageRows).text(record % kPageRows, field);
}

std::optional<std::vector<Guid>> ProcessRecordSet::keys() {
    std::vector<Guid> ids;
    ids.reserve(count_);
    rows_.clear();
    rows_.reserve(count_);
    readKeys(ids);
    // The list on the screen must not keep the log from being written back into the file.
    view_.reset();
    return ids;
}

void ProcessRecordSet::readKeys(std::vector<Guid>& ids) {
    Statement list(*reader_, "SELECT id, row FROM process ORDER BY name COLLATE NOCASE, id");
    while (ids.size() < count_ && list.step()) {
        const std::int64_t row = list.integer(1);
        if (row < 0 || row > std::numeric_limits<std::uint32_t>::max()) {
            throw pellmark::Error(pellmark::errors::kKnowledgeBase, "KnowledgeBase",
                                  "The knowledge base '" + base_->path() + "' has used up its row numbers.");
        }
        ids.push_back(list.guid(0));
        rows_.push_back(static_cast<std::uint32_t>(row));
    }
}

MemoryRecordSet& ProcessRecordSet::page(std::size_t number) {
    const auto at = findPage(number);
    if (at != pages_.end()) {
        pages_.splice(pages_.begin(), pages_, at);
        return pages_.front().records;
    }
    Page fresh{number, MemoryRecordSet(processFields())};
    if (rows_.empty()) {
        readByPosition(fresh);
    } else {
        readByRow(fresh);
    }
    if (pages_.size() >= kKeptPages) pages_.pop_back();
    pages_.push_front(std::move(fresh));
    return pages_.front().records;
}

std::list<ProcessRecordSet::Page>::iterator ProcessRecordSet::findPage(std::size_t number) {
    return std::find_if(pages_.begin(), pages_.end(),
                        [&](const Page& each) { return each.number == number; });
}

void ProcessRecordSet::readByPosition(Page& page) {
    Statement list(*reader_,
                   "SELECT id, name, unit, rule, description FROM process "
                   "ORDER BY name COLLATE NOCASE, id LIMIT ? OFFSET ?");
    list.bind(static_cast<std::int64_t>(kPageRows)).bind(static_cast<std::int64_t>(page.number * kPageRows));
    while (list.step())
        addRow(page.records, list);
}

void ProcessRecordSet::readByRow(Page& page) {
    Transaction view(*reader_, Transaction::Kind::Read);
    const std::size_t end = std::min((page.number + 1) * kPageRows, rows_.size());
    std::size_t at = page.number * kPageRows;
    // Whoever reads page after page (an export) gets them along the index, a third faster than row by row.
    if (const auto before = findPage(page.number - 1); page.number > 0 && before != pages_.end()) {
        at = readFollowing(page, before->records, at, end);
    }
    Statement one(*reader_, "SELECT id, name, unit, rule, description FROM process WHERE row = ?");
    for (; at < end; ++at) {
        one.bind(static_cast<std::int64_t>(rows_[at]));
        if (one.step()) {
            addRow(page.records, one);
        } else {
            page.records.addRow({"", "", "", "", ""});  // deleted since the query
        }
        one.reset();
    }
    view.commit();
}

std::size_t ProcessRecordSet::readFollowing(Page& page, MemoryRecordSet& before, std::size_t at,
                                            std::size_t end) {
    const auto lastId = Guid::parse(before.text(kPageRows - 1, 0));
    if (!lastId) return at;
    const std::string lastName = before.text(kPageRows - 1, 1);
    Statement list(*reader_,
                   "SELECT id, name, unit, rule, description, row FROM process "
                   "WHERE name COLLATE NOCASE >= ?1 AND (name COLLATE NOCASE > ?1 OR id > ?2) "
                   "ORDER BY name COLLATE NOCASE, id LIMIT ?3");
    list.bind(lastName).bind(*lastId).bind(static_cast<std::int64_t>(end - at));
    // What has been added, deleted or renamed since the query ends the common order.
    while (at < end && list.step() && list.integer(5) == std::int64_t{rows_[at]}) {
        addRow(page.records, list);
        ++at;
    }
    return at;
}

}  // namespace norvex
