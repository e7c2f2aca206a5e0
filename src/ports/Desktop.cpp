#include "ports/Desktop.h"

#include <algorithm>

#include "base/OneLine.h"

namespace pellmark {

std::string wholeText(const MessageBox& message) {
    // So that the box with its buttons stays on the screen, however many there are and however long.
    constexpr std::size_t kMostNamed = 10;
    constexpr std::size_t kMostUnits = 100;
    std::string text = message.text;
    if (message.names.empty()) return text;
    text += "\r\n";
    for (std::size_t i = 0; i < std::min(message.names.size(), kMostNamed); ++i)
        text += "\r\n" + oneLine(message.names[i], kMostUnits);
    if (message.names.size() > kMostNamed)
        text += "\r\n+ " + std::to_string(message.names.size() - kMostNamed);
    return text;
}

}  // namespace pellmark
