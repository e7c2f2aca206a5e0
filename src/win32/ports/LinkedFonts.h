#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "win32/Handles.h"
#include "win32/WindowsApi.h"

namespace pellmark {

/// A piece of a text that one font can write.
struct FontRun {
    std::wstring_view text;
    HFONT font;
};

/// The fonts that the system has linked to others for the letters that those lack, Chinese and Japanese ones
/// for the most part. On a screen the system looks into them by itself; not every printer's driver does.
class LinkedFonts {
  public:
    /// Parts a text by the font that is chosen on the context and the one linked to it. Chooses the former
    /// again. The fonts live as long as this, the texts as long as `text`.
    std::vector<FontRun> runsOf(HDC context, std::wstring_view text);

  private:
    HFONT linkedTo(HDC context, HFONT font);

    std::map<HFONT, FontHandle> linked_;
};

}  // namespace pellmark
