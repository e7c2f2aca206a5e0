#pragma once

#include <optional>

#include "base/Font.h"
#include "base/Operations.h"
#include "win32/ActivationContext.h"
#include "win32/Handles.h"
#include "win32/WindowsApi.h"

namespace pellmark {

/// What all windows of one component share: its module, its trace and scopes, the themed controls and the
/// answer to how fine the screen is.
class Surroundings {
  public:
    Surroundings(HINSTANCE component, const Operations& operations);
    ~Surroundings();
    Surroundings(const Surroundings&) = delete;
    Surroundings& operator=(const Surroundings&) = delete;

    HINSTANCE instance() const { return instance_; }
    Trace& trace() const { return operations_.trace(); }
    const Operations& operations() const { return operations_; }
    const ActivationContext& theme() const { return theme_; }

    /// Dots per inch as the window sees them; the process's awareness stays the host's.
    int dpiOf(HWND window) const;
    /// A system metric as it is for that window.
    int metric(int index, HWND window) const;
    /// Adds what a window of these styles has around its client area. Null is a window that is not made yet.
    void addFrame(RECT& client, DWORD style, DWORD exStyle, HWND window) const;
    /// For tests: every window takes this instead of what the system says.
    void overrideDpi(std::optional<int> dpi) { dpiOverride_ = dpi; }

    /// The system's message font at that resolution.
    FontHandle messageFont(int dpi) const;
    /// That font, where a font leaves name or size open.
    FontHandle fontOf(const Font& font, int dpi) const;

    /// Class names of windows of our own. They are registered again where another component of the same
    /// process has taken them away.
    const wchar_t* containerClass() const;
    const wchar_t* formClass() const;
    const wchar_t* splitterClass() const;

  private:
    const wchar_t* registered(const wchar_t* name) const;

    HINSTANCE instance_;
    Operations operations_;
    ActivationContext theme_;
    std::optional<int> dpiOverride_;
};

}  // namespace pellmark
