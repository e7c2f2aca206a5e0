#include "controls/grid/DisplayList.h"

#include <algorithm>

#include "base/Text.h"

namespace pellmark {

DisplayList::DisplayList(std::string_view text) {
    if (text.empty()) return;
    for (std::string& piece : split(text, '|')) {
        const std::size_t divider = piece.find(';');
        if (!piece.empty() && piece.front() == '#' && divider != std::string::npos) {
            items_.push_back({piece.substr(1, divider - 1), piece.substr(divider + 1)});
        } else {
            items_.push_back({piece, piece});
        }
    }
}

const std::string& DisplayList::shownFor(const std::string& stored) const {
    const int index = indexOf(stored);
    return index < 0 ? stored : items_[static_cast<std::size_t>(index)].shown;
}

int DisplayList::indexOf(std::string_view stored) const {
    const auto found =
        std::find_if(items_.begin(), items_.end(), [&](const Item& item) { return item.stored == stored; });
    return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
}

std::string DisplayList::text() const {
    std::string text;
    for (const Item& item : items_) {
        if (!text.empty()) text += '|';
        text += item.stored == item.shown ? item.shown : "#" + item.stored + ";" + item.shown;
    }
    return text;
}

void DisplayList::add(std::string stored, std::string shown) {
    items_.push_back({std::move(stored), replaced(std::move(shown), '|', ' ')});
}

}  // namespace pellmark
