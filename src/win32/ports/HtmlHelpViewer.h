#pragma once

#include <functional>

#include "base/Trace.h"
#include "ports/HelpViewer.h"
#include "win32/WindowsApi.h"

namespace pellmark {

/// Whether the system has what draws the pages of a help file. Without it the help window opens empty.
bool systemDrawsPages();

/// The system's HTML Help, loaded at the first call and from the system folder only. That it is missing is
/// traced. The library stays for good: its windows stay open, and run its code, when the component has gone.
class HtmlHelpViewer : public HelpViewer {
  public:
    /// `drawsPages` is asked at each opening; tests answer in the system's place.
    explicit HtmlHelpViewer(Trace& trace, std::function<bool()> drawsPages = &systemDrawsPages)
        : trace_(trace), drawsPages_(std::move(drawsPages)) {}

    bool openContext(WindowHandle owner, const std::string& helpFile, std::int32_t context) override;
    bool openContext(WindowHandle owner, const std::string& helpFile, const std::string& topic) override;
    bool openPage(WindowHandle owner, const std::string& page) override;

  private:
    bool open(WindowHandle owner, const std::string& helpFile, DWORD_PTR data);

    Trace& trace_;
    std::function<bool()> drawsPages_;
    HMODULE library_ = nullptr;  ///< never freed
};

}  // namespace pellmark
