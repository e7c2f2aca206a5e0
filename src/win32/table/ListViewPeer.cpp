#include "win32/table/ListViewPeer.h"

namespace pellmark {

ListViewPeer::ListViewPeer(FormWindow& form, ListView& list, HWND parent)
    : TablePeer(form, list, std::make_unique<ListViewTable>(list)) {
    create(parent, false);
    listChanged_ = list.listChanged.subscribe([this](const ListChange& change) { modelChanged(change); });
}

void ListViewPeer::detach() {
    listChanged_.reset();
    static_cast<ListViewTable&>(table()).detach();
    TablePeer::detach();
}

void ListViewPeer::modelChanged(const ListChange& change) {
    if (window() == nullptr) return;
    switch (change.what) {
        case ListChange::What::Items:
            showRows();
            break;
        case ListChange::What::Columns:
            showColumns();
            break;
        case ListChange::What::Selection:
            if (change.index < 0) {
                selection().show();
            } else {
                selection().showRow(change.index);
            }
            break;
        case ListChange::What::Current:
            selection().showCurrent();
            break;
        case ListChange::What::Scroll:
            scrollTo(change.index);
            break;
        case ListChange::What::Font:
            showFont();
            break;
        case ListChange::What::All:
            showFont();
            showAll();
            break;
    }
}

std::optional<LRESULT> ListViewPeer::notified(NMHDR& header) {
    // The list's own echo is muted: the window shows already what the person has done to it.
    const bool isSelection = header.code == LVN_ITEMCHANGED || header.code == LVN_ODSTATECHANGED;
    const auto quiet = isSelection ? listChanged_.mute() : nullptr;
    return TablePeer::notified(header);
}

void ListViewPeer::cellDoubleClicked(Cell cell) {
    list()->doubleClicked.raise(cell.row);
}

void ListViewPeer::headingClicked(int column) {
    list()->columnClicked.raise(column);
}

}  // namespace pellmark
