#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/Font.h"
#include "controls/Control.h"

namespace pellmark {

/// One line of a report list.
struct ListItem {
    std::string key;                    ///< unique in its list, case ignored, as ids are
    std::string text;                   ///< the caption, in the first column
    std::vector<std::string> subItems;  ///< for the second column onward
};

struct ColumnHeader {
    std::string text;
    Twips width = 1440;
    bool widthChosen = false;  ///< by a person or a stored layout: the form's own layout leaves it alone
};

enum class SortOrder { Ascending, Descending };

/// What about a list the peer must show anew.
struct ListChange {
    enum class What { Items, Columns, Selection, Current, Scroll, Font, All };
    What what = What::All;
    int index = -1;  ///< for Selection, Current and Scroll: the item, -1 for all or none
};

/// A report list: items with keys under column headers, several of which may be selected. Items are numbered
/// from 0 in the order shown, which is that of their adding, or the sorted one while sorting is on. Adding
/// and removing an item costs the same however many there are; the order is made up when somebody looks.
class ListView : public Control {
  public:
    ListView(Container& parent, std::string name);

    // --- columns -----------------------------------------------------------------------------------------
    const std::vector<ColumnHeader>& columnHeaders() const { return columns_; }
    void setColumnHeaders(std::vector<ColumnHeader> columns);
    /// Gives a column another heading and leaves its width.
    void setColumnHeading(int col, std::string text);
    /// A stored layout's width, which stays from then on. A column that does not exist is left alone; never
    /// narrower than nothing.
    void setColumnWidth(int col, Twips width);
    /// What the form's layout would give the column: taken as long as nobody has chosen a width.
    void suggestColumnWidth(int col, Twips width);

    // --- appearance --------------------------------------------------------------------------------------
    /// What items and headings are written in. A name or size left open is that of the form.
    const Font& font() const { return font_; }
    void setFont(const Font& font);

    // --- items -------------------------------------------------------------------------------------------
    int count() const { return static_cast<int>(slotOfKey_.size()); }
    /// Throws Error (invalid argument) when there is no such item. The reference holds until the next change.
    const ListItem& item(int index) const;
    /// What the screen shows in a column; "" outside the list.
    std::string text(int index, int col) const;
    /// -1 when there is no item with that key.
    int indexOf(std::string_view key) const;
    /// Throws Error (not unique) when an item has that key already.
    void add(ListItem item);
    void add(std::string key, std::string text) { add(ListItem{std::move(key), std::move(text), {}}); }
    /// False when there is no item with that key.
    bool remove(std::string_view key);
    /// Removes the items; keeps columns and sorting.
    void clear();

    // --- selection ---------------------------------------------------------------------------------------
    bool isSelected(int index) const;
    void setSelected(int index, bool selected) { setSelected(index, index, selected); }
    /// The same for all items from one to another; indices outside the list are left out.
    void setSelected(int first, int last, bool selected);
    /// Selects these items and no others.
    void selectOnly(int first, int last);
    /// Makes the item current and the only selected one; an index outside the list means none.
    void select(int index);
    void selectAll();
    void clearSelection();
    int selectedCount() const { return selectedCount_; }
    /// The item with the keyboard's focus mark; -1 when there is none.
    int current() const;
    void setCurrent(int index);
    void showItem(int index);

    // --- sorting -----------------------------------------------------------------------------------------
    /// The column by which the list is sorted, from 0; it orders nothing while sorting is off.
    int sortKey() const { return sortKey_; }
    void setSortKey(int col);
    SortOrder sortOrder() const { return sortOrder_; }
    void setSortOrder(SortOrder order);
    bool sorted() const { return sorted_; }
    /// Turning sorting off keeps the order that the items have.
    void setSorted(bool sorted);

    // --- redrawing ---------------------------------------------------------------------------------------
    /// While one of these lives nobody hears of changes; then the peer hears once, and selectionChanged is
    /// raised once where the selection changed.
    class [[nodiscard]] RedrawOff {
      public:
        explicit RedrawOff(ListView& list) : list_(list) { ++list_.redrawOff_; }
        ~RedrawOff() { list_.redrawOn(); }
        RedrawOff(const RedrawOff&) = delete;
        RedrawOff& operator=(const RedrawOff&) = delete;

      private:
        ListView& list_;
    };

    // --- events ------------------------------------------------------------------------------------------
    Event<const ListChange&> listChanged;  ///< for the peer
    Event<> selectionChanged;              ///< by code or by a person
    Event<int> columnClicked;              ///< by a person, on a header
    Event<int> columnResized;              ///< by a person
    Event<int> doubleClicked;              ///< the item under the mouse, -1 beside the items

    // --- what a person does, called by the peer ----------------------------------------------------------
    void userResizedColumn(int col, Twips width);

  private:
    struct Slot {
        ListItem item;
        bool selected = false;
        bool alive = true;
    };
    struct Order {
        std::vector<std::uint32_t> slots;   ///< by index
        std::vector<std::uint32_t> places;  ///< by slot: its index
    };
    ColumnHeader* column(int col);
    void changeColumnWidth(ColumnHeader& header, Twips width);
    bool contains(int index) const { return index >= 0 && index < count(); }
    std::uint32_t slotAt(int index) const { return order().slots[static_cast<std::size_t>(index)]; }
    const Order& order() const;
    void sortSlots(std::vector<std::uint32_t>& slots) const;
    void dropHoles();
    void setSlotSelected(Slot& slot, bool selected);
    void notify(ListChange change);
    void selectionMoved(ListChange change);
    void redrawOn();

    std::vector<ColumnHeader> columns_;
    Font font_;
    std::vector<Slot> slots_;  ///< in the order of adding; removed ones stay as holes for a while
    std::unordered_map<std::string, std::uint32_t> slotOfKey_;  ///< by lower-case key
    std::optional<std::uint32_t> current_;
    int selectedCount_ = 0;
    int sortKey_ = 0;
    SortOrder sortOrder_ = SortOrder::Ascending;
    bool sorted_ = false;
    mutable std::optional<Order> order_;  ///< made when somebody asks, forgotten at every change of items
    int redrawOff_ = 0;
    std::optional<ListChange> pending_;
    std::optional<int> pendingScroll_;
    bool selectionPending_ = false;
};

}  // namespace pellmark
