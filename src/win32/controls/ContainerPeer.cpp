#include "win32/controls/ContainerPeer.h"

#include <algorithm>

#include "win32/forms/FormWindow.h"
#include "win32/forms/PeerFactory.h"

namespace pellmark {

void ContainerPeer::createChildren() {
    std::vector<Control*> inTabOrder = container()->children();
    std::stable_sort(inTabOrder.begin(), inTabOrder.end(), [](const Control* left, const Control* right) {
        return left->tabIndex() < right->tabIndex();
    });
    for (Control* each : inTabOrder)
        children_.push_back(makePeer(form(), *each, window()));
}

void ContainerPeer::detach() {
    for (const auto& each : children_)
        each->detach();
    ControlPeer::detach();
}

void ContainerPeer::rescale() {
    ControlPeer::rescale();
    for (const auto& each : children_)
        each->rescale();
    arrange();
}

void ContainerPeer::arrange() {
    const Rect& bounds = container()->bounds();
    container()->arrange({bounds.width, bounds.height});
}

ControlPeer* ContainerPeer::find(const Control& wanted) {
    if (ControlPeer* self = ControlPeer::find(wanted)) return self;
    for (const auto& each : children_) {
        if (ControlPeer* found = each->find(wanted)) return found;
    }
    return nullptr;
}

void ContainerPeer::collect(std::vector<ControlPeer*>& peers) {
    ControlPeer::collect(peers);
    for (const auto& each : children_) {
        if ((::GetWindowLongPtrW(each->window(), GWL_STYLE) & WS_VISIBLE) != 0) each->collect(peers);
    }
}

std::optional<LRESULT> ContainerPeer::message(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            if (ControlPeer* sender = of(reinterpret_cast<HWND>(lParam));
                sender != nullptr && sender->control()) {
                sender->command(HIWORD(wParam));
                return 0;
            }
            break;
        case WM_NOTIFY: {
            auto& header = *reinterpret_cast<NMHDR*>(lParam);
            ControlPeer* sender = of(header.hwndFrom);
            if (sender != nullptr && sender != this && sender->control()) return sender->notified(header);
            break;
        }
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN: {
            const ControlPeer* sender = of(reinterpret_cast<HWND>(lParam));
            if (sender == nullptr || sender->control() == nullptr) break;
            if (sender->control()->kind() == Control::Kind::TextBox) break;
            ::SetTextColor(reinterpret_cast<HDC>(wParam), ::GetSysColor(COLOR_BTNTEXT));
            ::SetBkColor(reinterpret_cast<HDC>(wParam), ::GetSysColor(COLOR_BTNFACE));
            return reinterpret_cast<LRESULT>(::GetSysColorBrush(COLOR_BTNFACE));
        }
        case WM_SETTINGCHANGE:
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
            // Only top-level windows are told by the system.
            for (const auto& each : children_)
                ::SendMessageW(each->window(), message, wParam, lParam);
            ::InvalidateRect(window(), nullptr, TRUE);
            break;
        case WM_ERASEBKGND: {
            RECT client{};
            ::GetClientRect(window(), &client);
            ::FillRect(reinterpret_cast<HDC>(wParam), &client, ::GetSysColorBrush(COLOR_BTNFACE));
            return 1;
        }
        default:
            break;
    }
    return ControlPeer::message(message, wParam, lParam);
}

}  // namespace pellmark
