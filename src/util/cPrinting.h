#pragma once

#include <string>
#include <vector>

#include "base/Font.h"
#include "util/PrintServices.h"

namespace pellmark {

/// Prints plain text, line by line. Lines that are wider than the page are clipped at its edge.
class cPrinting {
  public:
    explicit cPrinting(const PrintServices& services) : services_(services) {}

    /// Prints with margins of 500 twips, after the print dialog or, where asked, at once. Throws what dialog
    /// and printer throw.
    void PrintText(const std::string& text, WindowHandle owner, const Font& font, bool printAtOnce);
    /// Prints in the font that is set and ends the document. Each line stands 200 twips nearer to the one
    /// above than the font is high, which is how these prints have always looked.
    static void PrintString(PrintDocument& document, const std::string& text, Twips leftMargin,
                            Twips topMargin);

  private:
    /// The pieces between line feeds; a carriage return stays at the end of its line, and nothing behind the
    /// last line feed is no line.
    static std::vector<std::string> lines(const std::string& text);

    PrintServices services_;
};

}  // namespace pellmark
