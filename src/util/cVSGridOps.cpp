#include "util/cVSGridOps.h"

#include <algorithm>
#include <utility>

#include "base/Error.h"
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

cVSGridOps::cVSGridOps(const GridOpsServices& services)
    : services_(services),
      export_(services.person, services.files, services.codePage, services.idle, services.settings),
      print_({services.person, services.dialogs, services.printer, services.idle}) {}

void cVSGridOps::SaveGrid(Grid& grid, WindowHandle owner) {
    trapCommand(services_.person.operations(), "cVSGridOps::SaveGrid", [&] {
        try {
            save(grid, owner);
        } catch (const Error& error) {
            if (error.number() == errors::kPermissionDenied) {
                services_.person.show({error.description(), "", MessageIcon::Critical});
            }
            throw;
        }
    });
}

void cVSGridOps::save(Grid& grid, WindowHandle owner) {
    FileDialogRequest request;
    request.title = "Save As";
    request.filter =
        "Comma Separated Files (*.csv)|*.csv|Tab Delimited File (*.txt)|*.txt|All Files (*.*)|*.*|";
    request.filterIndex = 1;
    request.defaultExtension = "*.csv";
    request.fileTitle = "sssss";  // only holds the place: the dialog writes over it
    request.initialFolder = folder_.empty() ? services_.componentFolder : folder_;
    request.owner = owner;
    if (!services_.dialogs.VBGetSaveFileName(request, true) || request.fileName.empty()) return;
    // "CSV" means tabs: programs that want them under a table's name have relied on it.
    const char separator = request.fileName.ends_with("csv") ? ',' : '\t';
    export_.save(grid, request.fileName, separator, owner);
    folder_ = services_.fileIO.GetFilePath(request.fileName);
}

void cVSGridOps::PrintGrid(Grid& grid, const std::string& documentName) {
    carryOut(services_.person, "cVSGridOps::PrintGrid",
             [&] { print_.print(grid, documentName, windowOf(grid)); });
}

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

bool cVSGridOps::ContiguousSelection(const Grid& grid) {
    bool contiguous = true;
    int expected = -1;  // the row behind the run before
    grid.eachSelectedRun([&](int first, int last) {
        if (expected >= 0 && first != expected) contiguous = false;
        expected = last + 1;
    });
    return contiguous;
}

void cVSGridOps::InverseSelection(Grid& grid) {
    std::vector<std::pair<int, int>> selected;
    grid.eachSelectedRun([&selected](int first, int last) { selected.emplace_back(first, last); });
    const Grid::RedrawOff off(grid);
    grid.clearSelection();
    int next = grid.fixedRows();
    for (const auto& [first, last] : selected) {
        if (first > next) grid.setSelected(next, first - 1, true);
        next = last + 1;
    }
    if (next < grid.rows()) grid.setSelected(next, grid.rows() - 1, true);
}

void cVSGridOps::SetStatusBarText(const Grid& grid, StatusBar& statusBar) {
    constexpr std::size_t kPanel = 1;
    std::string text;
    if (grid.rows() > 1) {
        Texts& texts = services_.person.texts;
        text = texts.GetString("Row") + " " + std::to_string(std::max(grid.row(), 0)) + " " +
               texts.GetString("of") + " " + std::to_string(grid.rows() - 1);
    }
    statusBar.setPanel(kPanel, std::move(text));
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
