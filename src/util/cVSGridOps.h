#pragma once

#include <string>
#include <vector>

#include "controls/Form.h"
#include "controls/StatusBar.h"
#include "controls/grid/Grid.h"
#include "ports/Clipboard.h"
#include "ports/CodePage.h"
#include "ports/FileSystem.h"
#include "util/GridExport.h"
#include "util/GridPrint.h"
#include "util/UserInterface.h"
#include "util/cCommonDialog.h"
#include "util/cFileIO.h"

namespace pellmark {

/// What the operations on grids work with. All parts are borrowed and outlive them.
struct GridOpsServices {
    UserInterface person;
    FileSystem& files;
    cFileIO& fileIO;
    const CodePage& codePage;
    cCommonDialog& dialogs;
    Clipboard& clipboard;
    Printer& printer;
    Idle& idle;
    cQDLExtSettings& settings;
    std::string componentFolder;  ///< without a trailing "\"
};

/// What the views do with their grids beyond what a grid does itself. One per component.
class cVSGridOps {
  public:
    explicit cVSGridOps(const GridOpsServices& services);

    /// Asks for a file and saves the whole grid there: comma-separated where the name ends in "csv" exactly
    /// so, tab-separated otherwise. Starts in the folder of the last save, at first in the component's. A
    /// person is told when the file is open elsewhere or protected; other failures leave a trace alone.
    void SaveGrid(Grid& grid, WindowHandle owner);
    /// The same without asking for the name; false when the person cancelled. Throws the file port's Error.
    bool SaveGridAs(const Grid& grid, const std::string& path, char separator, WindowHandle owner) {
        return export_.save(grid, path, separator, owner);
    }
    /// Asks for the printer and prints the whole grid under this name. A person is told what went wrong.
    void PrintGrid(Grid& grid, const std::string& documentName);
    /// Selects every data row.
    void SelectAll(Grid& grid);
    /// One id per selected row, in selection order; "-1" for a row without one.
    std::vector<std::string> SelectedIds(const Grid& grid);
    /// The id of the current row; "" when there is none.
    std::string SelectedId(const Grid& grid);
    /// True when the selected rows are one run on the screen, in whatever order they were selected; also for
    /// one row and for none.
    bool ContiguousSelection(const Grid& grid);
    /// Selects the data rows that are not selected, and no others.
    void InverseSelection(Grid& grid);
    /// Says in the second panel which row of how many is current; clears it when there are none.
    void SetStatusBarText(const Grid& grid, StatusBar& statusBar);
    /// Gives every data row the text of the identifier column as its row data.
    void SetRowDataToIds(Grid& grid);
    /// The user's temporary folder with its trailing "\"; "" when the system has none.
    std::string GetTempFolderPath();
    /// The selected rows, in selection order, under a heading line. Left out are cells with a picture and
    /// those whose text begins with "{" (ids). Texts are the stored ones ("71"), and nothing is quoted.
    std::string SelectionAsDelimitedText(const Grid& grid, const std::string& separator);
    /// Writes that text into a file and returns it. Where the file cannot be written the trace says why.
    std::string SaveSelectionAsDelimitedFile(const Grid& grid, const std::string& path,
                                             const std::string& separator);

    /// Lets the person choose which columns the grid shows, in a dialog over the owner.
    void FormatColumns(Grid& grid, const Form& owner);
    /// Gives the target's columns the places, widths and visibility of the source's columns of the same keys.
    void SetGrids(const Grid& source, Grid& target);

    /// Puts the selected rows on the clipboard as they are seen: visible columns and shown texts under their
    /// headings, as text and as an HTML table. Leaves the clipboard alone when nothing is selected. A person
    /// is told when it did not work.
    void CopySelection(Grid& grid);

  private:
    void save(Grid& grid, WindowHandle owner);

    GridOpsServices services_;
    GridExport export_;
    GridPrint print_;
    std::string folder_;  ///< of the last save; "" before the first
};

}  // namespace pellmark
