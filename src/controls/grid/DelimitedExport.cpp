#include "controls/grid/DelimitedExport.h"

#include <string>

#include "controls/grid/Delimited.h"

namespace pellmark {

namespace {

constexpr std::size_t kPiece = 65536;

/// What spreadsheets take for a formula; a number with its sign is what it looks like.
bool isFormula(std::string_view cell) {
    if (cell.empty() || std::string_view("=+-@\t\r").find(cell.front()) == std::string_view::npos)
        return false;
    const bool isSigned = cell.front() == '+' || cell.front() == '-';
    const std::string_view number = cell.substr(1);
    return !isSigned || number.empty() || number.find_first_not_of("0123456789.,") != std::string_view::npos;
}

}  // namespace

void writeDelimited(const Grid& grid, const DelimitedFormat& format,
                    const std::function<void(std::string_view piece, int rowsDone)>& write) {
    const int firstCol = format.withFixed ? 0 : grid.fixedCols();
    std::string out;
    out.reserve(kPiece + kPiece / 4);
    for (int row = format.withFixed ? 0 : grid.fixedRows(); row < grid.rows(); ++row) {
        for (int col = firstCol; col < grid.cols(); ++col) {
            if (col > firstCol) out += format.separator;
            const std::size_t begin = out.size();
            grid.appendDisplayText(row, col, out);
            if (format.escapeFormulas && isFormula(std::string_view(out).substr(begin)))
                out.insert(begin, 1, '\'');
            quoteWhereNeeded(out, begin, format.separator);
        }
        out += "\r\n";
        if (out.size() >= kPiece) {
            write(out, row + 1);
            out.clear();
        }
    }
    if (!out.empty()) write(out, grid.rows());
}

}  // namespace pellmark
