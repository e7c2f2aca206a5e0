#pragma once

#include <optional>

#include "win32/WindowsApi.h"

namespace pellmark {

class Control;
class FormWindow;

/// The keys that move about in a form: Tab, arrows, access keys, Enter, Escape, Ctrl+Tab.
///
/// An embedded form lives in a message loop that is the host's and knows nothing of them. So while a form
/// window exists, a hook of its thread looks at every message taken from the queue; one of these keys is
/// turned into a message to the form's own window, which is then dispatched as any other. Nothing runs
/// inside the hook.
class DialogKeys {
  public:
    /// The hook stands as long as one of these lives on the thread.
    explicit DialogKeys(FormWindow& form);
    ~DialogKeys();
    DialogKeys(const DialogKeys&) = delete;
    DialogKeys& operator=(const DialogKeys&) = delete;

    /// What the hook turns a key into.
    static UINT message() { return WM_APP + 0x2A1; }
    /// Performs the key that was kept last.
    void perform();

    /// While one of these lives the form leaves all keys alone: a menu or a drag has the keyboard.
    class [[nodiscard]] Off {
      public:
        explicit Off(DialogKeys& keys) : keys_(keys) { ++keys_.off_; }
        ~Off() { --keys_.off_; }
        Off(const Off&) = delete;
        Off& operator=(const Off&) = delete;

      private:
        DialogKeys& keys_;
    };

  private:
    static LRESULT CALLBACK hookProcedure(int code, WPARAM wParam, LPARAM lParam) noexcept;
    /// Keeps a key that is the form's own and turns its message into the form's.
    void turnAside(MSG& message);
    bool isOurs(const MSG& message) const;
    bool isNavigation(const MSG& message) const;
    bool isNavigationKey(const MSG& message) const;
    /// Enter means something to a list, or to the line in which one is searched, where it presses no button.
    bool isLeftToList(const Control* control) const;
    void performKey(const MSG& message);

    FormWindow& form_;
    std::optional<MSG> kept_;
    int off_ = 0;
};

}  // namespace pellmark
