#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pellmark {

/// The choices of a grid column: "#70;Inch|#71;Metric" pairs stored values with shown texts, "a|b" stores
/// what it shows. Values that the list lacks are shown as they are stored.
class DisplayList {
  public:
    struct Item {
        std::string stored;
        std::string shown;
    };

    DisplayList() = default;
    explicit DisplayList(std::string_view text);

    const std::vector<Item>& items() const { return items_; }
    bool empty() const { return items_.empty(); }
    /// The shown text of a stored value, the value itself when the list lacks it.
    const std::string& shownFor(const std::string& stored) const;
    /// Position of a stored value, -1 when the list lacks it.
    int indexOf(std::string_view stored) const;
    /// The list as text, as a grid column takes it.
    std::string text() const;
    /// Adds a pair; a "|" within the shown text cannot be expressed and becomes a blank.
    void add(std::string stored, std::string shown);

  private:
    std::vector<Item> items_;
};

}  // namespace pellmark
