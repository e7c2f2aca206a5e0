#pragma once

#include <memory>
#include <string>
#include <vector>

#include "controls/grid/Grid.h"
#include "knowledge/MemoryRecordSet.h"

namespace pellmark::test {

/// Fills a grid with texts that one way out of it or another may mistake: separators, quotes, breaks, marks
/// of other formats, characters beyond the first plane, a very long one. Three columns, 19 rows; the second
/// column has a list of shown texts.
inline void fillAwkwardly(Grid& grid) {
    const std::vector<std::string> texts{
        "M8",
        "",
        " leading and  inner  blanks ",
        "a,b;c",
        "a\tb",
        "say \"x\"",
        "\"",
        "two\r\nlines",
        "three\n\nlines",
        "<b>&amp;</b>",
        "=1+1",
        "007",
        "3/8",
        "71",
        "{not an id}",
        "'",
        "\xC3\x98 8 H7",
        "\xF0\x9F\x94\xA9 \xE5\xB7\xA5\xE7\xA8\x8B",
        std::string(300, 'x') + " " + std::string(300, 'y'),
    };
    const std::vector<std::string> keys{"_Name", "_Unit", "_Note"};
    grid.setHeadings("Na,me|Unit|No\"te");
    for (std::size_t col = 0; col < keys.size(); ++col)
        grid.setColKey(static_cast<int>(col), keys[col]);
    grid.setColComboList(1, "#70;Inch|#71;Met,ric");
    auto records = std::make_shared<MemoryRecordSet>(keys);
    for (std::size_t i = 0; i < texts.size(); ++i)
        records->addRow({texts[i], i % 2 == 0 ? "70" : "71", texts[texts.size() - 1 - i]});
    grid.bind(records);
}

}  // namespace pellmark::test
