#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "controls/Controls.h"
#include "ports/Desktop.h"
#include "ports/FormPeer.h"

namespace pellmark {

/// A tool window has a narrow caption without a maximize box and takes no place among the task bar's windows.
enum class BorderStyle { FixedDialog, Sizable, SizableToolWindow };

/// The numbers under which the state is stored.
enum class WindowState { Normal = 0, Minimized = 1, Maximized = 2 };

/// A window of the component: a container with a life cycle. Forms are created on first use, loaded (their
/// window exists, hidden), shown embedded or modally, and unloaded, after which they may be loaded again.
class Form : public Container {
  public:
    Form(Desktop& desktop, std::string name);
    ~Form() override;

    Desktop& desktop() const { return desktop_; }

    /// Runs Form_Load and creates the window, hidden. Does nothing when loaded already.
    void load();
    /// Form_QueryUnload, then the window goes. A modal show returns. Does nothing when not loaded.
    void unload();
    bool isLoaded() const { return peer_ != nullptr; }
    /// True from embed or showModal to unload.
    bool isShown() const { return shown_; }
    bool isEmbedded() const { return embeddedIn_ != 0; }
    WindowHandle embeddedIn() const { return embeddedIn_; }

    /// Fills the host's window, or takes the place in it that is given.
    void embed(WindowHandle parent) { embed(EmbeddedPlace{parent, {}}); }
    void embed(const EmbeddedPlace& place);
    /// Where the form stands in the host now, for bringing it back there; nothing while it is not embedded or
    /// its window has gone with the host's.
    std::optional<EmbeddedPlace> embeddedPlace() const;
    void showModal(WindowHandle owner);
    /// Shows the window as showModal does, but only while the work runs, which has to let the window breathe
    /// (Idle). What the work throws comes out of here.
    void showWhile(WindowHandle owner, const std::function<void()>& work);
    void popUp(Menu& menu, Control& over, Point at);

    /// The window's handle, 0 while not loaded.
    WindowHandle handle() const { return peer_ ? peer_->handle() : 0; }

    /// A person closed the window by its close box or Escape: the cancel button's click where there is one,
    /// otherwise unload.
    void close();
    /// The peer's window went without being asked, with the host's window for one: the form is unloaded as
    /// soon as nothing of the component runs any more.
    void windowGone();

    /// How a person left the window that is not embedded. Its bounds() are then the whole window in its
    /// normal state, on the screen; nothing while it was never shown that way, which centres it on its
    /// owner. Both may be restored before the window is shown; only a sizable one takes the size.
    WindowState windowState() const { return windowState_; }
    void setWindowState(WindowState state) { windowState_ = state; }

    BorderStyle borderStyle() const { return borderStyle_; }
    bool isSizable() const { return borderStyle_ != BorderStyle::FixedDialog; }
    /// What the form is laid out for. It may be more than its window shows: that scrolls then.
    Size clientSize() const { return clientSize_; }
    /// The least that the form is laid out for, of one that cannot be resized what it was designed for. A
    /// person does not get the window smaller than that; where the screen or the host leaves less room, the
    /// window scrolls.
    Size minimumSize() const { return isSizable() ? minimumSize_ : designedSize_; }

    /// Pressed by Enter and Escape; null for none.
    Button* defaultButton() const { return defaultButton_; }
    Button* cancelButton() const { return cancelButton_; }
    /// Pressed by F1; null leaves the key to the host.
    Button* helpButton() const { return helpButton_; }

    // --- the keyboard ------------------------------------------------------------------------------------
    /// The control that has the keyboard within this form, had it last, or has asked for it and gets it when
    /// the form is shown. Null when there is none.
    Control* focused() const { return focused_; }
    /// True until the control that asked has got the keyboard.
    bool isFocusAsked() const { return focusAsked_; }
    /// A control asks for the keyboard: see Control::setFocus.
    void askFocus(Control& control);
    /// The peer tells that the keyboard has arrived at a control.
    void focusArrived(Control& control);
    /// A control of the form goes.
    void forget(const Control& control);

    /// The peer tells the size that the form has, no smaller than the minimum; the form lays itself out.
    void resized(Size client);

  protected:
    virtual void Form_Load() {}
    /// Brings the form back as a person left it: after Form_Load, when everything that may have been arranged
    /// is there, and before the window is made.
    virtual void restoreLayout() {}
    virtual void Form_QueryUnload() {}

    /// Called from Form_Load: the form stays unloaded, and the show that asked for it returns at once.
    void abandonLoad() { abandoned_ = true; }

    void setBorderStyle(BorderStyle style) { borderStyle_ = style; }
    void setClientSize(Size size) { clientSize_ = designedSize_ = size; }
    void setMinimumSize(Size size);
    void setDefaultButton(Button* button) { defaultButton_ = button; }
    void setCancelButton(Button* button) { cancelButton_ = button; }
    void setHelpButton(Button* button) { helpButton_ = button; }

  private:
    Desktop& desktop_;
    class ModalShow;

    std::unique_ptr<FormPeer> peer_;
    std::unique_ptr<FormPeer> retiring_;
    std::shared_ptr<Form*> self_ = std::make_shared<Form*>(this);  ///< for what may find the form gone
    int windows_ = 0;  ///< how many windows there have been: one that goes may not be the present one
    Control* focused_ = nullptr;
    bool focusAsked_ = false;
    bool abandoned_ = false;
    bool shown_ = false;
    bool modal_ = false;
    WindowHandle embeddedIn_ = 0;
    WindowState windowState_ = WindowState::Normal;
    BorderStyle borderStyle_ = BorderStyle::FixedDialog;
    Size designedSize_{6000, 4000};
    Size clientSize_ = designedSize_;
    Size minimumSize_{};
    Button* defaultButton_ = nullptr;
    Button* cancelButton_ = nullptr;
    Button* helpButton_ = nullptr;
};

}  // namespace pellmark
