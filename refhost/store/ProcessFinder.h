#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "knowledge/RowQuery.h"
#include "refhost/store/ProcessOrders.h"

namespace norvex {

/// Some of all row numbers, a bit each.
class RowMarks {
  public:
    void add(std::uint32_t row);
    bool has(std::uint32_t row) const {
        return row / kBits < words_.size() && ((words_[row / kBits] >> (row % kBits)) & 1U) != 0;
    }

  private:
    static constexpr std::uint32_t kBits = 64;
    std::vector<std::uint64_t> words_;
};

/// Finds processes by text. Three letters and more are found by the index of trigrams, all of them. One or
/// two are in so many texts that the first of the list are looked at one by one; where that does not show
/// enough of them they are rare, and the index knows the trigrams that begin with them.
class ProcessFinder {
  public:
    /// The connection is in a read transaction.
    ProcessFinder(Connection& connection, const pellmark::RowQuery& query);

    /// What of the rows is found, in their order.
    ProcessRows among(const ProcessRows& rows);
    /// Whether `among` has left out some at the end.
    bool hasMore() const { return hasMore_; }

  private:
    static constexpr std::size_t kShortest = 3;  ///< of a trigram, in code points
    /// A fifth of the time that a person takes for a key press to show.
    static constexpr std::size_t kLookedAt = 20'000;
    static constexpr std::size_t kEnough = 1'000;

    ProcessRows lookedAt(const std::vector<std::uint32_t>& rows, std::size_t most);
    void mark(const std::string& match);
    void markValues();
    void markShort();
    std::string columns() const;

    Connection& connection_;
    const pellmark::RowQuery& query_;
    std::vector<int> fields_;  ///< columns of the table that are searched
    bool isIndexed_ = true;    ///< the index holds all of them
    RowMarks marks_;
    bool hasMore_ = false;
};

}  // namespace norvex
