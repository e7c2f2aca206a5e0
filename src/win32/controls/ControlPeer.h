#pragma once

#include <optional>
#include <vector>

#include "base/Event.h"
#include "controls/Control.h"
#include "win32/Scale.h"
#include "win32/WindowsApi.h"
#include "win32/controls/WindowHook.h"

namespace pellmark {

class FormWindow;

/// The window of one control model. It draws the model and turns input into calls on it; it decides nothing.
///
/// Any call on the model may unload the form. The form's windows and peers then stay until nothing of the
/// component runs any more, but the model may be gone: after such a call a peer asks control() again.
class ControlPeer : public WindowHook::Owner {
  public:
    virtual ~ControlPeer();
    ControlPeer(const ControlPeer&) = delete;
    ControlPeer& operator=(const ControlPeer&) = delete;

    /// Null when the system has destroyed the window.
    HWND window() const { return window_; }
    /// Null once the peer has been detached.
    Control* control() const { return control_; }
    FormWindow& form() const { return form_; }
    const Scale& scale() const;

    /// The peer whose own window this is, null for any other window.
    static ControlPeer* of(HWND window) { return WindowHook::peerOf(window); }
    /// The peer of the window or of its nearest parent that has one; null when there is none.
    static ControlPeer* around(HWND window);

    /// Forgets the model: it is about to go.
    virtual void detach();
    /// Moves the window to where the model says.
    virtual void place();
    /// The window's rectangle in its parent, in pixels.
    virtual RECT placement() const;
    /// Lays out what stands inside; called after the model's size has changed.
    virtual void arrange() {}
    /// Another font or resolution: takes the form's font and whatever is kept in pixels.
    virtual void rescale();
    /// Notifications that the control's window sent to its parent.
    virtual void command(WORD /*code*/) {}
    virtual std::optional<LRESULT> notified(NMHDR& /*header*/) { return std::nullopt; }
    /// The peer of that model, this one or one within; null when there is none.
    virtual ControlPeer* find(const Control& control) { return control_ == &control ? this : nullptr; }
    /// Adds this peer and those within it that are shown, in tab order.
    virtual void collect(std::vector<ControlPeer*>& peers) { peers.push_back(this); }
    /// The person has typed the access key of this control; false where that belongs to the next one.
    virtual bool accessed() { return false; }
    /// Where a menu asked for by the keyboard opens, in pixels of the window.
    virtual POINT keyboardMenuPoint() const;

  protected:
    ControlPeer(FormWindow& form, Control& control);

    /// Creates the window with the styles that every control has, caption, state and place as the model
    /// says. Throws Error when the system refuses.
    void createWindow(HWND parent, const wchar_t* className, DWORD style, DWORD exStyle = 0);
    /// Lets innerMessage see the messages of a window that the control has made for itself.
    void watchInner(HWND inner);

    /// Messages of the peer's window; nothing hands them on to the control.
    virtual std::optional<LRESULT> message(UINT message, WPARAM wParam, LPARAM lParam);
    virtual std::optional<LRESULT> innerMessage(HWND inner, UINT message, WPARAM wParam, LPARAM lParam);
    virtual void controlChanged(ControlChange change);
    /// What the control does with a message by itself.
    static LRESULT defaultMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        return WindowHook::pass(window, message, wParam, lParam);
    }

  private:
    std::optional<LRESULT> seen(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept final;

    FormWindow& form_;
    Control* control_;
    HWND window_ = nullptr;
    std::optional<WindowHook> hook_;
    std::optional<WindowHook> innerHook_;
    Subscription changed_;
    Subscription focusRequested_;
};

}  // namespace pellmark
