#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "knowledge/RecordSet.h"
#include "knowledge/RowQuery.h"

namespace pellmark {

/// Answers a query by reading the records themselves, for lists whose store does not search or sort.
class RowFinder {
  public:
    /// What a person sees of a stored value of a field.
    using ShownText = std::function<std::string(const std::string& field, const std::string& stored)>;
    /// Told now and then how many of how many readings are done; false ends the walk.
    using Progress = std::function<bool(std::size_t done, std::size_t all)>;

    /// Fields that the records do not have are passed over. Fails as the records do.
    RowFinder(RecordSet& records, ShownText shown, Progress progress)
        : records_(records), shown_(std::move(shown)), progress_(std::move(progress)) {}

    /// The numbers of the records that the query wants, in its order; nothing when the walk was ended. A
    /// column in which every text is a number is sorted by value.
    std::optional<std::vector<std::uint32_t>> find(const RowQuery& query);

  private:
    using Places = std::vector<std::uint32_t>;
    bool collect(const RowQuery& query, Places& places);
    bool sort(const RowQuery& query, Places& places);
    bool step();

    RecordSet& records_;
    ShownText shown_;
    Progress progress_;
    std::size_t done_ = 0;
    std::size_t all_ = 0;
};

}  // namespace pellmark
