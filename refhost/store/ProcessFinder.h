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

/// Finds processes by text, within the time in which a person expects a key to show. Three letters and more
/// are found by the index of trigrams. Where they are in too many texts for that, and one or two letters are,
/// the first of the list are looked at one by one; where that does not show enough of them they are rare, or
/// stand further down, and the index is asked after all. It knows short texts as the beginnings of trigrams.
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
    static constexpr std::size_t kFewEnough = 150'000;
    static constexpr std::size_t kLookedAt = 20'000;
    static constexpr std::size_t kEnough = 1'000;

    ProcessRows lookedAt(const std::vector<std::uint32_t>& rows, std::size_t most);
    /// False when there are more than that.
    bool mark(const std::string& match, std::size_t most);
    void markValues();
    /// Asks for every trigram that begins with the text: a text that holds it has one of them. "" when none
    /// does.
    std::string beginnings() const;
    std::string columns() const;

    Connection& connection_;
    const pellmark::RowQuery& query_;
    std::vector<int> fields_;  ///< columns of the table that are searched
    bool isIndexed_ = true;    ///< the index holds all of them
    RowMarks marks_;
    bool hasMore_ = false;
};

}  // namespace norvex
