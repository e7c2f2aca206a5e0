#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "refhost/texts/TranslationTable.h"

namespace norvex {

/// What the title of a window, or a control, reads.
std::wstring textOf(HWND window);

/// The texts of the host's own windows in one language, from the table Norvex.csv. Keys are the English texts
/// as the resources have them, access keys included.
class HostTexts {
  public:
    /// Everything in English.
    HostTexts() = default;
    /// `folder` holds the table, without a trailing "\"; without one there everything stays English.
    HostTexts(const std::wstring& folder, std::int16_t languageCode);

    std::string of(const std::string& english) const { return table_.text(english); }
    std::wstring wide(const std::string& english) const;

    /// Translates the caption of a dialog and of everything in it; for one that is still in English.
    void translate(HWND dialog) const;
    /// Translates the items of a menu and of all menus in it; the keys behind a tab stay.
    void translate(HMENU menu) const;

  private:
    void translateText(HWND window) const;

    TranslationTable table_;
};

}  // namespace norvex
