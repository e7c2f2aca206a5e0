#pragma once

#include <string>

#include "controls/grid/Grid.h"
#include "util/PrintServices.h"

namespace pellmark {

/// Prints whole grids. A wide one is proposed on sideways paper; a long one shows how far it is and can be
/// cancelled, and nothing of it is printed then.
class GridPrint {
  public:
    explicit GridPrint(const PrintServices& services) : services_(services) {}

    /// Asks for the printer first. Throws what dialog and printer throw.
    void print(const Grid& grid, const std::string& documentName, WindowHandle owner);

  private:
    PrintServices services_;
};

}  // namespace pellmark
