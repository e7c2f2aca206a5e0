#include "support/win32/TextRoom.h"

#include <commctrl.h>

#include "win32/WideText.h"

namespace pellmark::test {

namespace {

/// Between a button's text and its edge, a box's title and its corner, a heading and its dividers.
constexpr int kButtonPadding = 4;
constexpr int kTitleIndent = 9;
constexpr int kHeadingPadding = 6;
constexpr int kEntryPadding = 4;

/// The message font of tests runs a little wider than that of today's Windows; other persons have others.
constexpr int kReservePercent = 5;

int withReserve(LONG width) {
    return ::MulDiv(static_cast<int>(width), 100 + kReservePercent, 100);
}

std::wstring classOf(HWND window) {
    wchar_t name[64]{};
    ::GetClassNameW(window, name, 64);
    return name;
}

std::wstring textOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(::GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(
        static_cast<std::size_t>(::GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

std::vector<HWND> childrenOf(HWND parent) {
    std::vector<HWND> children;
    for (HWND each = ::GetWindow(parent, GW_CHILD); each != nullptr; each = ::GetWindow(each, GW_HWNDNEXT))
        children.push_back(each);
    return children;
}

bool isShown(HWND window) {
    return (::GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0;
}

/// A container of our own has no font by itself and draws its title with that of its form.
HFONT fontOf(HWND window) {
    if (const auto font = ::SendMessageW(window, WM_GETFONT, 0, 0)) return reinterpret_cast<HFONT>(font);
    for (HWND child : childrenOf(window)) {
        if (const HFONT font = fontOf(child)) return font;
    }
    return nullptr;
}

int lineHeight(HFONT font) {
    const HDC screen = ::GetDC(nullptr);
    const HGDIOBJ before = ::SelectObject(screen, font);
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(screen, &metrics);
    ::SelectObject(screen, before);
    ::ReleaseDC(nullptr, screen);
    return static_cast<int>(metrics.tmHeight);
}

/// What of a window can be brought into sight: its client area, and what it scrolls.
RECT reachable(HWND window) {
    RECT area{};
    ::GetClientRect(window, &area);
    const auto style = ::GetWindowLongPtrW(window, GWL_STYLE);
    SCROLLINFO scroll{};
    scroll.cbSize = sizeof scroll;
    scroll.fMask = SIF_ALL;
    if ((style & WS_HSCROLL) != 0 && ::GetScrollInfo(window, SB_HORZ, &scroll)) {
        area.left = -scroll.nPos;
        area.right = scroll.nMax + 1 - scroll.nPos;
    }
    if ((style & WS_VSCROLL) != 0 && ::GetScrollInfo(window, SB_VERT, &scroll)) {
        area.top = -scroll.nPos;
        area.bottom = scroll.nMax + 1 - scroll.nPos;
    }
    return area;
}

SIZE sizeOf(const std::wstring& text, HFONT font, UINT format, int width = 0) {
    const HDC screen = ::GetDC(nullptr);
    const HGDIOBJ before = ::SelectObject(screen, font);
    RECT area{0, 0, width, 0};
    ::DrawTextW(screen, text.c_str(), -1, &area, format | DT_CALCRECT);
    ::SelectObject(screen, before);
    ::ReleaseDC(nullptr, screen);
    return {area.right, area.bottom};
}

/// The end of such a window's caption is nobody's fault.
bool isAsWideAsScreen(HWND window) {
    RECT at{};
    ::GetWindowRect(window, &at);
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    ::GetMonitorInfoW(::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &screen);
    return at.right - at.left >= screen.rcWork.right - screen.rcWork.left;
}

class Inspection {
  public:
    explicit Inspection(int dpi) : dpi_(dpi) {}

    void inspect(HWND parent) {
        RECT room = reachable(parent);
        ::InflateRect(&room, 1, 1);  // edges in twips are rounded one by one
        std::vector<std::pair<HWND, RECT>> placed;
        for (HWND child : childrenOf(parent)) {
            if (!isShown(child)) continue;  // a page behind another one has its room when it is in front
            RECT at{};
            ::GetWindowRect(child, &at);
            ::MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&at), 2);
            RECT common{};
            ::IntersectRect(&common, &at, &room);
            if (!::IsRectEmpty(&at) && !::EqualRect(&common, &at)) complain(child, "reaches out");
            for (const auto& [other, place] : placed) {
                if (::IntersectRect(&common, &at, &place)) complain(child, "covers " + nameOf(other));
            }
            placed.emplace_back(child, at);
            look(child);
        }
    }

    void inspectCaption(HWND window) {
        if ((::GetWindowLongPtrW(window, GWL_STYLE) & WS_CAPTION) != WS_CAPTION || isAsWideAsScreen(window))
            return;
        NONCLIENTMETRICSW metrics{};
        metrics.cbSize = sizeof metrics;
        ::SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        const HFONT font = ::CreateFontIndirectW(&metrics.lfCaptionFont);
        RECT area{};
        ::GetClientRect(window, &area);
        const int buttons = 3 * metrics.iCaptionWidth;
        if (sizeOf(textOf(window), font, DT_SINGLELINE | DT_NOPREFIX).cx + buttons > area.right)
            complain(window, "has no room for its caption");
        ::DeleteObject(font);
    }

    std::vector<std::string> complaints() { return std::move(complaints_); }

  private:
    int pixels(int at96) const { return ::MulDiv(at96, dpi_, USER_DEFAULT_SCREEN_DPI); }
    static std::string nameOf(HWND window) {
        return fromWide(classOf(window)) + " \"" + fromWide(textOf(window)) + "\"";
    }
    void complain(HWND window, const std::string& what) {
        complaints_.push_back(nameOf(window) + " " + what);
    }

    void look(HWND window) {
        const std::wstring kind = classOf(window);
        RECT area{};
        ::GetClientRect(window, &area);
        if (kind == WC_STATICW) {
            lookAtLabel(window, area);
        } else if (kind == WC_BUTTONW) {
            const SIZE text = sizeOf(textOf(window), fontOf(window), DT_SINGLELINE);
            if (withReserve(text.cx) + 2 * pixels(kButtonPadding) > area.right || text.cy > area.bottom)
                complain(window, "is cut off");
        } else if (kind == WC_TABCONTROLW) {
            lookAtTabs(window, area);
            inspect(window);
        } else if (kind == WC_EDITW) {
            if (lineHeight(fontOf(window)) > area.bottom) complain(window, "cuts off its line");
        } else if (kind == WC_COMBOBOXW) {
            lookAtCombo(window);
        } else if (kind == WC_LISTVIEWW) {
            lookAtRows(window);
            lookAtHeadings(reinterpret_cast<HWND>(::SendMessageW(window, LVM_GETHEADER, 0, 0)));
        } else if (kind == L"Pellmark.Container") {
            const SIZE title = sizeOf(textOf(window), fontOf(window), DT_SINGLELINE);
            if (withReserve(title.cx) + 2 * pixels(kTitleIndent) > area.right)
                complain(window, "has no room for its title");
            inspect(window);
        }
    }

    void lookAtLabel(HWND label, const RECT& area) {
        // a label of several lines breaks them elsewhere where the font is wider
        const int width = ::MulDiv(static_cast<int>(area.right), 100, 100 + kReservePercent);
        const SIZE text = sizeOf(textOf(label), fontOf(label), DT_WORDBREAK, width);
        if (text.cx > width || text.cy > area.bottom) complain(label, "is cut off");
    }

    void lookAtCombo(HWND combo) {
        COMBOBOXINFO info{};
        info.cbSize = sizeof info;
        ::GetComboBoxInfo(combo, &info);
        const HFONT font = fontOf(combo);
        if (lineHeight(font) > info.rcItem.bottom - info.rcItem.top) complain(combo, "cuts off its line");
        const auto opened = ::SendMessageW(combo, CB_GETDROPPEDWIDTH, 0, 0);
        const auto count = ::SendMessageW(combo, CB_GETCOUNT, 0, 0);
        for (LRESULT i = 0; i < count; ++i) {
            const auto entry = static_cast<WPARAM>(i);
            std::wstring text(static_cast<std::size_t>(::SendMessageW(combo, CB_GETLBTEXTLEN, entry, 0)) + 1,
                              L' ');
            ::SendMessageW(combo, CB_GETLBTEXT, entry, reinterpret_cast<LPARAM>(text.data()));
            if (sizeOf(text.c_str(), font, DT_SINGLELINE | DT_NOPREFIX).cx + pixels(kEntryPadding) > opened)
                complain(combo, "has no room for its entry " + fromWide(text.c_str()));
        }
    }

    /// A list shows a row at least, and rows hold their texts.
    void lookAtRows(HWND list) {
        RECT area{};
        RECT heading{};
        RECT row{};
        ::GetClientRect(list, &area);
        const HWND header = reinterpret_cast<HWND>(::SendMessageW(list, LVM_GETHEADER, 0, 0));
        if (header != nullptr && isShown(header)) ::GetClientRect(header, &heading);
        const int line = lineHeight(fontOf(list));
        if (area.bottom < heading.bottom + line) complain(list, "has no room for a row");
        row.left = LVIR_BOUNDS;
        if (::SendMessageW(list, LVM_GETITEMCOUNT, 0, 0) == 0) return;
        ::SendMessageW(list, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row));
        if (row.bottom - row.top < line) complain(list, "cuts off its rows");
    }

    void lookAtTabs(HWND tabs, const RECT& area) {
        const auto count = ::SendMessageW(tabs, TCM_GETITEMCOUNT, 0, 0);
        for (LRESULT i = 0; i < count; ++i) {
            wchar_t text[200]{};
            TCITEMW item{};
            item.mask = TCIF_TEXT;
            item.pszText = text;
            item.cchTextMax = 200;
            ::SendMessageW(tabs, TCM_GETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
            RECT at{};
            ::SendMessageW(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&at));
            const SIZE needed = sizeOf(text, fontOf(tabs), DT_SINGLELINE | DT_NOPREFIX);
            if (at.right - at.left < needed.cx || at.right > area.right) complain(tabs, "cuts off a tab");
        }
    }

    void lookAtHeadings(HWND header) {
        const auto count = static_cast<int>(::SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
        for (int i = 0; i < count; ++i) {
            wchar_t text[200]{};
            HDITEMW item{};
            item.mask = HDI_TEXT | HDI_WIDTH;
            item.pszText = text;
            item.cchTextMax = 200;
            ::SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
            if (item.cxy == 0) continue;  // hidden
            const SIZE needed = sizeOf(text, fontOf(header), DT_SINGLELINE | DT_NOPREFIX);
            if (needed.cx + 2 * pixels(kHeadingPadding) > item.cxy)
                complaints_.push_back("heading \"" + fromWide(text) + "\" is cut off: " +
                                      std::to_string(item.cxy) + " pixels of " + std::to_string(needed.cx));
        }
    }

    int dpi_;
    std::vector<std::string> complaints_;
};

}  // namespace

std::vector<std::string> complaintsAbout(HWND window, int dpi) {
    Inspection inspection(dpi);
    inspection.inspectCaption(window);
    inspection.inspect(window);
    return inspection.complaints();
}

}  // namespace pellmark::test
