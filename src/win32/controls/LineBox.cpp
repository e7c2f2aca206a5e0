#include "win32/controls/LineBox.h"

#include <algorithm>
#include <string>

namespace pellmark::linebox {

namespace {

/// What a box has besides its line, in pixels at every resolution: the edges, and what looks well.
constexpr int kEditEdges = 4;
constexpr int kClosedEdges = 6;
constexpr int kWanted = 7;
/// Left and right of an entry in the opened list, together.
constexpr int kBesideAnEntry = 8;

int textWidth(HDC canvas, const std::wstring& text) {
    SIZE size{};
    ::GetTextExtentPoint32W(canvas, text.c_str(), static_cast<int>(text.size()), &size);
    return static_cast<int>(size.cx);
}

std::wstring entryOf(HWND combo, WPARAM entry) {
    const LRESULT length = ::SendMessageW(combo, CB_GETLBTEXTLEN, entry, 0);
    std::wstring text(static_cast<std::size_t>(std::max<LRESULT>(length, 0)) + 1, L'\0');
    ::SendMessageW(combo, CB_GETLBTEXT, entry, reinterpret_cast<LPARAM>(text.data()));
    text.pop_back();
    return text;
}

}  // namespace

int lineHeight(HFONT font) {
    const HDC canvas = ::GetDC(nullptr);
    const HGDIOBJ before = ::SelectObject(canvas, font);
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(canvas, &metrics);
    ::SelectObject(canvas, before);
    ::ReleaseDC(nullptr, canvas);
    return static_cast<int>(metrics.tmHeight);
}

int editHeight(int lineHeight, LONG room) {
    return lineHeight + std::clamp(static_cast<int>(room) - lineHeight, kEditEdges, kWanted);
}

int closedHeight(int lineHeight, LONG room) {
    return lineHeight + std::clamp(static_cast<int>(room) - lineHeight, kClosedEdges, kWanted);
}

RECT placed(RECT room, int height) {
    room.top += (room.bottom - room.top - height) / 2;
    room.bottom = room.top + height;
    return room;
}

void setClosedHeight(HWND combo, int height) {
    ::SendMessageW(combo, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), height - kClosedEdges);
}

void fitOpened(HWND combo) {
    const HDC canvas = ::GetDC(combo);
    const HGDIOBJ before =
        ::SelectObject(canvas, reinterpret_cast<HFONT>(::SendMessageW(combo, WM_GETFONT, 0, 0)));
    const auto entries = std::max<LRESULT>(::SendMessageW(combo, CB_GETCOUNT, 0, 0), 0);
    int widest = 0;
    for (WPARAM entry = 0; entry < static_cast<WPARAM>(entries); ++entry)
        widest = std::max(widest, textWidth(canvas, entryOf(combo, entry)));
    ::SelectObject(canvas, before);
    ::ReleaseDC(combo, canvas);
    const int beside = kBesideAnEntry + ::GetSystemMetrics(SM_CXVSCROLL);
    ::SendMessageW(combo, CB_SETDROPPEDWIDTH, static_cast<WPARAM>(widest + beside), 0);
}

}  // namespace pellmark::linebox
