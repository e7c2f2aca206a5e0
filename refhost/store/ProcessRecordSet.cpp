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
constexpr std::size_t kFewRows = 20'000;

const std::vector<std::string>& processFields() {
    static const std::vector<std::string> names{field::kId, field::kName, field::kUnit, field::kRule,
                                                field::kDescription};
    return names;
}

void addRow(MemoryRecordSet& records, Statement& row) {
    records.addRow(row.guid(0), {row.view(1), row.view(2), row.view(3), row.view(4)});
}

}  // namespace

ProcessRecordSet::ProcessRecordSet(std::shared_ptr<KnowledgeBase> base, std::shared_ptr<ProcessOrders> orders)
    : base_(std::move(base)),
      reader_(base_->borrowReader()),
      view_(std::make_unique<Transaction>(*reader_, Transaction::Kind::Read)),
      orders_(std::move(orders)),
      state_(ProcessOrders::state(*reader_)) {
    Statement tally(*reader_, "SELECT value FROM tally WHERE name = 'process'");
    if (tally.step()) count_ = static_cast<std::size_t>(std::max<std::int64_t>(tally.integer(0), 0));
}

ProcessRecordSet::ProcessRecordSet(std::shared_ptr<KnowledgeBase> base, Arranged arranged)
    : base_(std::move(base)),
      reader_(std::move(arranged.reader)),
      count_(arranged.rows->size()),
      arranged_(std::move(arranged)) {}

ProcessRecordSet::~ProcessRecordSet() = default;

const std::vector<std::string>& ProcessRecordSet::fields() const {
    return processFields();
}

std::string ProcessRecordSet::text(std::size_t record, std::size_t field) {
    std::string cell;
    appendText(record, field, cell);
    return cell;
}

void ProcessRecordSet::appendText(std::size_t record, std::size_t field, std::string& out) {
    if (record < count_) page(record / kPageRows).appendText(record % kPageRows, field, out);
}

std::optional<std::vector<Guid>> ProcessRecordSet::keys() {
    return isListed() ? listedKeys() : arrangedKeys();
}

std::vector<Guid> ProcessRecordSet::listedKeys() {
    std::vector<Guid> ids;
    ids.reserve(count_);
    auto rows = std::make_shared<std::vector<std::uint32_t>>();
    rows->reserve(count_);
    {
        Statement list(*reader_, "SELECT id, row FROM process ORDER BY name COLLATE NOCASE, id");
        while (ids.size() < count_ && list.step()) {
            ids.push_back(list.guid(0));
            rows->push_back(rowNumber(*reader_, list.integer(1)));
        }
    }
    arranged_.rows = rows;
    // A count that does not tell the truth must not make a part of the list pass for all of it.
    if (rows->size() == count_) orders_->keep(state_, rows);
    // The list on the screen must not keep the log from being written back into the file.
    view_.reset();
    return ids;
}

std::vector<Guid> ProcessRecordSet::arrangedKeys() {
    std::vector<Guid> ids(count_);
    Transaction view(*reader_, Transaction::Kind::Read);
    if (count_ > kFewRows) {
        readKeysAlongIndex(ids);
    } else {
        Statement one(*reader_, "SELECT id FROM process WHERE row = ?");
        for (std::size_t i = 0; i < count_; ++i) {
            one.bind(std::int64_t{(*arranged_.rows)[i]});
            if (one.step()) ids[i] = one.guid(0);
            one.reset();
        }
    }
    view.commit();
    return ids;
}

/// Looking many rows up one by one takes longer than reading all ids where they stand side by side.
void ProcessRecordSet::readKeysAlongIndex(std::vector<Guid>& ids) {
    constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();
    const auto& rows = *arranged_.rows;
    std::vector<std::uint32_t> placeOfRow(*std::max_element(rows.begin(), rows.end()) + std::size_t{1},
                                          kNone);
    for (std::size_t i = 0; i < rows.size(); ++i)
        placeOfRow[rows[i]] = static_cast<std::uint32_t>(i);
    Statement list(*reader_, "SELECT id, row FROM process ORDER BY id");
    while (list.step()) {
        const auto row = static_cast<std::size_t>(list.integer(1));
        if (row < placeOfRow.size() && placeOfRow[row] != kNone) ids[placeOfRow[row]] = list.guid(0);
    }
}

MemoryRecordSet& ProcessRecordSet::page(std::size_t number) {
    const auto at = findPage(number);
    if (at != pages_.end()) {
        pages_.splice(pages_.begin(), pages_, at);
        return pages_.front().records;
    }
    Page fresh{number, MemoryRecordSet(processFields())};
    if (arranged_.rows == nullptr) {
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
    const auto& rows = *arranged_.rows;
    const std::size_t end = std::min((page.number + 1) * kPageRows, rows.size());
    std::size_t at = page.number * kPageRows;
    // Whoever reads page after page (an export) gets them along the index, a third faster than row by row.
    if (const auto before = findPage(page.number - 1);
        isListed() && page.number > 0 && before != pages_.end()) {
        at = readFollowing(page, before->records, at, end);
    }
    Statement one(*reader_, "SELECT id, name, unit, rule, description FROM process WHERE row = ?");
    for (; at < end; ++at) {
        one.bind(std::int64_t{rows[at]});
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
    while (at < end && list.step() && list.integer(5) == std::int64_t{(*arranged_.rows)[at]}) {
        addRow(page.records, list);
        ++at;
    }
    return at;
}

}  // namespace norvex
