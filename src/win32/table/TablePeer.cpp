#include "win32/table/TablePeer.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "win32/WideText.h"
#include "win32/forms/FormWindow.h"
#include "win32/table/TypedText.h"

#include <uxtheme.h>

namespace pellmark {

namespace {

constexpr Twips kSpaceBetweenLines = 5 * kTwipsPerPixelAt96Dpi;
constexpr int kRowsOfALongWay = 32;

void paintEmpty(HWND header) {
    PAINTSTRUCT paint{};
    const HDC canvas = ::BeginPaint(header, &paint);
    ::FillRect(canvas, &paint.rcPaint, ::GetSysColorBrush(COLOR_WINDOW));
    ::EndPaint(header, &paint);
}

bool isDown(int key) {
    return ::GetKeyState(key) < 0;
}

}  // namespace

TablePeer::TablePeer(FormWindow& form, Control& control, std::unique_ptr<ShownTable> table)
    : ControlPeer(form, control), table_(std::move(table)) {}

void TablePeer::create(HWND parent, bool movableColumns) {
    createWindow(
        parent, WC_LISTVIEWW,
        LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS | LVS_SHAREIMAGELISTS | WS_CLIPCHILDREN | WS_BORDER);
    DWORD extended = LVS_EX_FULLROWSELECT;
    if (movableColumns) extended |= LVS_EX_HEADERDRAGDROP;
    ::SendMessageW(window(), LVM_SETEXTENDEDLISTVIEWSTYLE, extended, extended);
    selection_.emplace(window(), *table_);
    header_.emplace(window(), *table_);
    painter_.emplace(window(), *table_, *header_);
    watchInner(header_->window());
    showFont();
    showAll();
}

// --- model to window --------------------------------------------------------------------------------------

void TablePeer::showAll() {
    showColumns();
    showRows();
}

HFONT TablePeer::font() const {
    return font_ ? font_.get() : form().font();
}

void TablePeer::showFont() {
    const Font wanted = table_->font();
    if (shownFont_ == wanted) return;
    shownFont_ = wanted;
    const FontHandle old = std::move(font_);  // the window uses it until it has the other
    font_.reset();
    if (wanted != Font{}) font_ = form().surroundings().fontOf(wanted, scale().dpi());
    ::SendMessageW(window(), WM_SETFONT, reinterpret_cast<WPARAM>(font()), TRUE);
    painter_->forgetFonts();
    fitRows();
}

void TablePeer::showColumns() {
    header_->rebuild(scale());
}

void TablePeer::showRows() {
    const TableSelection::Showing quiet(*selection_);
    ::SendMessageW(window(), LVM_SETITEMCOUNT, static_cast<WPARAM>(table_->rows()), LVSICF_NOSCROLL);
    selection_->countChanged();
    selection_->show();
    selection_->showCurrent();
    ::InvalidateRect(window(), nullptr, FALSE);
}

void TablePeer::showRow(int row) {
    if (row < 0) {
        ::InvalidateRect(window(), nullptr, FALSE);
    } else {
        // The control's own idea of a row leaves out the margin at its left.
        RECT line{};
        line.left = LVIR_BOUNDS;
        ::SendMessageW(window(), LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&line));
        RECT client{};
        ::GetClientRect(window(), &client);
        line.left = client.left;
        line.right = client.right;
        ::InvalidateRect(window(), &line, FALSE);
    }
}

