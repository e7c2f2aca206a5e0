#include "win32/forms/Win32Desktop.h"

#include "controls/Form.h"
#include "win32/CentredBox.h"
#include "win32/WideText.h"
#include "win32/forms/FormWindow.h"

namespace pellmark {

namespace {

constexpr const wchar_t* kDefaultTitle = L"Norvex - Process Manager";

UINT iconOf(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::None:
            return 0;
        case MessageIcon::Information:
            return MB_ICONINFORMATION;
        case MessageIcon::Question:
            return MB_ICONQUESTION;
        case MessageIcon::Critical:
            return MB_ICONERROR;
    }
    return 0;
}

/// Keeps the first window that a person could work with and goes no further.
BOOL CALLBACK takeUsable(HWND window, LPARAM found) {
    const LONG_PTR style = ::GetWindowLongPtrW(window, GWL_STYLE);
    const bool isUsable = (style & WS_VISIBLE) != 0 && (style & WS_DISABLED) == 0;
    if (!isUsable || (style & WS_CAPTION) != WS_CAPTION) return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

/// The active window of this thread: the dialog on top, or the host's window around an embedded form. While
/// another program is in front there is none, and the uppermost window that can be used is the one: a box
/// without an owner would be lost behind it, and leave the host usable.
HWND ownerOfABox() {
    HWND owner = ::GetActiveWindow();
    if (owner == nullptr)
        ::EnumThreadWindows(::GetCurrentThreadId(), &takeUsable, reinterpret_cast<LPARAM>(&owner));
    return owner;
}

/// What a form holds: the window itself may have to outlive it.
class FormWindowPeer : public FormPeer {
  public:
    explicit FormWindowPeer(std::unique_ptr<FormWindow> window) : window_(std::move(window)) {}
    ~FormWindowPeer() override { FormWindow::retire(std::move(window_)); }

    WindowHandle handle() const override { return reinterpret_cast<WindowHandle>(window_->window()); }
    void embed(const EmbeddedPlace& place) override { window_->embed(place); }
    std::optional<EmbeddedPlace> embeddedPlace() const override { return window_->embeddedPlace(); }
    void runModal(WindowHandle owner) override { window_->runModal(reinterpret_cast<HWND>(owner)); }
    void endModal() override { window_->endModal(); }
    void runWhile(WindowHandle owner, const std::function<void()>& work) override {
        window_->runWhile(reinterpret_cast<HWND>(owner), work);
    }
    void popUp(Menu& menu, Control& over, Point at) override { window_->popUp(menu, over, at); }

  private:
    std::unique_ptr<FormWindow> window_;
};

}  // namespace

Win32Desktop::Win32Desktop(HINSTANCE component, const Operations& operations)
    : Desktop(operations), surroundings_(std::make_shared<Surroundings>(component, operations)) {}

MessageAnswer Win32Desktop::showMessage(const MessageBox& message) {
    const Operations::Scope scope(operations());
    const UINT buttons = (message.buttons == MessageButtons::OkCancel ? MB_OKCANCEL : MB_OK) |
                         (message.cancelIsDefault ? MB_DEFBUTTON2 : MB_DEFBUTTON1);
    const std::wstring title = message.title.empty() ? kDefaultTitle : toWide(message.title);
    const HWND focus = ::GetFocus();
    const ActivationContext::Active themed(surroundings_->theme());
    const CentredBox centred;
    const int answer = ::MessageBoxW(ownerOfABox(), toWide(wholeText(message)).c_str(), title.c_str(),
                                     buttons | iconOf(message.icon));
    if (::IsWindow(focus)) ::SetFocus(focus);
    return answer == IDOK ? MessageAnswer::Ok : MessageAnswer::Cancel;
}

std::unique_ptr<FormPeer> Win32Desktop::createPeer(Form& form) {
    return std::make_unique<FormWindowPeer>(std::make_unique<FormWindow>(surroundings_, form));
}

}  // namespace pellmark
