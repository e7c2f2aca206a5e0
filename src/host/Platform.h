#pragma once

#include <string>

#include "base/Operations.h"
#include "ports/Clipboard.h"
#include "ports/CodePage.h"
#include "ports/Desktop.h"
#include "ports/FileDialogs.h"
#include "ports/FileSystem.h"
#include "ports/HelpViewer.h"
#include "ports/HostInterfaces.h"
#include "ports/Printer.h"
#include "ports/Registry.h"
#include "ports/SystemDialogs.h"

namespace pellmark {

/// The ports over which a component runs. Whoever composes the component owns them and keeps them alive
/// until the Application is gone.
struct Platform {
    Desktop& desktop;
    Registry& registry;
    CodePage& codePage;
    FileSystem& files;
    Idle& idle;
    HelpViewer& help;
    FileDialogs& fileDialogs;
    SystemDialogs& systemDialogs;
    Clipboard& clipboard;
    Printer& printer;
    HostLibrary& hostLibrary;
    Operations operations;  ///< with the component's trace
    /// The folder of the component's own DLL, without a trailing "\".
    std::string componentFolder;
    /// The host executable's name without folder and extension: the first half of an error's source.
    std::string executableName;
};

}  // namespace pellmark
