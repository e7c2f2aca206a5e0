#include "win32/controls/TextBoxPeer.h"

#include <utility>
#include <vector>

#include "win32/WideText.h"
#include "win32/controls/LineBox.h"
#include "win32/forms/FormWindow.h"

namespace pellmark {

TextBoxPeer::TextBoxPeer(FormWindow& form, TextBox& box, HWND parent) : ControlPeer(form, box) {
    DWORD style = ES_LEFT;
    style |= box.multiLine() ? ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL : ES_AUTOHSCROLL;
    createWindow(parent, WC_EDITW, style, WS_EX_CLIENTEDGE);
    // The system's limit of 30,000 characters would cut a long text without a word.
    ::SendMessageW(window(), EM_SETLIMITTEXT, 0, 0);
    show();
    textChanged_ = box.textChanged.subscribe([this] { show(); });
    selectionRequested_ =
        box.selectionRequested.subscribe([this] { ::SendMessageW(window(), EM_SETSEL, 0, -1); });
}

void TextBoxPeer::detach() {
    textChanged_.reset();
    selectionRequested_.reset();
    ControlPeer::detach();
}

void TextBoxPeer::show() {
    showing_ = true;
    ::SetWindowTextW(window(), toWide(box()->text()).c_str());
    showing_ = false;
    fitScrollBar();
}

RECT TextBoxPeer::placement() const {
    const RECT room = ControlPeer::placement();
    if (static_cast<const TextBox*>(control())->multiLine()) return room;
    return linebox::placed(room,
                           linebox::editHeight(linebox::lineHeight(form().font()), room.bottom - room.top));
}

bool TextBoxPeer::isOverfull() const {
    RECT room{};
    ::SendMessageW(window(), EM_GETRECT, 0, reinterpret_cast<LPARAM>(&room));
    const auto lines = ::SendMessageW(window(), EM_GETLINECOUNT, 0, 0);
    return lines * linebox::lineHeight(form().font()) > room.bottom - room.top;
}

void TextBoxPeer::showScrollBar(bool shown) {
    if (std::exchange(hasScrollBar_, shown) != shown) ::ShowScrollBar(window(), SB_VERT, shown);
}

void TextBoxPeer::fitScrollBar() {
    if (box() == nullptr || !box()->multiLine() || fitting_) return;
    fitting_ = true;
    // The bar takes room from the lines, so that whether it is needed shows only without it.
    if (!isOverfull()) showScrollBar(false);
    if (isOverfull()) showScrollBar(true);
    fitting_ = false;
}

void TextBoxPeer::controlChanged(ControlChange change) {
    if (change != ControlChange::Caption) ControlPeer::controlChanged(change);
}

void TextBoxPeer::command(WORD code) {
    if (code != EN_CHANGE || showing_) return;
    fitScrollBar();
    std::vector<wchar_t> text(static_cast<std::size_t>(::GetWindowTextLengthW(window())) + 1);
    const int length = ::GetWindowTextW(window(), text.data(), static_cast<int>(text.size()));
    const auto quiet = textChanged_.mute();
    box()->setText(fromWide({text.data(), static_cast<std::size_t>(length)}));
}

std::optional<LRESULT> TextBoxPeer::message(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SIZE || message == WM_SETFONT) {
        const LRESULT result = defaultMessage(window(), message, wParam, lParam);
        fitScrollBar();
        return result;
    }
    if (message == WM_GETDLGCODE && box()->multiLine()) {
        // Arriving by the Tab key must not select a whole page of text, and Tab leads on.
        const LRESULT code = defaultMessage(window(), message, wParam, lParam);
        return code & ~static_cast<LRESULT>(DLGC_HASSETSEL | DLGC_WANTTAB);
    }
    if (message == WM_KEYDOWN && wParam == 'A' && ::GetKeyState(VK_CONTROL) < 0 &&
        ::GetKeyState(VK_MENU) >= 0) {
        ::SendMessageW(window(), EM_SETSEL, 0, -1);
        return 0;
    }
    if (message == WM_KEYDOWN && !box()->multiLine()) {
        KeyPress press;
        press.keyCode = static_cast<int>(wParam);
        press.shift = ::GetKeyState(VK_SHIFT) < 0;
        press.control = ::GetKeyState(VK_CONTROL) < 0;
        box()->keyPressed.raise(press);
        if (press.handled || control() == nullptr) return 0;
    }
    // The box would answer the character of a key that was taken with a beep.
    if (message == WM_CHAR && (wParam == VK_ESCAPE || wParam == VK_RETURN) && !box()->multiLine()) return 0;
    return ControlPeer::message(message, wParam, lParam);
}

}  // namespace pellmark
