#include "win32/table/TableHeader.h"

#include <algorithm>
#include <numeric>

#include "win32/WideText.h"
#include "win32/table/RedrawPause.h"

namespace pellmark {

namespace {

constexpr int kPaddingOfACell = 14;
constexpr Twips kRoomBehindAFittedColumn = 24 * kTwipsPerPixelAt96Dpi;
constexpr Twips kArrowFromTheRight = 12 * kTwipsPerPixelAt96Dpi;
constexpr Twips kHalfArrowWidth = 4 * kTwipsPerPixelAt96Dpi;
constexpr Twips kHalfArrowHeight = 2 * kTwipsPerPixelAt96Dpi;

int textWidth(HDC canvas, const std::string& text) {
    const std::wstring wide = toWide(text);
    SIZE size{};
    ::GetTextExtentPoint32W(canvas, wide.c_str(), static_cast<int>(wide.size()), &size);
    return static_cast<int>(size.cx);
}

}  // namespace

TableHeader::TableHeader(HWND list, ShownTable& table)
    : list_(list),
      header_(reinterpret_cast<HWND>(::SendMessageW(list, LVM_GETHEADER, 0, 0))),
      table_(table) {}

void TableHeader::rebuild(const Scale& scale) {
    const RedrawPause pause(list_);
    const int wanted = table_.columns();
    auto there = static_cast<int>(::SendMessageW(header_, HDM_GETITEMCOUNT, 0, 0));
    for (; there > wanted; --there)
        ::SendMessageW(list_, LVM_DELETECOLUMN, static_cast<WPARAM>(there - 1), 0);
    widths_.assign(static_cast<std::size_t>(wanted), 0);
    for (int column = 0; column < wanted; ++column) {
        std::wstring heading = toWide(table_.heading(column));
        int& width = widths_[static_cast<std::size_t>(column)];
        width = scale.pixels(table_.width(column));
        LVCOLUMNW shown{};
        shown.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT | LVCF_SUBITEM;
        shown.fmt = LVCFMT_LEFT;
        shown.cx = width;
        shown.pszText = heading.data();
        shown.iSubItem = column;
        const UINT verb = column < there ? LVM_SETCOLUMNW : LVM_INSERTCOLUMNW;
        ::SendMessageW(list_, verb, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&shown));
    }
    std::vector<int> order(static_cast<std::size_t>(wanted));
    std::iota(order.begin(), order.end(), 0);
    if (shownOrder() != order) {
        ::SendMessageW(list_, LVM_SETCOLUMNORDERARRAY, order.size(), reinterpret_cast<LPARAM>(order.data()));
    }
    stretch(scale);
    ::InvalidateRect(header_, nullptr, TRUE);
}

void TableHeader::stretch(const Scale& scale) {
    const int last = table_.columns() - 1;
    if (last < 0 || widths_.size() != static_cast<std::size_t>(last) + 1 || !table_.stretchesLast()) return;
    RECT client{};
    ::GetClientRect(list_, &client);
    const int room = static_cast<int>(client.right) - std::accumulate(widths_.begin(), widths_.end() - 1, 0);
    const int width = std::max(scale.pixels(table_.width(last)), room);
    if (width == widths_.back()) return;
    widths_.back() = width;
    ::SendMessageW(list_, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(last), width);
}

void TableHeader::paintArrow(const Scale& scale) const {
    for (int column = 0; column < table_.columns(); ++column) {
        const int sorting = table_.sorting(column);
        if (sorting == 0) continue;
        RECT heading{};
        ::SendMessageW(header_, HDM_GETITEMRECT, static_cast<WPARAM>(column),
                       reinterpret_cast<LPARAM>(&heading));
        const LONG x = heading.right - scale.pixels(kArrowFromTheRight);
        const LONG y = (heading.top + heading.bottom) / 2;
        const LONG half = scale.pixels(kHalfArrowWidth);
        if (x - half <= heading.left) return;
        const LONG base = y + sorting * scale.pixels(kHalfArrowHeight);
        const LONG tip = y - sorting * scale.pixels(kHalfArrowHeight);
        const POINT corners[] = {{x - half, base}, {x + half, base}, {x, tip}};
        const HDC canvas = ::GetDC(header_);
        const HGDIOBJ oldPen = ::SelectObject(canvas, ::GetStockObject(DC_PEN));
        const HGDIOBJ oldBrush = ::SelectObject(canvas, ::GetStockObject(DC_BRUSH));
        ::SetDCPenColor(canvas, ::GetSysColor(COLOR_BTNTEXT));
        ::SetDCBrushColor(canvas, ::GetSysColor(COLOR_BTNTEXT));
        ::Polygon(canvas, corners, 3);
        ::SelectObject(canvas, oldBrush);
        ::SelectObject(canvas, oldPen);
        ::ReleaseDC(header_, canvas);
    }
}

