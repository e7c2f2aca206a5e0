#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "com/adapters/HostRecordSet.h"

namespace pellmark {

/// A record set as a script writes it, with EOF, MoveNext and Field. It can only be read forwards, so what
/// has been read is kept, and nothing behind the farthest record asked for is read. From inside one of these
/// members only what is known already can be had: the host's cursor stands in the middle of a record.
class ForwardRecordSet : public HostRecordSet {
  public:
    /// Far more than anybody waits for field by field; without it, a host that never answers EOF with True
    /// would take all memory.
    static constexpr std::size_t kMostRecords = 1'000'000;

    explicit ForwardRecordSet(DispatchObject object, std::size_t mostRecords = kMostRecords)
        : HostRecordSet(std::move(object)), mostRecords_(mostRecords) {}

    std::size_t count() override;
    std::string text(std::size_t record, std::size_t field) override;
    /// Nothing: there is no block of keys to be had.
    std::optional<std::vector<Guid>> keys() override { return std::nullopt; }

  private:
    /// Reads until so many records are known or there are no more. Throws errors::kHostInterface when it is
    /// re-entered, and beyond the greatest number of records.
    void readTo(std::size_t records);
    std::vector<std::string> readRecord();

    std::size_t mostRecords_;
    bool reading_ = false;
    std::vector<std::vector<std::string>> records_;
    std::optional<std::size_t> count_;
    bool atEnd_ = false;
};

}  // namespace pellmark
