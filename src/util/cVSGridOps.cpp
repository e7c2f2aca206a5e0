#include "util/cVSGridOps.h"

#include <utility>

#include "controls/Form.h"
#include "controls/grid/SelectionText.h"
#include "knowledge/Records.h"
#include "util/FrmFormatColumns.h"

namespace pellmark {

namespace {

WindowHandle windowOf(Grid& grid) {
    const Form* const form = grid.form();
    return form != nullptr ? form->handle() : 0;
}

}  // namespace

void cVSGridOps::SelectAll(Grid& grid) {
    grid.selectBlock(grid.fixedRows(), grid.fixedCols(), grid.rows() - 1, grid.cols() - 1);
}

std::vector<std::string> cVSGridOps::SelectedIds(const Grid& grid) {
    std::vector<std::string> ids;
    for (int i = 0; i < grid.selectedRows(); ++i) {
        std::string id = grid.rowData(grid.selectedRow(i));
        ids.push_back(id.empty() ? "-1" : std::move(id));
    }
    return ids;
}

std::string cVSGridOps::SelectedId(const Grid& grid) {
    return grid.rowData(grid.row());
}

void cVSGridOps::SetRowDataToIds(Grid& grid) {
    grid.setRowDataFromColumn(grid.colIndex(field::kId));
}

std::string cVSGridOps::GetTempFolderPath() {
    return services_.files.temporaryFolder();
}

std::string cVSGridOps::SelectionAsDelimitedText(const Grid& grid, const std::string& separator) {
    std::string header;
    std::string lines;
    for (int i = 0; i < grid.selectedRows(); ++i) {
        const int row = grid.selectedRow(i);
        for (int col = 0; col < grid.cols(); ++col) {
            const std::string cell = grid.text(row, col);
            if (grid.style(row, col).hasPicture() || cell.starts_with('{')) continue;
            const std::string end = col == grid.cols() - 1 ? "" : separator;
            lines += cell + end;
            if (i == 0) header += grid.heading(col) + end;
        }
        lines += "\r\n";
    }
    return header + "\r\n" + lines + "\r\n";
}

std::string cVSGridOps::SaveSelectionAsDelimitedFile(const Grid& grid, const std::string& path,
                                                     const std::string& separator) {
    std::string text = SelectionAsDelimitedText(grid, separator);
    services_.fileIO.WriteFile(path,
                               text);  // which traces why it could not: the text is of use without the file
    return text;
}

void cVSGridOps::FormatColumns(Grid& grid, const Form& owner) {
    carryOut(services_.person, "cVSGridOps::FormatColumns",
             [&] { FrmFormatColumns(services_.person, grid).showModal(owner.handle()); });
}

void cVSGridOps::SetGrids(const Grid& source, Grid& target) {
    const Grid::RedrawOff off(target);
    std::vector<Grid::ColPosition> positions;
    for (int col = 0; col < source.cols(); ++col) {
        const int same = target.colIndex(source.colKey(col));
        if (same < 0) continue;
        positions.push_back({same, source.colPosition(col)});
        target.setColWidth(same, source.colWidth(col));
        target.setColHidden(same, source.colHidden(col));
    }
    target.setColPositions(std::move(positions));
    if (source.widthsChosen()) target.setWidthsChosen(true);
}

void cVSGridOps::CopySelection(Grid& grid) {
    trapAndTell(services_.person, "cVSGridOps::CopySelection", [&] {
        if (grid.selectedRows() == 0) return;
        const ClipboardContent content{selectionAsTabbedText(grid), selectionAsHtmlTable(grid)};
        if (services_.clipboard.put(content, windowOf(grid))) return;
        services_.person.show({services_.person.texts.GetString(
                                   "The clipboard is in use by another program. Please try again."),
                               "", MessageIcon::Critical});
    });
}

}  // namespace pellmark
