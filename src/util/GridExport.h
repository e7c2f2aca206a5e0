#pragma once

#include <string>

#include "controls/grid/Grid.h"
#include "ports/CodePage.h"
#include "ports/FileSystem.h"
#include "settings/cQDLExtSettings.h"
#include "util/UserInterface.h"

namespace pellmark {

/// Saves whole grids as delimited text in the system's code page. Where the code page lacks characters of the
/// grid, the person is asked whether the file may be Unicode (UTF-8 with its mark) instead, so that nothing
/// is lost; every other file has the fixed form. A large grid shows how far it is and can be cancelled. The
/// parts are borrowed.
class GridExport {
  public:
    GridExport(const UserInterface& person, FileSystem& files, const CodePage& codePage, Idle& idle,
               cQDLExtSettings& settings)
        : person_(person), files_(files), codePage_(codePage), idle_(idle), settings_(settings) {}

    /// Replaces the file in one step. False when the person cancelled: what was there is then still there, as
    /// it is after a failure, which is thrown as the file port's Error.
    bool save(const Grid& grid, const std::string& path, char separator, WindowHandle owner);

  private:
    class Run;

    UserInterface person_;
    FileSystem& files_;
    const CodePage& codePage_;
    Idle& idle_;
    cQDLExtSettings& settings_;
};

}  // namespace pellmark
