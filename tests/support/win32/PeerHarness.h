#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "support/RecordingTrace.h"
#include "support/win32/Person.h"
#include "support/win32/SampleForm.h"
#include "win32/controls/ControlPeer.h"
#include "win32/forms/Win32Desktop.h"

namespace pellmark::test {

/// A host's window with an edit box of its own, and the sample form that can be embedded into it.
class PeerHarness {
  public:
    PeerHarness();
    ~PeerHarness();
    PeerHarness(const PeerHarness&) = delete;
    PeerHarness& operator=(const PeerHarness&) = delete;

    HWND host() const { return host_; }
    HWND hostBox() const { return hostBox_; }
    void embed();
    /// Shows the form modally over the host, looks at it once it is active, and unloads it.
    void showModal(const std::function<void()>& look);
    /// The window of a control of the form.
    HWND of(Control& control) const { return of(*form, control); }
    /// The same of another form.
    static HWND of(const Form& form, const Control& control);
    /// Gives it the keyboard.
    void focus(Control& control);
    bool hasFocus(Control& control) const { return ::GetFocus() == of(control); }

    RecordingTrace trace;
    Operations operations{trace};
    Win32Desktop desktop{::GetModuleHandleW(nullptr), operations};
    std::unique_ptr<SampleForm> form;

  private:
    HWND host_ = nullptr;
    HWND hostBox_ = nullptr;
    HWND area_ = nullptr;
};

}  // namespace pellmark::test
