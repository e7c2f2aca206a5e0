#pragma once

#include <cstdint>
#include <string>

#include "base/Geometry.h"

namespace pellmark {

/// Opens a compiled help file. Both calls use the context command; the second sends the text's address in
/// the place of the number, which is what existing help files of the host were made for.
class HelpViewer {
  public:
    virtual ~HelpViewer() = default;
    virtual void openContext(WindowHandle owner, const std::string& helpFile, std::int32_t context) = 0;
    virtual void openContext(WindowHandle owner, const std::string& helpFile, const std::string& topic) = 0;
};

}  // namespace pellmark
