#pragma once

#include "controls/Form.h"
#include "win32/controls/ControlPeer.h"

namespace pellmark {

class FormWindow;
class TabStripPeer;

/// Where the keyboard is in a form, and what the keys that move about in it do.
class FormKeyboard {
  public:
    explicit FormKeyboard(FormWindow& form) : form_(form) {}

    // --- focus -------------------------------------------------------------------------------------------
    /// A control has asked for the keyboard and gets it when the form is shown: at once where it is.
    void focus(const ControlPeer& peer);
    /// The form has been shown inside the host: the keyboard stays where it is unless a control asked.
    void shownEmbedded();
    /// Gives the keyboard to the control that asked for it, had it last or comes first.
    void enter();
    /// A control has got the keyboard from another window, null when nobody knows which.
    void arrived(const ControlPeer& peer, HWND from);
    /// Draws the button that has the focus as the default one, or with null the form's own.
    void showDefaultButton(HWND focused);

    // --- keys --------------------------------------------------------------------------------------------
    void pressEnter(HWND focused);
    void pressEscape();
    void pressHelp();
    /// Moves the keyboard to the next control or the one before.
    void stepFocus(int by);
    void stepAmongSiblings(int by);
    /// Shows the next page of the tab strip around the focus, or of the form's first.
    void stepPage(int by);
    /// Takes the keyboard to the next bar that can be moved, or the one before; nowhere where there is none.
    void stepSplitter(int by);
    bool hasSplitters() const;
    /// Brings the keyboard back to where it was before it went to a bar.
    void leaveSplitter();
    /// False when no control of the form has that access key.
    bool pressAccessKey(wchar_t key);
    /// Shows what has the keyboard and which letters are access keys, once the person uses the keyboard.
    void showCues() const;

  private:
    Form* model() const;
    /// Gives the keyboard to a control to which a key has led; the text of a line is selected there, so that
    /// typing replaces it.
    static void arriveByKeyboard(const ControlPeer& peer);
    /// The window of the control that the model remembers, null where it cannot take the keyboard.
    HWND remembered() const;
    /// The window of the label at the control's left, null where there is none.
    HWND labelBeside(const Control& control) const;
    ControlPeer* focused() const;
    TabStripPeer* stripAround(HWND focused) const;

    FormWindow& form_;
    HWND beforeSplitter_ = nullptr;
    HWND defaultShown_ = nullptr;  ///< the button drawn as the one that Enter presses
};

}  // namespace pellmark
