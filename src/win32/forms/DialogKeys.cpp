#include "win32/forms/DialogKeys.h"

#include <algorithm>
#include <vector>

#include "win32/controls/SplitterPeer.h"
#include "win32/forms/FormWindow.h"

namespace pellmark {

namespace {

/// What a hook cannot be handed: it is called without any pointer of ours.
struct HookOfThread {
    HHOOK hook = nullptr;
    std::vector<DialogKeys*> forms;
};
// A plain pointer: a thread's object with a destructor keeps the DLL loaded until the host's thread ends.
thread_local HookOfThread* hookOfThread = nullptr;

bool isDown(int key) {
    return ::GetKeyState(key) < 0;
}

bool isInMenu() {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return ::GetGUIThreadInfo(::GetCurrentThreadId(), &info) &&
           (info.flags & (GUI_INMENUMODE | GUI_POPUPMENUMODE | GUI_SYSTEMMENUMODE | GUI_INMOVESIZE)) != 0;
}

}  // namespace

DialogKeys::DialogKeys(FormWindow& form) : form_(form) {
    if (hookOfThread == nullptr) {
        hookOfThread = new HookOfThread;
        hookOfThread->hook =
            ::SetWindowsHookExW(WH_GETMESSAGE, &hookProcedure, nullptr, ::GetCurrentThreadId());
    }
    hookOfThread->forms.push_back(this);
}

DialogKeys::~DialogKeys() {
    std::erase(hookOfThread->forms, this);
    if (hookOfThread->forms.empty()) {
        if (hookOfThread->hook != nullptr) ::UnhookWindowsHookEx(hookOfThread->hook);
        delete hookOfThread;
        hookOfThread = nullptr;
    }
}

LRESULT CALLBACK DialogKeys::hookProcedure(int code, WPARAM wParam, LPARAM lParam) noexcept {
    if (code == HC_ACTION && wParam == PM_REMOVE && hookOfThread != nullptr) {
        auto& message = *reinterpret_cast<MSG*>(lParam);
        if (message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST) {
            const auto& forms = hookOfThread->forms;
            const auto owner = std::find_if(forms.begin(), forms.end(),
                                            [&](const DialogKeys* each) { return each->isOurs(message); });
            if (owner != forms.end()) (*owner)->turnAside(message);
        }
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

void DialogKeys::turnAside(MSG& message) {
    const Operations::Scope scope(form_.surroundings().operations());
    if (!isNavigation(message)) return;
    kept_ = message;
    message.hwnd = form_.window();
    message.message = DialogKeys::message();
}

bool DialogKeys::isOurs(const MSG& message) const {
    const HWND window = form_.window();
    return window != nullptr && (message.hwnd == window || ::IsChild(window, message.hwnd));
}

bool DialogKeys::isNavigation(const MSG& message) const {
    if (off_ > 0 || form_.control() == nullptr || isInMenu()) return false;
    const auto wanted = [&] {
        return ::SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam,
                              reinterpret_cast<LPARAM>(&message));
    };
    switch (message.message) {
        case WM_KEYDOWN:
            return isNavigationKey(message);
        case WM_SYSCHAR:
            return !isDown(VK_CONTROL) && message.wParam != VK_SPACE;
        case WM_CHAR:
            return message.wParam > VK_SPACE && !isDown(VK_CONTROL) &&
                   (wanted() & (DLGC_WANTCHARS | DLGC_WANTALLKEYS)) == 0;
        default:
            return false;
    }
}

bool DialogKeys::isNavigationKey(const MSG& message) const {
    const auto code =
        ::SendMessageW(message.hwnd, WM_GETDLGCODE, message.wParam, reinterpret_cast<LPARAM>(&message));
    const bool isPeer = ControlPeer::of(message.hwnd) != nullptr;
    const Control* control = isPeer ? ControlPeer::of(message.hwnd)->control() : nullptr;
    const bool isOpenList = control != nullptr && control->kind() == Control::Kind::ComboBox &&
                            ::SendMessageW(message.hwnd, CB_GETDROPPEDSTATE, 0, 0) != 0;
    switch (message.wParam) {
        case VK_TAB:
            if (isDown(VK_CONTROL)) return true;
            return (code & (DLGC_WANTTAB | DLGC_WANTALLKEYS)) == 0 || (isPeer && (code & DLGC_WANTTAB) == 0);
        case VK_PRIOR:
        case VK_NEXT:
            return isDown(VK_CONTROL);
        case VK_LEFT:
        case VK_UP:
        case VK_RIGHT:
        case VK_DOWN:
            return (code & (DLGC_WANTARROWS | DLGC_WANTALLKEYS)) == 0;
        case VK_RETURN:
            return !isOpenList && (code & DLGC_WANTALLKEYS) == 0 && !isLeftToList(control);
        // An edit box of several lines claims every key, Escape with the rest, and does nothing with it.
        case VK_ESCAPE:
            if (SplitterPeer::isDragged()) return true;
            return !isOpenList && (isPeer || (code & DLGC_WANTALLKEYS) == 0) && !form_.isEmbedded() &&
                   !(control != nullptr && control->takesEscape());
        case VK_F6:
            return !isDown(VK_CONTROL) && form_.keyboard().hasSplitters();
        case VK_F1:
            return static_cast<Form*>(form_.control())->helpButton() != nullptr && !isDown(VK_SHIFT) &&
                   !isDown(VK_CONTROL);
        default:
            return false;
    }
}

bool DialogKeys::isLeftToList(const Control* control) const {
    const bool isList = control != nullptr &&
                        (control->kind() == Control::Kind::Grid || control->kind() == Control::Kind::TextBox);
    const Button* button = static_cast<const Form*>(form_.control())->defaultButton();
    return isList && (button == nullptr || !button->visible() || !button->enabled());
}

void DialogKeys::perform() {
    if (!kept_) return;
    const MSG message = *kept_;
    kept_.reset();
    if (message.message == WM_KEYDOWN) {
        performKey(message);
    } else if (!form_.keyboard().pressAccessKey(static_cast<wchar_t>(message.wParam))) {
        // The host's menu has access keys too.
        ::DispatchMessageW(&message);
    }
}

void DialogKeys::performKey(const MSG& message) {
    form_.keyboard().showCues();
    switch (message.wParam) {
        case VK_RETURN:
            form_.keyboard().pressEnter(message.hwnd);
            break;
        case VK_ESCAPE:
            if (!SplitterPeer::dropDragged()) form_.keyboard().pressEscape();
            break;
        case VK_F6:
            form_.keyboard().stepSplitter(isDown(VK_SHIFT) ? -1 : 1);
            break;
        case VK_F1:
            form_.keyboard().pressHelp();
            break;
        case VK_PRIOR:
            form_.keyboard().stepPage(-1);
            break;
        case VK_NEXT:
            form_.keyboard().stepPage(1);
            break;
        case VK_LEFT:
        case VK_UP:
            form_.keyboard().stepAmongSiblings(-1);
            break;
        case VK_RIGHT:
        case VK_DOWN:
            form_.keyboard().stepAmongSiblings(1);
            break;
        default: {
            const int step = isDown(VK_SHIFT) ? -1 : 1;
            if (isDown(VK_CONTROL)) {
                form_.keyboard().stepPage(step);
            } else {
                form_.keyboard().stepFocus(step);
            }
        }
    }
}

}  // namespace pellmark
