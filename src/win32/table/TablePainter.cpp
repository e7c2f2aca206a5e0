#include "win32/table/TablePainter.h"

#include <algorithm>

#include "base/Contrast.h"
#include "win32/WideText.h"

namespace pellmark {

namespace {

constexpr Twips kMargin = 5 * kTwipsPerPixelAt96Dpi;
/// Of the highlight in the paler selection and of the shadow in the lines, out of 255.
constexpr int kPale = 50;
constexpr int kLine = 90;

bool isHighContrast() {
    HIGHCONTRASTW wanted{};
    wanted.cbSize = sizeof wanted;
    return ::SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof wanted, &wanted, 0) &&
           (wanted.dwFlags & HCF_HIGHCONTRASTON) != 0;
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
            prepare();
            return CDRF_NOTIFYITEMDRAW;
        case CDDS_ITEMPREPAINT:
            drawRow(request.nmcd.hdc, static_cast<int>(request.nmcd.dwItemSpec), font, scale);
            return CDRF_SKIPDEFAULT;
        default:
            return CDRF_DODEFAULT;
    }
}

void TablePainter::prepare() {
    columns_.clear();
    for (int column = 0; column < table_.columns(); ++column)
        columns_.push_back(header_.columnRect(column));
    ::GetClientRect(list_, &client_);
    const Color window = ::GetSysColor(COLOR_WINDOW);
    const Color highlight = ::GetSysColor(COLOR_HIGHLIGHT);
    scheme_ = {window, ::GetSysColor(::IsWindowEnabled(list_) ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT),
               isHighContrast()};
    highlighted_ = {highlight, ::GetSysColor(COLOR_HIGHLIGHTTEXT)};
    pale_ = mixed(window, highlight, kPale);
    lines_ = mixed(window, ::GetSysColor(COLOR_BTNSHADOW), kLine);
}

void TablePainter::drawRow(HDC canvas, int row, HFONT font, const Scale& scale) {
    if (columns_.empty()) return;
    RECT line{};
    line.left = LVIR_BOUNDS;
    ::SendMessageW(list_, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&line));
    if (!::RectVisible(canvas, &line)) return;
    const bool selected = table_.isSelected(row);
    const bool highlighted = selected && table_.activeLook() && ::IsWindowEnabled(list_);
    const auto fill = [canvas](RECT rect, COLORREF color) {
        ::SetBkColor(canvas, color);
        ::ExtTextOutW(canvas, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
    };
    const HGDIOBJ oldFont = ::SelectObject(canvas, font);
    ::SetBkMode(canvas, TRANSPARENT);
    RECT whole{columns_.front().left, line.top, columns_.front().right, line.bottom - 1};
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        const RECT cell{columns_[column].left, line.top, columns_[column].right, line.bottom};
        whole.left = std::min(whole.left, cell.left);
        whole.right = std::max(whole.right, cell.right);
        if (cell.right <= 0 || cell.left >= client_.right || cell.right <= cell.left) continue;
        const CellStyle style = table_.style(row, static_cast<int>(column));
        const CellColors colors = highlighted ? highlighted_
                                  : selected  ? shownColors(style, scheme_, pale_)
                                              : shownColors(style, scheme_);
        fill({cell.left, cell.top, cell.right - 1, cell.bottom - 1}, colors.back);
        fill({cell.right - 1, cell.top, cell.right, cell.bottom}, lines_);
        fill({cell.left, cell.bottom - 1, cell.right, cell.bottom}, lines_);
        ::SetTextColor(canvas, colors.text);
        if (style.italic) ::SelectObject(canvas, italicOf(font));
        drawText(canvas, cell, table_.text(row, static_cast<int>(column)), scale);
        if (style.italic) ::SelectObject(canvas, font);
    }
    if (row == table_.current() && ::GetFocus() == list_) drawFocusRect(canvas, whole);
    ::SelectObject(canvas, oldFont);
}

void TablePainter::drawFocusRect(HDC canvas, const RECT& rect) {
    // The dots invert what is there, which these two make them do everywhere; they are no colours of ours.
    ::SetTextColor(canvas, RGB(0, 0, 0));
    ::SetBkColor(canvas, RGB(255, 255, 255));
    ::DrawFocusRect(canvas, &rect);
}

void TablePainter::drawFocus(HDC canvas) const {
    if (::GetFocus() != list_ || table_.current() >= 0) return;
    RECT rows{};
    RECT heading{};
    ::GetClientRect(list_, &rows);
    ::GetClientRect(header_.window(), &heading);
    rows.top = heading.bottom;
    drawFocusRect(canvas, rows);
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
