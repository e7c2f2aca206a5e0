#include "win32/controls/ButtonPeer.h"

#include "win32/forms/FormWindow.h"

namespace pellmark {

ButtonPeer::ButtonPeer(FormWindow& form, Button& button, HWND parent) : ControlPeer(form, button) {
    createWindow(parent, WC_BUTTONW, BS_PUSHBUTTON | BS_MULTILINE);
}

void ButtonPeer::showDefault(bool isDefault) {
    const auto style = ::GetWindowLongPtrW(window(), GWL_STYLE);
    const bool isShown = (style & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
    if (isShown == isDefault) return;
    const auto wanted = (style & 0xFFFF & ~BS_TYPEMASK) | (isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
    ::SendMessageW(window(), BM_SETSTYLE, static_cast<WPARAM>(wanted), TRUE);
}

void ButtonPeer::command(WORD code) {
    if (code == BN_CLICKED) static_cast<Button*>(control())->click();
}

bool ButtonPeer::accessed() {
    ::SetFocus(window());
    if (control() != nullptr) static_cast<Button*>(control())->click();
    return true;
}

std::optional<LRESULT> ButtonPeer::message(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SETFOCUS || message == WM_KILLFOCUS) {
        form().keyboard().showDefaultButton(message == WM_SETFOCUS ? window() : nullptr);
    }
    return ControlPeer::message(message, wParam, lParam);
}

}  // namespace pellmark
