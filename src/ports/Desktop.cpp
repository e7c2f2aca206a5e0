#include "ports/Desktop.h"

#include <algorithm>

namespace pellmark {

std::string wholeText(const MessageBox& message) {
    // So that the box stays on the screen, however many there are.
    constexpr std::size_t kMostNamed = 10;
    std::string text = message.text;
    if (message.names.empty()) return text;
    text += "\r\n";
    for (std::size_t i = 0; i < std::min(message.names.size(), kMostNamed); ++i)
        text += "\r\n" + message.names[i];
    if (message.names.size() > kMostNamed)
        text += "\r\n+ " + std::to_string(message.names.size() - kMostNamed);
    return text;
}

}  // namespace pellmark
