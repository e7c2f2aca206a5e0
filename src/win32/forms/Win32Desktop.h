#pragma once

#include <memory>
#include <optional>

#include "ports/Desktop.h"
#include "win32/forms/Surroundings.h"

namespace pellmark {

/// Message boxes and forms on the Windows API. Everything runs on the thread that uses it.
class Win32Desktop : public Desktop {
  public:
    /// `component` is the module whose resources hold the manifest of the themed controls. The trace of the
    /// operations must outlive the desktop and all forms made by it.
    Win32Desktop(HINSTANCE component, const Operations& operations);

    MessageAnswer showMessage(const MessageBox& message) override;
    std::unique_ptr<FormPeer> createPeer(Form& form) override;

    /// For tests: windows take this resolution instead of what the system says.
    void overrideDpi(std::optional<int> dpi) { surroundings_->overrideDpi(dpi); }

  private:
    std::shared_ptr<Surroundings> surroundings_;
};

}  // namespace pellmark
