#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/Event.h"
#include "controls/Control.h"

namespace pellmark {

/// A short list of choices, each selected or not whatever the others are, and drawn with a box that shows
/// which. Every item carries a number, its item data.
class CheckList : public Control {
  public:
    struct Item {
        std::string text;
        int itemData = 0;
        bool selected = false;
    };

    CheckList(Container& parent, std::string name) : Control(Kind::CheckList, &parent, std::move(name)) {}

    const std::vector<Item>& items() const { return items_; }
    int count() const { return static_cast<int>(items_.size()); }
    /// Adds an item that is not selected.
    void addItem(std::string text, int itemData) {
        items_.push_back({std::move(text), itemData, false});
        itemsChanged.raise();
    }
    void clear() {
        items_.clear();
        itemsChanged.raise();
    }

    /// False outside the list.
    bool isSelected(int index) const {
        return contains(index) && items_[static_cast<std::size_t>(index)].selected;
    }
    /// Does nothing outside the list.
    void setSelected(int index, bool selected) {
        if (isSelected(index) == selected || !contains(index)) return;
        items_[static_cast<std::size_t>(index)].selected = selected;
        selectionChanged.raise(index);
    }

    Event<> itemsChanged;
    Event<int> selectionChanged;  ///< by code or by a person; the item's index

  private:
    bool contains(int index) const { return index >= 0 && index < count(); }

    std::vector<Item> items_;
};

}  // namespace pellmark
