#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "knowledge/RecordSet.h"

namespace pellmark {

/// Some records of another record set, in an order of their own; four bytes for each.
class ArrangedRecords : public RecordSet {
  public:
    /// `places` are numbers of records of `all`.
    ArrangedRecords(std::shared_ptr<RecordSet> all, std::vector<std::uint32_t> places)
        : all_(std::move(all)), places_(std::move(places)) {}

    const std::vector<std::string>& fields() const override { return all_->fields(); }
    std::size_t count() override { return places_.size(); }
    std::string text(std::size_t record, std::size_t field) override;
    std::optional<std::vector<Guid>> keys() override;
    std::string origin() const override { return all_->origin(); }

  private:
    std::shared_ptr<RecordSet> all_;
    std::vector<std::uint32_t> places_;
};

/// At most so many records from the beginning of a record set; that itself where it has no more.
std::shared_ptr<RecordSet> firstRecords(std::shared_ptr<RecordSet> records, std::size_t most);

/// A record set that is arranged again and again: its keys, which may be asked for once, are kept.
class KeptKeys : public RecordSet {
  public:
    explicit KeptKeys(std::shared_ptr<RecordSet> records) : records_(std::move(records)) {}

    const std::vector<std::string>& fields() const override { return records_->fields(); }
    std::size_t count() override { return records_->count(); }
    std::string text(std::size_t record, std::size_t field) override { return records_->text(record, field); }
    std::optional<std::vector<Guid>> keys() override;
    std::string origin() const override { return records_->origin(); }

  private:
    std::shared_ptr<RecordSet> records_;
    bool asked_ = false;
    std::optional<std::vector<Guid>> keys_;
};

}  // namespace pellmark
