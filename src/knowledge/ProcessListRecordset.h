#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "knowledge/MemoryRecordSet.h"
#include "knowledge/Records.h"

namespace pellmark {

/// The processes found for a feature case: a table in memory, filled once and never written back, that a
/// unit filter may narrow. Rows are numbered as the filter leaves them.
class ProcessListRecordset : public RecordSet {
  public:
    ProcessListRecordset();

    /// Appends a result; ExactMatch is not kept here. Throws Error: a text longer than its field (name 500,
    /// rule 250, description 1000 UTF-16 units) with kValueTooLong, an id that is neither a GUID nor empty
    /// with kTypeMismatch. A refused result leaves the table as it was.
    void addRow(const pNode& node);

    /// "" shows all rows, "(_Unit  = 71)" (two blanks before the sign) those of one unit. Any other text
    /// throws Error (invalid argument) and leaves the filter as it was.
    void setFilter(const std::string& filter);
    const std::string& filter() const { return filter_; }

    /// The filter for a unit; "" for a negative one, which stands for no choice.
    static std::string unitFilter(int unitCode);

    const std::vector<std::string>& fields() const override { return rows_.fields(); }
    std::size_t count() override { return shown_.size(); }
    std::string text(std::size_t record, std::size_t field) override;
    std::optional<std::vector<Guid>> keys() override;

  private:
    bool isShown(std::int16_t unitCode) const { return !filterUnit_ || *filterUnit_ == unitCode; }

    MemoryRecordSet rows_;
    std::vector<std::int16_t> units_;
    std::vector<std::uint32_t> shown_;  ///< the rows that the filter leaves, in order
    std::string filter_;
    std::optional<std::int32_t> filterUnit_;
};

}  // namespace pellmark
