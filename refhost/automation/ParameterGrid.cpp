#include "refhost/automation/ParameterGrid.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "automation/Module.h"

namespace norvex {

namespace {

using pellmark::fromWide;
using pellmark::toWide;

enum Column { kCaption, kValue, kUnit, kSource, kColumns };

constexpr const char* kHeadings[kColumns] = {"Parameter", "Value", "Unit", "Source"};
constexpr int kShares[kColumns] = {36, 34, 13, 17};  // of the width, in hundredths
constexpr WPARAM kLastUnprintable = 0x20;

}  // namespace

void ParameterGrid::attach(HWND list) {
    list_ = list;
    ListView_SetExtendedListViewStyle(list_, LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    SetWindowLongPtrW(list_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    listBefore_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(list_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ParameterGrid::listProcedure)));
    spaceRows();
    addColumns();
    fill();
}

void ParameterGrid::spaceRows() {
    TEXTMETRICW metrics{};
    const HDC canvas = GetDC(list_);
    const HGDIOBJ before = SelectObject(canvas, GetWindowFont(list_));
    GetTextMetricsW(canvas, &metrics);
    SelectObject(canvas, before);
    ReleaseDC(list_, canvas);
    // Rows are as high as the list's pictures, of which there are none: one of the wanted height says so.
    const int height = static_cast<int>(metrics.tmHeight) * 5 / 4;
    ListView_SetImageList(list_, ImageList_Create(1, height, ILC_COLOR, 0, 1), LVSIL_SMALL);
}

void ParameterGrid::addColumns() {
    for (int column = 0; column < kColumns; ++column) {
        std::wstring heading = texts_.wide(kHeadings[column]);
        LVCOLUMNW description{};
        description.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
        description.pszText = heading.data();
        description.cx = 50;
        description.iSubItem = column;
        SendMessageW(list_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&description));
    }
}

