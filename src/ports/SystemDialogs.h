#pragma once

#include <array>
#include <cstdint>

#include "base/Font.h"
#include "base/Geometry.h"
#include "ports/Printer.h"

namespace pellmark {

using CustomColors = std::array<Color, 16>;

/// How a dialog ended. The extended error is the system's reason why it could not be shown, 0 also when a
/// person cancelled.
template <class Choice>
struct DialogResult {
    bool confirmed = false;
    Choice chosen;
    std::uint32_t extendedError = 0;
};

struct ColorChoice {
    Color color = kBlack;
    CustomColors customColors{};
};

struct FontChoice {
    Font font;
    Color color = kBlack;
};

/// In twips, from the edges of the paper.
struct PageMargins {
    Twips left = 0;
    Twips top = 0;
    Twips right = 0;
    Twips bottom = 0;
    bool operator==(const PageMargins&) const = default;
};

struct PrintChoice {
    PrinterSettings settings;
    PageRange pages;
};

struct PageChoice {
    PrinterSettings settings;
    PageMargins margins;
};

/// The system's dialogs besides those for files. Each starts with what is given, with the system's own flag
/// bits added, and answers with what the person chose. They do not throw: a failure is the extended error.
class SystemDialogs {
  public:
    virtual ~SystemDialogs() = default;
    virtual DialogResult<ColorChoice> chooseColor(const ColorChoice& first, WindowHandle owner,
                                                  std::uint32_t flags) = 0;
    virtual DialogResult<FontChoice> chooseFont(const FontChoice& first, WindowHandle owner,
                                                std::uint32_t flags) = 0;
    virtual DialogResult<PrintChoice> print(const PrintChoice& first, WindowHandle owner,
                                            std::uint32_t flags) = 0;
    virtual DialogResult<PageChoice> pageSetup(const PageChoice& first, WindowHandle owner,
                                               std::uint32_t flags) = 0;
};

}  // namespace pellmark
