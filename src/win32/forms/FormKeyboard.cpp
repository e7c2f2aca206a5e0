#include "win32/forms/FormKeyboard.h"

#include <utility>

#include "controls/SpokenName.h"
#include "win32/controls/ButtonPeer.h"
#include "win32/controls/TabStripPeer.h"
#include "win32/forms/FormWindow.h"
#include "win32/forms/TabOrder.h"

namespace pellmark {

Form* FormKeyboard::model() const {
    return static_cast<Form*>(form_.control());
}

void FormKeyboard::focus(const ControlPeer& peer) {
    if (::IsWindowVisible(form_.window())) ::SetFocus(peer.window());
}

void FormKeyboard::arrived(const ControlPeer& peer, HWND from) {
    if (model() == nullptr) return;
    model()->focusArrived(*peer.control());
    // Back from the box over one of its cells a list stays as it is: the person is looking at that cell.
    if (::IsChild(peer.window(), from)) return;
    if (const HWND label = labelBeside(*peer.control())) {
        form_.scroll().reveal(peer.window(), label);
    } else {
        form_.scroll().reveal(peer.window());
    }
}

HWND FormKeyboard::labelBeside(const Control& control) const {
    const Control* label = labelBefore(control);
    const ControlPeer* peer = label != nullptr ? form_.find(*label) : nullptr;
    const bool isAtItsLeft =
        peer != nullptr && label->bounds().left + label->bounds().width <= control.bounds().left;
    return isAtItsLeft ? peer->window() : nullptr;
}

HWND FormKeyboard::remembered() const {
    const Control* wanted = model()->focused();
    const ControlPeer* peer = wanted != nullptr ? form_.find(*wanted) : nullptr;
    const HWND window = peer != nullptr ? peer->window() : nullptr;
    return window != nullptr && ::IsWindowVisible(window) && ::IsWindowEnabled(window) ? window : nullptr;
}

void FormKeyboard::shownEmbedded() {
    if (model() == nullptr || !model()->isFocusAsked()) return;
    if (const HWND wanted = remembered()) ::SetFocus(wanted);
}

void FormKeyboard::enter() {
    if (model() == nullptr) return;
    HWND wanted = remembered();
    if (wanted != nullptr) {
        ::SetFocus(wanted);  // as it was left, with what was selected there
    } else if (const ControlPeer* peer = TabOrder(form_).first()) {
        arriveByKeyboard(*peer);
    }
}

void FormKeyboard::arriveByKeyboard(const ControlPeer& peer) {
    const HWND window = peer.window();
    const bool isLine = (::SendMessageW(window, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0;
    ::SetFocus(window);
    if (isLine) ::SendMessageW(window, EM_SETSEL, 0, -1);
}

void FormKeyboard::showDefaultButton(HWND focused) {
    if (model() == nullptr) return;
    const auto buttonAt = [](HWND window) -> ButtonPeer* {
        ControlPeer* peer = ControlPeer::of(window);
        const bool isButton =
            peer != nullptr && peer->control() != nullptr && peer->control()->kind() == Control::Kind::Button;
        return isButton ? static_cast<ButtonPeer*>(peer) : nullptr;
    };
    HWND wanted = focused;
    if (wanted == nullptr && model()->defaultButton() != nullptr) {
        if (const ControlPeer* own = form_.find(*model()->defaultButton())) wanted = own->window();
    }
    if (wanted == defaultShown_) return;
    if (ButtonPeer* before = buttonAt(defaultShown_)) before->showDefault(false);
    if (ButtonPeer* now = buttonAt(wanted)) now->showDefault(true);
    defaultShown_ = wanted;
}

void FormKeyboard::pressEnter(HWND focused) {
    ControlPeer* peer = ControlPeer::of(focused);
    if (peer != nullptr && peer->control() != nullptr && peer->control()->kind() == Control::Kind::Button) {
        static_cast<Button*>(peer->control())->click();
    } else if (model() != nullptr && model()->defaultButton() != nullptr) {
        model()->defaultButton()->click();
    }
}

void FormKeyboard::pressEscape() {
    if (model() != nullptr && !form_.isEmbedded()) model()->close();
}

void FormKeyboard::pressHelp() {
    if (model() != nullptr && model()->helpButton() != nullptr) model()->helpButton()->click();
}

ControlPeer* FormKeyboard::focused() const {
    const HWND focus = ::GetFocus();
    return focus != nullptr && ::IsChild(form_.window(), focus) ? ControlPeer::around(focus) : nullptr;
}

bool FormKeyboard::hasSplitters() const {
    return model() != nullptr && TabOrder(form_).nextSplitter(nullptr, 1) != nullptr;
}

void FormKeyboard::stepSplitter(int by) {
    const ControlPeer* from = model() != nullptr ? focused() : nullptr;
    if (from == nullptr) return;
    const ControlPeer* next = TabOrder(form_).nextSplitter(from, by);
    if (next == nullptr) return;
    if (from->control()->kind() != Control::Kind::Splitter) beforeSplitter_ = ::GetFocus();
    ::SetFocus(next->window());
}

void FormKeyboard::leaveSplitter() {
    const HWND before = std::exchange(beforeSplitter_, nullptr);
    if (::IsChild(form_.window(), before) && ::IsWindowVisible(before) && ::IsWindowEnabled(before)) {
        ::SetFocus(before);
    } else {
        stepFocus(1);
    }
}

void FormKeyboard::showCues() const {
    ::SendMessageW(form_.window(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS | UISF_HIDEACCEL),
                   0);
}

void FormKeyboard::stepFocus(int by) {
    if (model() == nullptr) return;
    if (const ControlPeer* next = TabOrder(form_).next(focused(), by)) arriveByKeyboard(*next);
}

void FormKeyboard::stepAmongSiblings(int by) {
    const ControlPeer* from = model() != nullptr ? focused() : nullptr;
    const ControlPeer* next = from != nullptr ? TabOrder(form_).nextSibling(*from, by) : nullptr;
    if (next != nullptr) ::SetFocus(next->window());
}

bool FormKeyboard::pressAccessKey(wchar_t key) {
    if (model() == nullptr) return false;
    const TabOrder order(form_);
    ControlPeer* peer = order.withAccessKey(key, focused());
    if (peer == nullptr) return false;
    if (!peer->accessed()) {
        if (const ControlPeer* next = order.next(peer, 1)) arriveByKeyboard(*next);
    }
    return true;
}

TabStripPeer* FormKeyboard::stripAround(HWND focused) const {
    for (HWND each = focused; each != nullptr && each != form_.window();
         each = ::GetAncestor(each, GA_PARENT)) {
        ControlPeer* peer = ControlPeer::of(each);
        if (peer != nullptr && peer->control() != nullptr &&
            peer->control()->kind() == Control::Kind::TabStrip) {
            return static_cast<TabStripPeer*>(peer);
        }
    }
    ControlPeer* strip = TabOrder(form_).first(Control::Kind::TabStrip);
    return static_cast<TabStripPeer*>(strip);
}

void FormKeyboard::stepPage(int by) {
    if (TabStripPeer* strip = stripAround(::GetFocus())) strip->step(by);
}

}  // namespace pellmark
