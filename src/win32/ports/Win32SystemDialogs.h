#pragma once

#include "base/Operations.h"
#include "ports/SystemDialogs.h"

namespace pellmark {

/// The system's own dialogs for colours, fonts and printing.
class Win32SystemDialogs : public SystemDialogs {
  public:
    explicit Win32SystemDialogs(const Operations& operations) : operations_(operations) {}

    DialogResult<ColorChoice> chooseColor(const ColorChoice& first, WindowHandle owner,
                                          std::uint32_t flags) override;
    DialogResult<FontChoice> chooseFont(const FontChoice& first, WindowHandle owner,
                                        std::uint32_t flags) override;
    /// A range of pages can be chosen, however many there will be; a selection cannot.
    DialogResult<PrintChoice> print(const PrintChoice& first, WindowHandle owner,
                                    std::uint32_t flags) override;
    DialogResult<PageChoice> pageSetup(const PageChoice& first, WindowHandle owner,
                                       std::uint32_t flags) override;

  private:
    Operations operations_;
};

}  // namespace pellmark
