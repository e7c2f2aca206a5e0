#pragma once

#include "base/Trace.h"
#include "ports/HelpViewer.h"
#include "win32/WindowsApi.h"

namespace pellmark {

/// The system's HTML Help, loaded at the first call and from the system folder only. Without it nothing is
/// shown, which the trace records. The library stays for good: its windows stay open, and run its code, when
/// the component has gone.
class HtmlHelpViewer : public HelpViewer {
  public:
    explicit HtmlHelpViewer(Trace& trace) : trace_(trace) {}

    void openContext(WindowHandle owner, const std::string& helpFile, std::int32_t context) override;
    void openContext(WindowHandle owner, const std::string& helpFile, const std::string& topic) override;

  private:
    void open(WindowHandle owner, const std::string& helpFile, DWORD_PTR data);

    Trace& trace_;
    HMODULE library_ = nullptr;  ///< never freed
};

}  // namespace pellmark
