#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/Guid.h"

namespace pellmark {

/// The row data of a grid: the id of each slot's record, and the slot of an id. A block of GUIDs costs 16
/// bytes each plus five or so from the first look-up on; other texts are kept one by one.
class RowKeys {
  public:
    /// Gives slots 0 to keys.size() - 1 their ids and forgets everything else.
    void assign(std::vector<Guid> keys);
    void clear();
    void set(std::size_t slot, const std::string& text);
    /// "" when the slot has none.
    std::string at(std::size_t slot) const;
    /// The lowest slot with that text, case ignored, that `accept` takes; nothing when there is none.
    std::optional<std::size_t> find(const Guid& guid, const std::function<bool(std::size_t)>& accept) const;
    std::optional<std::size_t> find(std::string_view text,
                                    const std::function<bool(std::size_t)>& accept) const;

  private:
    static constexpr std::uint32_t kFree = 0xFFFFFFFFU;
    std::optional<std::size_t> findPacked(const Guid& guid,
                                          const std::function<bool(std::size_t)>& accept) const;
    std::optional<std::size_t> findText(const std::string& lower,
                                        const std::function<bool(std::size_t)>& accept) const;
    void buildIndex() const;
    std::size_t bucketOf(const Guid& guid) const;

    std::vector<Guid> packed_;
    std::unordered_map<std::size_t, std::string> texts_;             ///< set one by one; they hide packed ids
    std::unordered_multimap<std::string, std::size_t> slotsOfText_;  ///< by lower-case text
    mutable std::vector<std::uint32_t> buckets_;  ///< open addressing over packed_, made at the first look-up
};

}  // namespace pellmark