void TablePeer::scrollTo(int row) {
    ::SendMessageW(window(), LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

void TablePeer::scrollTo(Cell cell) {
    scrollTo(cell.row);
    if (FormScroll::isMousePressed()) return;
    RECT client{};
    ::GetClientRect(window(), &client);
    const RECT shown = cellRect(cell);
    // Of a column that is wider than the window its beginning.
    const LONG right = std::min(shown.right, shown.left + client.right);
    const LONG way = std::min(shown.left, std::max<LONG>(right - client.right, 0));
    if (way != 0) ::SendMessageW(window(), LVM_SCROLL, static_cast<WPARAM>(way), 0);
    form().scroll().reveal(window(), cellRect(cell));
}

int TablePeer::topRow() const {
    return static_cast<int>(::SendMessageW(window(), LVM_GETTOPINDEX, 0, 0));
}

void TablePeer::scrollToTop(int row) {
    RECT line{};
    line.left = LVIR_BOUNDS;
    ::SendMessageW(window(), LVM_GETITEMRECT, static_cast<WPARAM>(topRow()), reinterpret_cast<LPARAM>(&line));
    // The window scrolls by pixels and is asked for whole rows.
    ::SendMessageW(window(), LVM_SCROLL, 0, LPARAM{row - topRow()} * (line.bottom - line.top));
}

void TablePeer::rescale() {
    const int top = topRow();
    ControlPeer::rescale();
    shownFont_.reset();
    showFont();
    header_->rebuild(scale());
    scrollToTop(top);
}

void TablePeer::paint() {
    // Drawn in memory that the processor owns: text drawn on the screen's own bitmaps, as the control's
    // double buffering does it, is slow where the screen is far.
    PAINTSTRUCT paint{};
    const HDC screen = ::BeginPaint(window(), &paint);
    HDC canvas = nullptr;
    const HPAINTBUFFER buffer =
        ::BeginBufferedPaint(screen, &paint.rcPaint, BPBF_TOPDOWNDIB, nullptr, &canvas);
    if (buffer == nullptr) canvas = screen;
    ::FillRect(canvas, &paint.rcPaint, ::GetSysColorBrush(COLOR_WINDOW));
    defaultMessage(window(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(canvas), PRF_CLIENT);
    painter_->drawFocus(canvas);
    if (buffer != nullptr) ::EndBufferedPaint(buffer, TRUE);
    ::EndPaint(window(), &paint);
}

void TablePeer::fitRows() {
    TEXTMETRICW metrics{};
    const HDC canvas = ::GetDC(window());
    const HGDIOBJ old = ::SelectObject(canvas, font());
    ::GetTextMetricsW(canvas, &metrics);
    ::SelectObject(canvas, old);
    ::ReleaseDC(window(), canvas);
    // Rows are as high as the list's pictures, of which there are none: one of the wanted height says so.
    const int height = static_cast<int>(metrics.tmHeight) + scale().pixels(kSpaceBetweenLines);
    Handle<HIMAGELIST, &::ImageList_Destroy> pictures(::ImageList_Create(1, height, ILC_COLOR, 0, 1));
    ::SendMessageW(window(), LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(pictures.get()));
    rowHeight_ = std::move(pictures);
}

void TablePeer::controlChanged(ControlChange change) {
    if (change == ControlChange::Caption) return;
    ControlPeer::controlChanged(change);
    if (change == ControlChange::Enabled) ::InvalidateRect(window(), nullptr, FALSE);
}

// --- places -----------------------------------------------------------------------------------------------

TablePeer::Cell TablePeer::cellAt(POINT at) const {
    LVHITTESTINFO test{};
    test.pt = at;
    ::SendMessageW(window(), LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&test));
    if (test.iItem < 0 || (test.flags & LVHT_ONITEM) == 0) return {};
    for (int column = 0; column < table_->columns(); ++column) {
        const RECT heading = header_->columnRect(column);
        if (at.x >= heading.left && at.x < heading.right) return {test.iItem, column};
    }
    return {};
}

RECT TablePeer::cellRect(Cell cell) const {
    RECT line{};
    line.left = LVIR_BOUNDS;
    ::SendMessageW(window(), LVM_GETITEMRECT, static_cast<WPARAM>(cell.row), reinterpret_cast<LPARAM>(&line));
    const RECT heading = header_->columnRect(cell.column);
    return {heading.left, line.top, heading.right, line.bottom};
}

POINT TablePeer::keyboardMenuPoint() const {
    RECT client{};
    ::GetClientRect(window(), &client);
    const RECT first = table_->columns() > 0 ? header_->columnRect(0) : RECT{};
    POINT at{std::max<LONG>(first.left, 0) + scale().pixels(Twips{120}), first.bottom};
    if (table_->current() >= 0 && table_->columns() > 0) at.y = cellRect({table_->current(), 0}).bottom;
    at.y = std::clamp(at.y, first.bottom, std::max(client.bottom, first.bottom));
    return at;
}

// --- window to model --------------------------------------------------------------------------------------

std::optional<LRESULT> TablePeer::notified(NMHDR& header) {
    switch (header.code) {
        case LVN_GETDISPINFOW:
            fillItem(reinterpret_cast<NMLVDISPINFOW&>(header).item);
            return 0;
        case LVN_ITEMCHANGED:
            showRow(reinterpret_cast<NMLISTVIEW&>(header).iItem);
            selection_->itemChanged(reinterpret_cast<NMLISTVIEW&>(header));
            return 0;
        case LVN_ODSTATECHANGED:
            showRow(-1);
            selection_->rangeChanged(reinterpret_cast<NMLVODSTATECHANGE&>(header));
            return 0;
        case LVN_ODFINDITEMW:
            return findTyped(*table_, reinterpret_cast<NMLVFINDITEMW&>(header));
        case LVN_COLUMNCLICK:
            headingClicked(reinterpret_cast<NMLISTVIEW&>(header).iSubItem);
            return 0;
        case NM_CUSTOMDRAW:
            return painter_->draw(reinterpret_cast<NMLVCUSTOMDRAW&>(header), font(), scale());
        default:
            return std::nullopt;
    }
}

void TablePeer::fillItem(LVITEMW& item) const {
    if ((item.mask & LVIF_TEXT) == 0 || item.cchTextMax <= 0 || item.pszText == nullptr) return;
    const std::wstring text = toWide(table_->text(item.iItem, item.iSubItem));
    const auto length = std::min(text.size(), static_cast<std::size_t>(item.cchTextMax - 1));
    std::copy_n(text.c_str(), length, item.pszText);
    item.pszText[length] = L'\0';
}

void TablePeer::tipFor(POINT at) {
    const Cell cell = cellAt(at);
    if (cell == tipCell_) return;
    tipCell_ = cell;
    std::string tip = control()->toolTip();
    if (cell.row >= 0) {
        const bool isCut = painter_->isCut(cell.row, cell.column, font(), scale());
        const std::string note = table_->style(cell.row, cell.column).note;
        if (isCut) tip = table_->text(cell.row, cell.column);
        if (!note.empty()) tip = isCut ? tip + " (" + note + ")" : note;
    }
    form().toolTips().set(window(), tip);
}

// --- moving the selection ---------------------------------------------------------------------------------

bool TablePeer::movesSelection(UINT message, WPARAM wParam) const {
    if (message == WM_CHAR) return wParam > VK_SPACE;
    if (message != WM_KEYDOWN) return false;
    return wParam == VK_UP || wParam == VK_DOWN || wParam == VK_PRIOR || wParam == VK_NEXT ||
           wParam == VK_HOME || wParam == VK_END;
}

LRESULT TablePeer::moveSelection(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_LBUTTONDOWN || message == WM_LBUTTONUP) return clickRow(message, wParam, lParam);
    const auto perform = [&] { return defaultMessage(window(), message, wParam, lParam); };
    if (!movesSelection(message, wParam) || isDown(VK_CONTROL) || isDown(VK_MENU)) return perform();
    if (!isDown(VK_SHIFT)) return selection_->moveToOneRow(perform);
    if (message == WM_CHAR) return perform();
    if (wParam == VK_DOWN && selection_->extendBy(1)) return 0;
    if (wParam == VK_UP && selection_->extendBy(-1)) return 0;
    return selection_->moveToRange(wParam == VK_HOME || wParam == VK_END, perform);
}

LRESULT TablePeer::clickRow(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto perform = [&] { return defaultMessage(window(), message, wParam, lParam); };
    LVHITTESTINFO test{};
    test.pt = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    const auto row =
        static_cast<int>(::SendMessageW(window(), LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&test)));
    const bool isOnRow = row >= 0 && (test.flags & LVHT_ONITEM) != 0;
    const bool isSelected = isOnRow && table_->isSelected(row);
    const bool pressedSelected =
        std::exchange(pressedSelected_, message == WM_LBUTTONDOWN && isSelected && (wParam & MK_SHIFT) == 0);
    if ((wParam & MK_CONTROL) != 0 || !isOnRow) return perform();
    if (message == WM_LBUTTONDOWN && (wParam & MK_SHIFT) != 0) {
        const auto mark = static_cast<int>(::SendMessageW(window(), LVM_GETSELECTIONMARK, 0, 0));
        return selection_->moveToRange(std::abs(row - mark) > kRowsOfALongWay, perform);
    }
    const bool selectsRow = message == WM_LBUTTONDOWN ? !isSelected : pressedSelected && isSelected;
    return selectsRow ? selection_->moveToOneRow(perform) : perform();
}

