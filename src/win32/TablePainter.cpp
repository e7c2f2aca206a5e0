#include "win32/TablePainter.h"

#include <algorithm>

#include "win32/WideText.h"

namespace pellmark {

namespace {

constexpr Twips kMargin = 5 * kTwipsPerPixelAt96Dpi;

/// A colour between two others, a part out of 255 of the second.
COLORREF mixed(COLORREF one, COLORREF other, int part) {
    const auto mix = [part](int a, int b) { return static_cast<BYTE>(a + (b - a) * part / 255); };
    return RGB(mix(GetRValue(one), GetRValue(other)), mix(GetGValue(one), GetGValue(other)),
               mix(GetBValue(one), GetBValue(other)));
}

std::wstring oneLine(const std::string& text) {
    std::wstring wide = toWide(text);
    std::replace_if(
        wide.begin(), wide.end(), [](wchar_t c) { return c < L' '; }, L' ');
    return wide;
}

}  // namespace

LRESULT TablePainter::draw(const NMLVCUSTOMDRAW& request, HFONT font, const Scale& scale) {
    switch (request.nmcd.dwDrawStage) {
        case CDDS_PREPAINT:
            return CDRF_NOTIFYITEMDRAW;
        case CDDS_ITEMPREPAINT:
            drawRow(request.nmcd.hdc, static_cast<int>(request.nmcd.dwItemSpec), font, scale);
            return CDRF_SKIPDEFAULT;
        default:
            return CDRF_DODEFAULT;
    }
}

void TablePainter::drawRow(HDC canvas, int row, HFONT font, const Scale& scale) {
    RECT line{};
    line.left = LVIR_BOUNDS;
    ::SendMessageW(list_, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&line));
    RECT client{};
    ::GetClientRect(list_, &client);

    const bool selected = table_.isSelected(row);
    const bool highlighted = selected && table_.activeLook() && ::IsWindowEnabled(list_);
    const COLORREF window = ::GetSysColor(COLOR_WINDOW);
    const COLORREF text = ::GetSysColor(::IsWindowEnabled(list_) ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT);
    const COLORREF highlight = ::GetSysColor(COLOR_HIGHLIGHT);
    const COLORREF lines = mixed(window, ::GetSysColor(COLOR_BTNSHADOW), 90);
    const int saved = ::SaveDC(canvas);
    ::SetBkMode(canvas, TRANSPARENT);

    RECT whole = line;
    for (int column = 0; column < table_.columns(); ++column) {
        const RECT heading = header_.columnRect(column);
        RECT cell{heading.left, line.top, heading.right, line.bottom};
        whole.right = std::max(column == 0 ? cell.right : whole.right, cell.right);
        if (cell.right <= 0 || cell.left >= client.right || cell.right <= cell.left) continue;
        const CellStyle style = table_.style(row, column);
        COLORREF back = style.back.value_or(window);
        COLORREF fore = style.fore.value_or(text);
        if (highlighted) {
            back = highlight;
            fore = ::GetSysColor(COLOR_HIGHLIGHTTEXT);
        } else if (selected) {
            back = mixed(window, highlight, 50);
        }
        ::SetDCBrushColor(canvas, back);
        ::FillRect(canvas, &cell, static_cast<HBRUSH>(::GetStockObject(DC_BRUSH)));
        ::SetDCBrushColor(canvas, lines);
        const RECT right{cell.right - 1, cell.top, cell.right, cell.bottom};
        const RECT bottom{cell.left, cell.bottom - 1, cell.right, cell.bottom};
        ::FillRect(canvas, &right, static_cast<HBRUSH>(::GetStockObject(DC_BRUSH)));
        ::FillRect(canvas, &bottom, static_cast<HBRUSH>(::GetStockObject(DC_BRUSH)));
        ::SetTextColor(canvas, fore);
        ::SelectObject(canvas, style.italic ? italicOf(font) : font);
        drawText(canvas, cell, table_.text(row, column), scale);
    }
    if (row == table_.current() && ::GetFocus() == list_) {
        ::SetTextColor(canvas, RGB(0, 0, 0));
        ::SetBkColor(canvas, RGB(255, 255, 255));
        whole.bottom -= 1;
        ::DrawFocusRect(canvas, &whole);
    }
    ::RestoreDC(canvas, saved);
}

void TablePainter::drawText(HDC canvas, RECT cell, const std::string& text, const Scale& scale) const {
    if (text.empty()) return;
    const std::wstring wide = oneLine(text);
    ::InflateRect(&cell, -scale.pixels(kMargin), 0);
    ::DrawTextW(canvas, wide.c_str(), static_cast<int>(wide.size()), &cell,
                DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
}

bool TablePainter::isCut(int row, int column, HFONT font, const Scale& scale) const {
    const std::wstring wide = oneLine(table_.text(row, column));
    const RECT heading = header_.columnRect(column);
    const HDC canvas = ::GetDC(list_);
    const HGDIOBJ old = ::SelectObject(canvas, font);
    SIZE size{};
    ::GetTextExtentPoint32W(canvas, wide.c_str(), static_cast<int>(wide.size()), &size);
    ::SelectObject(canvas, old);
    ::ReleaseDC(list_, canvas);
    return size.cx > heading.right - heading.left - 2 * scale.pixels(kMargin);
}

HFONT TablePainter::italicOf(HFONT font) {
    if (!italic_) {
        LOGFONTW description{};
        ::GetObjectW(font, sizeof description, &description);
        description.lfItalic = TRUE;
        italic_.reset(::CreateFontIndirectW(&description));
    }
    return italic_.get();
}

}  // namespace pellmark
