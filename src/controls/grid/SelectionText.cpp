#include "controls/grid/SelectionText.h"

#include <algorithm>
#include <functional>
#include <string_view>

#include "controls/grid/Delimited.h"

namespace pellmark {

namespace {

/// The headings' row, then the selected ones from the top; none when nothing is selected.
void eachRowOfSelection(const Grid& grid, const std::function<void(int row)>& visit) {
    if (grid.selectedRows() == 0) return;
    visit(0);
    grid.eachSelectedRun([&visit](int first, int last) {
        for (int row = first; row <= last; ++row)
            visit(row);
    });
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// What a spreadsheet shows unchanged when it reads it as a number: "007" would lose its zeros, and of many
/// digits only the first fifteen would be left.
bool isPlainNumber(std::string_view text) {
    constexpr std::size_t kKeptDigits = 15;
    if (text.starts_with('-')) text.remove_prefix(1);
    const std::size_t point = std::min(text.find_first_of(".,"), text.size());
    const std::string_view whole = text.substr(0, point);
    const std::string_view fraction = text.substr(std::min(point + 1, text.size()));
    const auto isNumber = [](std::string_view part) {
        return std::all_of(part.begin(), part.end(), isDigit);
    };
    if (whole.empty() || (point < text.size() && fraction.empty())) return false;
    if (!isNumber(whole) || !isNumber(fraction) || whole.size() + fraction.size() > kKeptDigits) return false;
    if (fraction.ends_with('0')) return false;
    return whole.size() == 1 || whole.front() != '0';
}

void appendEscaped(std::string& out, std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        switch (text[at]) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            case '>':
                out += "&gt;";
                break;
            case '"':
                out += "&quot;";
                break;
            case '\r':
                if (at + 1 < text.size() && text[at + 1] == '\n') ++at;
                [[fallthrough]];
            case '\n':
                // A spreadsheet would begin another row at a plain break.
                out += "<br style=\"mso-data-placement:same-cell\">";
                break;
            default:
                out += text[at];
        }
    }
}

}  // namespace

std::vector<int> shownColumns(const Grid& grid) {
    std::vector<int> shown;
    std::copy_if(grid.displayOrder().begin(), grid.displayOrder().end(), std::back_inserter(shown),
                 [&grid](int col) { return !grid.colHidden(col) && grid.colWidth(col) > 0; });
    return shown;
}

std::string selectionAsTabbedText(const Grid& grid) {
    const std::vector<int> columns = shownColumns(grid);
    std::string text;
    eachRowOfSelection(grid, [&](int row) {
        bool first = true;
        for (const int col : columns) {
            if (!first) text += '\t';
            first = false;
            const std::size_t begin = text.size();
            grid.appendDisplayText(row, col, text);
            quoteWhereNeeded(text, begin, '\t');
        }
        text += "\r\n";
    });
    return text;
}

std::string selectionAsHtmlTable(const Grid& grid) {
    const std::vector<int> columns = shownColumns(grid);
    std::string html;
    eachRowOfSelection(grid, [&](int row) {
        const bool isHeading = row < grid.fixedRows();
        html += "<tr>";
        for (const int col : columns) {
            const std::string cell = grid.displayText(row, col);
            html += isHeading ? "<th" : "<td";
            if (!isPlainNumber(cell)) html += " style='mso-number-format:\"\\@\"'";
            html += '>';
            appendEscaped(html, cell);
            html += isHeading ? "</th>" : "</td>";
        }
        html += "</tr>\r\n";
    });
    if (html.empty()) return html;
    return "<table style=\"white-space:pre-wrap\">\r\n" + html + "</table>";
}

}  // namespace pellmark
