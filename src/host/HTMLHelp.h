#pragma once

#include <string>

#include "base/Variant.h"
#include "ports/FileSystem.h"
#include "ports/HelpViewer.h"
#include "util/UserInterface.h"

namespace pellmark {

/// Opens the component's help file at a context number. Every Help button opens kContext. Where the help file
/// cannot be shown, its pages open in the browser instead: they lie beside it, in a folder that bears its
/// name.
class HTMLHelp : public HelpLauncher {
  public:
    static constexpr std::int16_t kContext = 5000;

    /// All of them must outlive this object. `helpFile` is a full path.
    HTMLHelp(HelpViewer& viewer, FileSystem& files, Desktop& desktop, Texts& texts, std::string helpFile = {})
        : HelpFile(std::move(helpFile)), viewer_(viewer), files_(files), desktop_(desktop), texts_(texts) {}

    std::string HelpFile;  ///< full path; another one at each public call

    void openHelp(WindowHandle owner) override { OpenHTMLHelp(owner, Variant(kContext)); }

    /// A 16-bit, 32-bit or single-precision topic opens the file at that context; a text is sent in the
    /// number's place, as the host's help files expect; every other type opens nothing. Throws Error
    /// (overflow) for a number that is no context.
    void OpenHTMLHelp(WindowHandle owner, const Variant& topic);

    /// The first of the pages that stand for a help file without a viewer.
    static std::string startPageOf(const std::string& helpFile);

  private:
    void openPages(WindowHandle owner);
    void tell(const std::string& text, MessageIcon icon);

    HelpViewer& viewer_;
    FileSystem& files_;
    Desktop& desktop_;
    Texts& texts_;
    bool told_ = false;  ///< that the browser stands in: once is enough
};

}  // namespace pellmark
