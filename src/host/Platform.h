#pragma once

#include <string>

#include "base/Trace.h"
#include "desktop/CodePage.h"
#include "desktop/Desktop.h"
#include "desktop/FileSystem.h"
#include "desktop/HelpViewer.h"
#include "desktop/Registry.h"
#include "host/HostInterfaces.h"

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
    HostLibrary& hostLibrary;
    Trace& trace;
    /// The folder of the component's own DLL, without a trailing "\".
    std::string componentFolder;
    /// The host executable's name without folder and extension: the first half of an error's source.
    std::string executableName;
};

}  // namespace pellmark
