#pragma once

#include <string>

namespace pellmark {

/// The font of a grid, a list or a print. The size is in points; 0, like an empty name, means that of the
/// window or printer it is drawn on.
struct Font {
    std::string name;
    double size = 0;
    bool bold = false;
    bool italic = false;
    bool strikethrough = false;
    bool underline = false;
    bool operator==(const Font&) const = default;
};

}  // namespace pellmark