std::optional<LRESULT> TablePeer::message(UINT message, WPARAM wParam, LPARAM lParam) {
    const POINT at{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    switch (message) {
        case WM_PAINT:
            paint();
            return 0;
        case WM_SIZE: {
            const LRESULT result = defaultMessage(window(), message, wParam, lParam);
            if (header_) header_->stretch(scale());
            return result;
        }
        case WM_ERASEBKGND:
            return 1;  // painted with the rows, in one go
        case WM_CHAR:
        case WM_LBUTTONDOWN:
        case WM_LBUTTONUP:
            return moveSelection(message, wParam, lParam);
        case WM_MOUSEMOVE:
            tipFor(at);
            break;
        case WM_LBUTTONDBLCLK: {
            const LRESULT result = defaultMessage(window(), message, wParam, lParam);
            if (control() != nullptr) cellDoubleClicked(cellAt(at));
            return result;
        }
        case WM_KEYDOWN:
            if (wParam == 'A' && isDown(VK_CONTROL) && !isDown(VK_MENU)) {
                table_->selectAll();
                if (control() != nullptr) selection_->show();
                return 0;
            }
            // The window would measure every row to fit the columns.
            if (wParam == VK_ADD && isDown(VK_CONTROL)) return 0;
            return moveSelection(message, wParam, lParam);
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            showRow(table_->current());
            break;
        case WM_NOTIFY: {
            // The header's notifications arrive here first, in either character set.
            const auto& header = *reinterpret_cast<const NMHEADERW*>(lParam);
            if (header.hdr.hwndFrom != header_->window()) break;
            if (header.hdr.code == HDN_DIVIDERDBLCLICKW || header.hdr.code == HDN_DIVIDERDBLCLICKA) {
                header_->fit(header.iItem, scale(), font());
                return 0;
            }
            break;
        }
        default:
            break;
    }
    return ControlPeer::message(message, wParam, lParam);
}

std::optional<LRESULT> TablePeer::innerMessage(HWND inner, UINT message, WPARAM wParam, LPARAM lParam) {
    POINT at{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    const auto inList = [&] {
        ::MapWindowPoints(inner, window(), &at, 1);
        return at;
    };
    switch (message) {
        case WM_PAINT:
            // A header without columns leaves on the screen whatever was there before.
            if (table_->columns() == 0) {
                paintEmpty(inner);
                return 0;
            }
            defaultMessage(inner, message, wParam, lParam);
            header_->paintArrow(scale());
            return 0;
        case WM_LBUTTONUP: {
            const LRESULT result = defaultMessage(inner, message, wParam, lParam);
            if (control() != nullptr) header_->takeChanges(scale());
            return result;
        }
        case WM_LBUTTONDOWN: {
            const LRESULT result = defaultMessage(inner, message, wParam, lParam);
            if (control() != nullptr) headingPressed(header_->columnAt(at), MouseButton::Left, inList());
            return result;
        }
        case WM_RBUTTONUP:
            headingPressed(header_->columnAt(at), MouseButton::Right, inList());
            return 0;
        case WM_CONTEXTMENU:
            return 0;
        case WM_LBUTTONDBLCLK: {
            // Clicked twice, a heading is clicked once more: not every version of the control sees that in a
            // double click.
            const int column = header_->columnAt(at);
            const LRESULT result =
                defaultMessage(inner, column >= 0 ? WM_LBUTTONDOWN : message, wParam, lParam);
            if (control() != nullptr && column >= 0) headingDoubleClicked(column);
            return result;
        }
        default:
            return std::nullopt;
    }
}

}  // namespace pellmark