std::vector<int> TableHeader::shownOrder() const {
    std::vector<int> order(static_cast<std::size_t>(::SendMessageW(header_, HDM_GETITEMCOUNT, 0, 0)));
    if (!order.empty()) {
        ::SendMessageW(list_, LVM_GETCOLUMNORDERARRAY, order.size(), reinterpret_cast<LPARAM>(order.data()));
    }
    return order;
}

int TableHeader::shownWidth(int column) const {
    return static_cast<int>(::SendMessageW(list_, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
}

/// What a person arranges is what is on the screen, so the width that a column has been drawn with stays.
void TableHeader::takeStretch(const Scale& scale) {
    const auto last = static_cast<int>(widths_.size()) - 1;
    if (table_.stretchesLast() && widths_.back() != scale.pixels(table_.width(last)))
        table_.userTookWidth(last, scale.twips(widths_.back()));
}

void TableHeader::takeChanges(const Scale& scale) {
    for (std::size_t column = 0; column < widths_.size(); ++column) {
        const int width = shownWidth(static_cast<int>(column));
        if (width == widths_[column]) continue;
        takeStretch(scale);
        widths_[column] = width;
        table_.userResized(static_cast<int>(column), scale.twips(width));
        return;  // the model may have changed its columns, or be gone
    }
    const std::vector<int> order = shownOrder();
    for (std::size_t place = 0; place < order.size(); ++place) {
        if (order[place] == static_cast<int>(place)) continue;
        // One column has been dragged. Where its old place holds its right neighbour it went to the right.
        const bool toTheRight = order[place] == static_cast<int>(place) + 1;
        const int from = toTheRight ? static_cast<int>(place) : order[place];
        const auto to = std::find(order.begin(), order.end(), from) - order.begin();
        takeStretch(scale);
        table_.userMoved(from, static_cast<int>(to));
        return;
    }
}

void TableHeader::fit(int column, const Scale& scale, HFONT font) {
    const HDC canvas = ::GetDC(list_);
    const HGDIOBJ old = ::SelectObject(canvas, font);
    const int heading = textWidth(canvas, table_.heading(column));
    int widest = heading;
    // The rows on the screen stand for all others: reading a million rows is no answer to a double click.
    const auto top = static_cast<int>(::SendMessageW(list_, LVM_GETTOPINDEX, 0, 0));
    const auto page = static_cast<int>(::SendMessageW(list_, LVM_GETCOUNTPERPAGE, 0, 0));
    for (int row = top; row <= top + page && row < table_.rows(); ++row)
        widest = std::max(widest, textWidth(canvas, table_.text(row, column)));
    ::SelectObject(canvas, old);
    ::ReleaseDC(list_, canvas);
    const int padding = ::MulDiv(kPaddingOfACell, scale.dpi(), USER_DEFAULT_SCREEN_DPI);
    // Wider than the window, a column would take its own edge, by which it is narrowed again, out of reach.
    RECT client{};
    ::GetClientRect(list_, &client);
    const int room = static_cast<int>(client.right) - scale.pixels(kRoomBehindAFittedColumn);
    const int width = std::min(widest + padding, std::max(room, heading + padding));
    ::SendMessageW(list_, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), width);
    takeChanges(scale);
}

int TableHeader::columnAt(POINT at) const {
    HDHITTESTINFO test{};
    test.pt = at;
    ::SendMessageW(header_, HDM_HITTEST, 0, reinterpret_cast<LPARAM>(&test));
    return (test.flags & HHT_ONHEADER) != 0 ? test.iItem : -1;
}

RECT TableHeader::columnRect(int column) const {
    RECT rect{};
    ::SendMessageW(header_, HDM_GETITEMRECT, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&rect));
    ::MapWindowPoints(header_, list_, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

}  // namespace pellmark
