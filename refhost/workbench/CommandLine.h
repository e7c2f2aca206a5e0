#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace norvex {

enum class StartView { None, Processes, Case };

/// What the workbench was started with. Texts are UTF-8.
struct CommandLine {
    std::string knowledgeBase;              ///< --kb FILE; "" for the configured one
    StartView view = StartView::Processes;  ///< --view processes|case|none
    std::string readyFile;  ///< --screenshot-ready FILE: written once the first view has been painted
    std::string user;       ///< --user NAME
    std::optional<std::int16_t> language;  ///< --language CODE
    bool help = false;                     ///< --help
    std::string mistake;                   ///< what cannot be understood; "" when all is well
};

/// Reads the arguments behind the program's name.
CommandLine parseCommandLine(const std::vector<std::string>& arguments);

/// The options, for a message box.
const char* commandLineHelp();

}  // namespace norvex
