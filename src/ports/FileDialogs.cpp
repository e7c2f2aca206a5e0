#include "ports/FileDialogs.h"

#include "base/Text.h"

namespace pellmark {

std::vector<std::pair<std::string, std::string>> filterPairs(const std::string& filter) {
    const std::vector<std::string> pieces = split(filter, '|');
    std::vector<std::pair<std::string, std::string>> pairs;
    for (std::size_t i = 0; i + 1 < pieces.size(); i += 2)
        pairs.emplace_back(pieces[i], pieces[i + 1]);
    return pairs;
}

std::vector<std::string> chosenPaths(const std::string& answer) {
    std::vector<std::string> pieces = split(answer, '\0');
    std::erase(pieces, "");
    if (pieces.size() < 2) return pieces;
    std::string folder = pieces.front();
    if (folder.back() != '\\') folder += '\\';
    pieces.erase(pieces.begin());
    for (std::string& piece : pieces)
        piece.insert(0, folder);
    return pieces;
}

}  // namespace pellmark
