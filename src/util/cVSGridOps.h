#pragma once

#include <string>
#include <vector>

#include "controls/grid/Grid.h"
#include "ports/FileSystem.h"
#include "util/cFileIO.h"

namespace pellmark {

/// What the views do with their grids beyond what a grid does itself. One per component.
class cVSGridOps {
  public:
    cVSGridOps(FileSystem& files, cFileIO& fileIO) : files_(files), fileIO_(fileIO) {}

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

  private:
    FileSystem& files_;
    cFileIO& fileIO_;
};

}  // namespace pellmark
