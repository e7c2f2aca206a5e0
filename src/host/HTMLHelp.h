#pragma once

#include <string>

#include "base/Variant.h"
#include "ports/HelpViewer.h"
#include "util/UserInterface.h"

namespace pellmark {

/// Opens the component's help file at a context number. Every Help button opens kContext.
class HTMLHelp : public HelpLauncher {
  public:
    static constexpr std::int16_t kContext = 5000;

    HTMLHelp(HelpViewer& viewer, std::string helpFile) : HelpFile(std::move(helpFile)), viewer_(viewer) {}

    std::string HelpFile;  ///< full path; another one at each public call

    void openHelp(WindowHandle owner) override { OpenHTMLHelp(owner, Variant(kContext)); }

    /// A 16-bit, 32-bit or single-precision topic opens the file at that context; a text is sent in the
    /// number's place, as the host's help files expect; every other type opens nothing.
    void OpenHTMLHelp(WindowHandle owner, const Variant& topic);

  private:
    HelpViewer& viewer_;
};

}  // namespace pellmark
