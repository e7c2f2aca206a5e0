#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "refhost/store/Connection.h"

namespace norvex {

/// Row numbers of processes, in some order.
using ProcessRows = std::shared_ptr<const std::vector<std::uint32_t>>;

/// The orders in which processes are listed. One that some record set still uses, and that no change has made
/// wrong, is not read again: of a million processes that takes longer than finding some.
class ProcessOrders {
  public:
    /// All processes by a field, "" for the list's own order. Call inside a read transaction of the
    /// connection, with the keys complete.
    ProcessRows by(Connection& connection, const std::string& field);
    /// The list's own order as somebody has read it in a transaction of that state.
    void keep(std::int64_t state, const ProcessRows& rows) { kept_[""] = {state, rows}; }
    /// Another number after every change of a process.
    static std::int64_t state(Connection& connection);

  private:
    struct Kept {
        std::int64_t state = 0;
        std::weak_ptr<const std::vector<std::uint32_t>> rows;
    };
    ProcessRows read(Connection& connection, const std::string& field);

    std::map<std::string, Kept> kept_;  ///< by field
};

/// A row number as lists hold it. Throws pellmark::Error where the file has used up its numbers.
std::uint32_t rowNumber(const Connection& connection, std::int64_t row);

}  // namespace norvex
