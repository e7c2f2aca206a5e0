#include "win32/controls/CheckListPeer.h"

#include "win32/WideText.h"
#include "win32/forms/FormWindow.h"
#include "win32/table/RedrawPause.h"

namespace pellmark {

namespace {

/// The state images of a box: the first is an empty one, the second a ticked one.
constexpr UINT kEmptyBox = INDEXTOSTATEIMAGEMASK(1);
constexpr UINT kTickedBox = INDEXTOSTATEIMAGEMASK(2);

}  // namespace

CheckListPeer::CheckListPeer(FormWindow& form, CheckList& list, HWND parent) : ControlPeer(form, list) {
    createWindow(parent, WC_LISTVIEWW,
                 LVS_REPORT | LVS_NOCOLUMNHEADER | LVS_SINGLESEL | LVS_SHOWSELALWAYS | WS_BORDER);
    constexpr DWORD kExtended = LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER;
    ::SendMessageW(window(), LVM_SETEXTENDEDLISTVIEWSTYLE, kExtended, kExtended);
    LVCOLUMNW column{};
    column.mask = LVCF_WIDTH;
    ::SendMessageW(window(), LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    fitColumn();
    showItems();
    itemsChanged_ = list.itemsChanged.subscribe([this] { showItems(); });
    selectionChanged_ = list.selectionChanged.subscribe([this](int item) { showSelection(item); });
}

void CheckListPeer::detach() {
    itemsChanged_.reset();
    selectionChanged_.reset();
    ControlPeer::detach();
}

void CheckListPeer::rescale() {
    ControlPeer::rescale();
    remakeBoxes();
    fitColumn();
}

/// The list draws its boxes once, in the size of the screen that it is on then.
void CheckListPeer::remakeBoxes() {
    filling_ = true;
    ::SendMessageW(window(), LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_CHECKBOXES, 0);
    ::SendMessageW(window(), LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_CHECKBOXES, LVS_EX_CHECKBOXES);
    for (int i = 0; i < list()->count(); ++i)
        showSelection(i);
    filling_ = false;
}

void CheckListPeer::fitColumn() {
    RECT client{};
    ::GetClientRect(window(), &client);
    ::SendMessageW(window(), LVM_SETCOLUMNWIDTH, 0, client.right);
}

void CheckListPeer::showItems() {
    if (window() == nullptr) return;
    const RedrawPause pause(window());
    filling_ = true;
    ::SendMessageW(window(), LVM_DELETEALLITEMS, 0, 0);
    for (int i = 0; i < list()->count(); ++i) {
        std::wstring text = toWide(list()->items()[static_cast<std::size_t>(i)].text);
        LVITEMW item{};
        item.mask = LVIF_TEXT;
        item.iItem = i;
        item.pszText = text.data();
        ::SendMessageW(window(), LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        showSelection(i);
    }
    // The keys begin somewhere.
    LVITEMW first{};
    first.stateMask = LVIS_FOCUSED | LVIS_SELECTED;
    first.state = first.stateMask;
    ::SendMessageW(window(), LVM_SETITEMSTATE, 0, reinterpret_cast<LPARAM>(&first));
    filling_ = false;
}

void CheckListPeer::showSelection(int index) {
    LVITEMW item{};
    item.stateMask = LVIS_STATEIMAGEMASK;
    item.state = list()->isSelected(index) ? kTickedBox : kEmptyBox;
    ::SendMessageW(window(), LVM_SETITEMSTATE, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
}

std::optional<LRESULT> CheckListPeer::notified(NMHDR& header) {
    if (header.code != LVN_ITEMCHANGED || filling_) return std::nullopt;
    const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
    const UINT box = change.uNewState & LVIS_STATEIMAGEMASK;
    if (box == 0 || box == (change.uOldState & LVIS_STATEIMAGEMASK)) return std::nullopt;
    const auto quiet = selectionChanged_.mute();
    list()->setSelected(change.iItem, box == kTickedBox);
    return 0;
}

std::optional<LRESULT> CheckListPeer::message(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SIZE) {
        const LRESULT result = defaultMessage(window(), message, wParam, lParam);
        fitColumn();
        return result;
    }
    return ControlPeer::message(message, wParam, lParam);
}

void CheckListPeer::controlChanged(ControlChange change) {
    if (change != ControlChange::Caption) ControlPeer::controlChanged(change);
}

}  // namespace pellmark
