#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "com/adapters/HostRecordSet.h"

namespace pellmark {

/// A record set as a script writes it, with EOF, MoveNext and Field. It can only be read forwards, so what
/// has been read is kept, and nothing behind the farthest record asked for is read.
class ForwardRecordSet : public HostRecordSet {
  public:
    explicit ForwardRecordSet(DispatchObject object) : HostRecordSet(std::move(object)) {}

    std::size_t count() override;
    std::string text(std::size_t record, std::size_t field) override;
    /// Nothing: there is no block of keys to be had.
    std::optional<std::vector<Guid>> keys() override { return std::nullopt; }

  private:
    /// Reads until so many records are known or there are no more.
    void readTo(std::size_t records);

    std::vector<std::vector<std::string>> records_;
    std::optional<std::size_t> count_;
    bool atEnd_ = false;
};

}  // namespace pellmark