void ParameterGrid::fill() {
    cancelEdit();
    ListView_DeleteAllItems(list_);
    for (std::size_t row = 0; row < editor_.count(); ++row) {
        LVITEMW item{};
        item.iItem = static_cast<int>(row);
        SendMessageW(list_, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
    refresh();
    fitColumns();
    select(0);
}

void ParameterGrid::refresh() {
    for (std::size_t index = 0; index < editor_.count(); ++index) {
        const EditorRow row = editor_.row(index);
        const int at = static_cast<int>(index);
        setCell(at, kCaption, texts_.of(row.caption));
        setCell(at, kValue, row.value);
        setCell(at, kUnit, row.unit);
        setCell(at, kSource, texts_.of(row.source));
    }
}

void ParameterGrid::setCell(int row, int column, const std::string& text) {
    std::wstring wide = toWide(text);
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = wide.data();
    SendMessageW(list_, LVM_SETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void ParameterGrid::place(const RECT& area) {
    cancelEdit();
    SetWindowPos(list_, nullptr, area.left, area.top, area.right - area.left, area.bottom - area.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    fitColumns();
}

void ParameterGrid::fitColumns() {
    RECT area{};
    GetClientRect(list_, &area);
    int left = area.right;
    for (int column = 0; column < kColumns; ++column) {
        const int width = column == kSource ? left : area.right * kShares[column] / 100;
        ListView_SetColumnWidth(list_, column, width);
        left -= width;
    }
}

int ParameterGrid::selected() const {
    return ListView_GetNextItem(list_, -1, LVNI_FOCUSED);
}

void ParameterGrid::select(std::size_t row) {
    if (row >= editor_.count()) return;
    const int at = static_cast<int>(row);
    ListView_SetItemState(list_, -1, 0, LVIS_SELECTED);
    ListView_SetItemState(list_, at, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_EnsureVisible(list_, at, FALSE);
}

HWND ParameterGrid::makeInput(const EditorRow& row, const RECT& cell) {
    const HINSTANCE instance = pellmark::module::instance();
    constexpr int kRowsOfList = 12;
    const DWORD style = WS_CHILD | WS_VISIBLE;
    if (!row.isChoice) {
        return CreateWindowExW(0, L"EDIT", toWide(row.value).c_str(), style | WS_BORDER | ES_AUTOHSCROLL,
                               cell.left, cell.top, cell.right - cell.left, cell.bottom - cell.top, list_,
                               nullptr, instance, nullptr);
    }
    const HWND combo = CreateWindowExW(
        0, L"COMBOBOX", nullptr, style | WS_VSCROLL | CBS_DROPDOWNLIST, cell.left, cell.top,
        cell.right - cell.left, (cell.bottom - cell.top) * kRowsOfList, list_, nullptr, instance, nullptr);
    SendMessageW(combo, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), cell.bottom - cell.top - 6);
    for (const char* choice : choices())
        SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(toWide(choice).c_str()));
    SendMessageW(combo, CB_SELECTSTRING, static_cast<WPARAM>(-1),
                 reinterpret_cast<LPARAM>(toWide(row.value).c_str()));
    return combo;
}

void ParameterGrid::beginEdit(wchar_t first) {
    const int row = selected();
    if (row < 0 || !endEdit()) return;
    const EditorRow values = editor_.row(static_cast<std::size_t>(row));
    if (!values.isEditable) {
        tried(editor_.lockOf(static_cast<std::size_t>(row)));
        return;
    }
    RECT cell{};
    ListView_EnsureVisible(list_, row, FALSE);
    ListView_GetSubItemRect(list_, row, kValue, LVIR_LABEL, &cell);
    inputRow_ = row;
    input_ = makeInput(values, cell);
    SendMessageW(input_, WM_SETFONT, reinterpret_cast<WPARAM>(GetWindowFont(list_)), TRUE);
    SetWindowLongPtrW(input_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    inputBefore_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(input_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ParameterGrid::inputProcedure)));
    SetFocus(input_);
    if (!values.isChoice) SendMessageW(input_, EM_SETSEL, 0, -1);
    if (first != 0) SendMessageW(input_, WM_CHAR, first, 1);
}

bool ParameterGrid::endEdit() {
    if (input_ == nullptr || isEnding_) return true;
    const std::string reason = editor_.setText(static_cast<std::size_t>(inputRow_), fromWide(textOf(input_)));
    tried(reason);
    if (!reason.empty()) {
        SendMessageW(input_, EM_SETSEL, 0, -1);
        return false;
    }
    cancelEdit();
    refresh();
    return true;
}

void ParameterGrid::cancelEdit() {
    if (input_ == nullptr || isEnding_) return;
    isEnding_ = true;  // the input loses the focus while it goes
    const bool hadFocus = GetFocus() == input_;
    DestroyWindow(std::exchange(input_, nullptr));
    inputRow_ = -1;
    isEnding_ = false;
    if (hadFocus) SetFocus(list_);
}

bool ParameterGrid::finish(Move move) {
    const int row = inputRow_;
    if (!endEdit()) return true;
    const int next = row + (move == Move::Down ? 1 : move == Move::Up ? -1 : 0);
    const int last = static_cast<int>(editor_.count()) - 1;
    select(static_cast<std::size_t>(std::clamp(next, 0, last)));
    return true;
}

bool ParameterGrid::inputKey(WPARAM key) {
    const bool isList = editor_.row(static_cast<std::size_t>(inputRow_)).isChoice;
    switch (key) {
        case VK_RETURN:
            return finish(Move::Down);
        case VK_TAB:
            return finish(GetKeyState(VK_SHIFT) < 0 ? Move::Up : Move::Down);
        case VK_DOWN:
            return !isList && finish(Move::Down);
        case VK_UP:
            return !isList && finish(Move::Up);
        case VK_ESCAPE:
            cancelEdit();
            tried({});
            return true;
        default:
            return false;
    }
}

bool ParameterGrid::notified(const NMHDR& header, LRESULT& result) {
    if (header.hwndFrom != list_) return false;
    if (header.code == NM_DBLCLK) {
        beginEdit();
        return true;
    }
    if (header.code != NM_CUSTOMDRAW) return false;
    auto& draw = const_cast<NMLVCUSTOMDRAW&>(reinterpret_cast<const NMLVCUSTOMDRAW&>(header));
    result = CDRF_DODEFAULT;
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) result = CDRF_NOTIFYITEMDRAW;
    const auto row = static_cast<std::size_t>(draw.nmcd.dwItemSpec);
    if (draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT && row < editor_.count() && !editor_.row(row).isEditable)
        draw.clrText = GetSysColor(COLOR_GRAYTEXT);
    return true;
}

bool ParameterGrid::listMessage(UINT message, WPARAM wide) {
    switch (message) {
        case WM_KEYDOWN:
            if (wide != VK_F2) return false;
            beginEdit();
            return true;
        case WM_CHAR:
            // The list would look for a row that begins with it.
            if (wide <= kLastUnprintable) return false;
            beginEdit(static_cast<wchar_t>(wide));
            return true;
        case WM_VSCROLL:
        case WM_HSCROLL:
        case WM_MOUSEWHEEL:
            cancelEdit();
            return false;
        default:
            return false;
    }
}

bool ParameterGrid::inputMessage(UINT message, WPARAM wide) {
    if (message == WM_KEYDOWN) return inputKey(wide);
    // The characters of those keys beep in an edit control.
    if (message == WM_CHAR) return wide == VK_RETURN || wide == VK_TAB || wide == VK_ESCAPE;
    if (message == WM_KILLFOCUS && !IsChild(input_, reinterpret_cast<HWND>(wide))) {
        // What is refused once the person has gone elsewhere is given up: the reason stands in the dialog.
        if (!endEdit()) cancelEdit();
        return true;
    }
    return false;
}

LRESULT CALLBACK ParameterGrid::listProcedure(HWND window, UINT message, WPARAM wide, LPARAM data) {
    auto& self = *reinterpret_cast<ParameterGrid*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    try {
        if (self.listMessage(message, wide)) return 0;
    } catch (...) {
        return 0;  // nothing may be thrown through the system; the value stays as it was
    }
    return CallWindowProcW(self.listBefore_, window, message, wide, data);
}

LRESULT CALLBACK ParameterGrid::inputProcedure(HWND window, UINT message, WPARAM wide, LPARAM data) {
    auto& self = *reinterpret_cast<ParameterGrid*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    const WNDPROC before = self.inputBefore_;
    if (message == WM_GETDLGCODE)
        return DLGC_WANTALLKEYS | CallWindowProcW(before, window, message, wide, data);
    try {
        if (window == self.input_ && self.inputMessage(message, wide)) return 0;
    } catch (...) {
        return 0;  // as above
    }
    return CallWindowProcW(before, window, message, wide, data);
}

}  // namespace norvex
