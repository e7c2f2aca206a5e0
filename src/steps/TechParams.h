#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "steps/TechParam.h"

namespace pellmark {

/// The parameters of one step in the order of their adding, each under the decimal text of the CL code with
/// which it was added.
class TechParams {
  public:
    /// The new parameter, or null where that code is in the collection already; the earlier one then stays.
    std::shared_ptr<TechParam> Add(const std::string& expression, std::int32_t clCode);
    /// By position from 1, or by key ("1204", never "01204"). Throws Error (invalid argument) where there is
    /// no such member.
    std::shared_ptr<TechParam> Item(std::int32_t position) const;
    std::shared_ptr<TechParam> Item(const std::string& key) const;
    std::int32_t Count() const { return static_cast<std::int32_t>(members_.size()); }
    /// Throws as Item does.
    void Remove(std::int32_t position);
    void Remove(const std::string& key);
    /// The members in the order of their adding; a range-based loop walks the same.
    std::span<const std::shared_ptr<TechParam>> NewEnum() const { return members_; }

    std::shared_ptr<TechParam> operator[](std::int32_t position) const { return Item(position); }
    std::shared_ptr<TechParam> operator[](const std::string& key) const { return Item(key); }
    auto begin() const { return members_.begin(); }
    auto end() const { return members_.end(); }
    /// The member with that code, null when there is none.
    const TechParam* find(std::int32_t clCode) const;

  private:
    std::vector<std::shared_ptr<TechParam>> members_;
    std::unordered_map<std::string, std::shared_ptr<TechParam>> byKey_;
};

}  // namespace pellmark
