#pragma once

#include <functional>
#include <span>
#include <string>

#include "controls/grid/Grid.h"

namespace pellmark {

/// A column of a grid as its list declares it: the one place that says what the column is.
struct ColumnSpec {
    const char* heading;                      ///< in English, "" for none
    const char* key;                          ///< the field that it shows
    Twips width = GridColumn::kDefaultWidth;  ///< before a person or a layout has changed it
    bool internal = false;                    ///< shown in debug mode alone
    bool editable = false;
    const char* list = nullptr;  ///< display list of stored values and shown texts
};

/// What a person sees of an English heading.
using HeadingText = std::function<std::string(const std::string& english)>;

/// Gives a grid these columns, with their headings, keys, lists and widths; nobody has chosen others yet.
void layOutColumns(Grid& grid, std::span<const ColumnSpec> columns, const HeadingText& heading);

/// The headings, keys and lists alone: widths, order and visibility stay as a person left them.
void nameColumns(Grid& grid, std::span<const ColumnSpec> columns, const HeadingText& heading);

/// Hides the internal columns, or shows them to whoever looks for a fault.
void hideInternalColumns(Grid& grid, std::span<const ColumnSpec> columns, bool hidden);

}  // namespace pellmark
