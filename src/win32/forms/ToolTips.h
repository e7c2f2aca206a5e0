#pragma once

#include <string>

#include "win32/WindowsApi.h"

namespace pellmark {

class FormWindow;

/// The one tooltip window of a form, made for the first text there is.
class ToolTips {
  public:
    explicit ToolTips(const FormWindow& form) : form_(form) {}
    ~ToolTips() { destroy(); }
    ToolTips(const ToolTips&) = delete;
    ToolTips& operator=(const ToolTips&) = delete;

    /// What the mouse is told over a window of the form; "" for nothing. UTF-8.
    void set(HWND of, const std::string& text);
    /// The form has another resolution.
    void rescale() const;
    void destroy();

  private:
    void create();

    const FormWindow& form_;
    HWND window_ = nullptr;
};

}  // namespace pellmark
