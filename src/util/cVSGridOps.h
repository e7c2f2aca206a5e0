#pragma once

#include <string>
#include <vector>

#include "controls/Form.h"
#include "controls/grid/Grid.h"
#include "ports/Clipboard.h"
#include "ports/FileSystem.h"
#include "util/UserInterface.h"
#include "util/cFileIO.h"

namespace pellmark {

/// What the operations on grids work with. All parts are borrowed and outlive them.
struct GridOpsServices {
    UserInterface person;
    FileSystem& files;
    cFileIO& fileIO;
    Clipboard& clipboard;
};

/// What the views do with their grids beyond what a grid does itself. One per component.
class cVSGridOps {
  public:
    explicit cVSGridOps(const GridOpsServices& services) : services_(services) {}

    /// Selects every data row.
    void SelectAll(Grid& grid);
    /// One id per selected row, in selection order; "-1" for a row without one.
    std::vector<std::string> SelectedIds(const Grid& grid);
    /// The id of the current row; "" when there is none.
    std::string SelectedId(const Grid& grid);
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
    GridOpsServices services_;
};

}  // namespace pellmark
