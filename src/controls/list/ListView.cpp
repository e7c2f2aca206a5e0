#include "controls/list/ListView.h"

#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "base/NaturalOrder.h"
#include "base/Text.h"

namespace pellmark {

using What = ListChange::What;

namespace {

const std::string& cellOf(const ListItem& item, int col) {
    static const std::string none;
    if (col == 0) return item.text;
    const auto sub = static_cast<std::size_t>(col - 1);
    return col > 0 && sub < item.subItems.size() ? item.subItems[sub] : none;
}

}  // namespace

ListView::ListView(Container& parent, std::string name) : Control(Kind::ListView, &parent, std::move(name)) {}

// --- columns ---------------------------------------------------------------------------------------------

void ListView::setColumnHeaders(std::vector<ColumnHeader> columns) {
    columns_ = std::move(columns);
    notify({What::Columns});
}

ColumnHeader* ListView::column(int col) {
    const bool isThere = col >= 0 && static_cast<std::size_t>(col) < columns_.size();
    return isThere ? &columns_[static_cast<std::size_t>(col)] : nullptr;
}

void ListView::setColumnHeading(int col, std::string text) {
    ColumnHeader* header = column(col);
    if (header == nullptr || header->text == text) return;
    header->text = std::move(text);
    notify({What::Columns});
}

void ListView::setColumnWidth(int col, Twips width) {
    ColumnHeader* header = column(col);
    if (header == nullptr) return;
    header->widthChosen = true;
    changeColumnWidth(*header, width);
}

void ListView::suggestColumnWidth(int col, Twips width) {
    ColumnHeader* header = column(col);
    if (header != nullptr && !header->widthChosen) changeColumnWidth(*header, width);
}

void ListView::changeColumnWidth(ColumnHeader& header, Twips width) {
    width = std::max(width, 0);
    if (header.width == width) return;
    header.width = width;
    notify({What::Columns});
}

void ListView::userResizedColumn(int col, Twips width) {
    setColumnWidth(col, width);
    columnResized.raise(col);
}

void ListView::setFont(const Font& font) {
    if (font_ == font) return;
    font_ = font;
    notify({What::Font});
}

// --- items -----------------------------------------------------------------------------------------------

const ListItem& ListView::item(int index) const {
    if (!contains(index)) {
        throw Error(errors::kInvalidArgument, "Pellmark.ListView",
                    "The list " + name() + " has no item " + std::to_string(index));
    }
    return slots_[slotAt(index)].item;
}

std::string ListView::text(int index, int col) const {
    return contains(index) ? cellOf(slots_[slotAt(index)].item, col) : std::string();
}

int ListView::indexOf(std::string_view key) const {
    const auto found = slotOfKey_.find(lowerAscii(key));
    return found == slotOfKey_.end() ? -1 : static_cast<int>(order().places[found->second]);
}

void ListView::add(ListItem item) {
    dropHoles();
    if (!slotOfKey_.try_emplace(lowerAscii(item.key), static_cast<std::uint32_t>(slots_.size())).second) {
        throw Error(errors::kNotUnique, "Pellmark.ListView",
                    "The list " + name() + " has an item with the key '" + item.key + "' already");
    }
    slots_.push_back({std::move(item)});
    order_.reset();
    notify({What::Items});
}

bool ListView::remove(std::string_view key) {
    const auto found = slotOfKey_.find(lowerAscii(key));
    if (found == slotOfKey_.end()) return false;
    const std::uint32_t gone = found->second;
    slotOfKey_.erase(found);
    order_.reset();
    if (current_ == gone) current_.reset();
    Slot& slot = slots_[gone];
    const bool wasSelected = slot.selected;
    if (wasSelected) --selectedCount_;
    slot = {{}, false, false};
    RedrawOff off(*this);
    notify({What::Items});
    selectionPending_ |= wasSelected;
    return true;
}

void ListView::clear() {
    slots_.clear();
    slotOfKey_.clear();
    order_.reset();
    current_.reset();
    RedrawOff off(*this);
    selectionPending_ |= selectedCount_ > 0;
    selectedCount_ = 0;
    notify({What::Items});
}

/// Items moved to and fro must not leave ever more holes behind; closing them when they outnumber the items
/// costs each removal a constant share.
void ListView::dropHoles() {
    if (slots_.size() < 64 || slots_.size() < 2 * slotOfKey_.size()) return;
    std::vector<Slot> kept;
    kept.reserve(slotOfKey_.size());
    std::optional<std::uint32_t> current;
    for (std::size_t old = 0; old < slots_.size(); ++old) {
        if (!slots_[old].alive) continue;
        const auto now = static_cast<std::uint32_t>(kept.size());
        if (current_ == old) current = now;
        slotOfKey_[lowerAscii(slots_[old].item.key)] = now;
        kept.push_back(std::move(slots_[old]));
    }
    slots_ = std::move(kept);
    current_ = current;
    order_.reset();
}

const ListView::Order& ListView::order() const {
    if (order_) return *order_;
    Order made;
    made.slots.reserve(slotOfKey_.size());
    for (std::size_t slot = 0; slot < slots_.size(); ++slot) {
        if (slots_[slot].alive) made.slots.push_back(static_cast<std::uint32_t>(slot));
    }
    if (sorted_) sortSlots(made.slots);
    made.places.resize(slots_.size());
    for (std::size_t index = 0; index < made.slots.size(); ++index) {
        made.places[made.slots[index]] = static_cast<std::uint32_t>(index);
    }
    return order_.emplace(std::move(made));
}

void ListView::sortSlots(std::vector<std::uint32_t>& slots) const {
    std::stable_sort(slots.begin(), slots.end(), [this](std::uint32_t left, std::uint32_t right) {
        const int compared =
            compareNatural(cellOf(slots_[left].item, sortKey_), cellOf(slots_[right].item, sortKey_));
        return sortOrder_ == SortOrder::Ascending ? compared < 0 : compared > 0;
    });
}

// --- selection -------------------------------------------------------------------------------------------

bool ListView::isSelected(int index) const {
    return contains(index) && slots_[slotAt(index)].selected;
}

void ListView::setSlotSelected(Slot& slot, bool selected) {
    if (slot.selected == selected) return;
    slot.selected = selected;
    selectedCount_ += selected ? 1 : -1;
    selectionPending_ = true;
}

void ListView::setSelected(int first, int last, bool selected) {
    const int before = selectedCount_;
    for (int index = std::max(first, 0); index <= std::min(last, count() - 1); ++index)
        setSlotSelected(slots_[slotAt(index)], selected);
    if (selectedCount_ != before) selectionMoved({What::Selection, first == last ? first : -1});
}

void ListView::selectOnly(int first, int last) {
    RedrawOff off(*this);
    setSelected(0, first - 1, false);
    setSelected(last + 1, count() - 1, false);
    setSelected(first, last, true);
}

void ListView::select(int index) {
    RedrawOff off(*this);
    clearSelection();
    setSelected(index, true);
    setCurrent(index);
}

void ListView::selectAll() {
    for (Slot& slot : slots_) {
        if (slot.alive) setSlotSelected(slot, true);
    }
    selectionMoved({What::Selection});
}

void ListView::clearSelection() {
    if (selectedCount_ == 0) return;
    for (Slot& slot : slots_)
        setSlotSelected(slot, false);
    selectionMoved({What::Selection});
}

int ListView::current() const {
    return current_ ? static_cast<int>(order().places[*current_]) : -1;
}

void ListView::setCurrent(int index) {
    const auto slot = contains(index) ? std::optional(slotAt(index)) : std::nullopt;
    if (slot == current_) return;
    current_ = slot;
    notify({What::Current, index});
}

void ListView::showItem(int index) {
    if (contains(index)) notify({What::Scroll, index});
}

// --- sorting ---------------------------------------------------------------------------------------------

void ListView::setSortKey(int col) {
    if (sortKey_ == col) return;
    sortKey_ = col;
    if (!sorted_) return;
    order_.reset();
    notify({What::Items});
}

void ListView::setSortOrder(SortOrder order) {
    if (sortOrder_ == order) return;
    sortOrder_ = order;
    if (!sorted_) return;
    order_.reset();
    notify({What::Items});
}

void ListView::setSorted(bool sorted) {
    if (sorted_ == sorted) return;
    if (!sorted) {
        // From now on the order shown is the order of adding.
        std::vector<Slot> shown;
        for (const std::uint32_t slot : order().slots)
            shown.push_back(std::move(slots_[slot]));
        if (current_) current_ = order().places[*current_];
        slots_ = std::move(shown);
        for (std::size_t slot = 0; slot < slots_.size(); ++slot) {
            slotOfKey_[lowerAscii(slots_[slot].item.key)] = static_cast<std::uint32_t>(slot);
        }
    }
    sorted_ = sorted;
    order_.reset();
    notify({What::Items});
}

// --- redrawing -------------------------------------------------------------------------------------------

void ListView::notify(ListChange change) {
    if (redrawOff_ == 0) {
        listChanged.raise(change);
        return;
    }
    if (change.what == What::Scroll) {
        pendingScroll_ = change.index;
    } else {
        pending_ = pending_ ? ListChange{What::All} : change;
    }
}

void ListView::selectionMoved(ListChange change) {
    RedrawOff off(*this);
    notify(change);
}

void ListView::redrawOn() {
    if (--redrawOff_ > 0) return;
    const auto change = std::exchange(pending_, std::nullopt);
    const auto scroll = std::exchange(pendingScroll_, std::nullopt);
    const bool selection = std::exchange(selectionPending_, false);
    if (change) listChanged.raise(*change);
    if (scroll && contains(*scroll)) listChanged.raise({What::Scroll, *scroll});
    if (selection) selectionChanged.raise();
}

}  // namespace pellmark
