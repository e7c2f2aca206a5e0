#pragma once

#include <cstdint>
#include <string>

#include "base/Geometry.h"

namespace pellmark {

/// Opens a compiled help file. Both calls use the context command; the second sends the text's address in
/// the place of the number, which is what existing help files of the host were made for. They answer false
/// where the person sees no help: the system cannot show help files, or not this one.
class HelpViewer {
  public:
    virtual ~HelpViewer() = default;
    virtual bool openContext(WindowHandle owner, const std::string& helpFile, std::int32_t context) = 0;
    virtual bool openContext(WindowHandle owner, const std::string& helpFile, const std::string& topic) = 0;
    /// Opens a page in the browser that the person has chosen for such pages. False when there is none.
    virtual bool openPage(WindowHandle owner, const std::string& page) = 0;
};

}  // namespace pellmark
