#pragma once

#include <optional>

#include "controls/grid/CellStyles.h"

namespace pellmark {

/// The system's colours as far as they concern a list.
struct ListScheme {
    Color window = 0;  ///< behind the rows
    Color text = 0;    ///< of a row that nothing is said about
    /// The person has asked for strong contrasts: colours behind texts are left out.
    bool highContrast = false;
};

/// What a cell is drawn in.
struct CellColors {
    Color back = 0;
    Color text = 0;
    bool operator==(const CellColors&) const = default;
};

/// A cell's colours on the person's screen. The colours that a style states are made for black on white and
/// are shown as they stand where the window is light. On a dark one white and black mean the window's own
/// colours, what is behind a text is toned down, and a text keeps its hue but is made as bright as it must be
/// to be read. `selection` takes the place of whatever is behind the text, which is made
/// readable on it.
CellColors shownColors(const CellStyle& style, const ListScheme& scheme,
                       std::optional<Color> selection = std::nullopt);

}  // namespace pellmark
