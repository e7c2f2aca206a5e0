#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "base/Geometry.h"

namespace pellmark {

/// What a file dialog tells while it is open.
enum class FileDialogMessage { Initialised, TypeChanged, Ok, FolderChanged, SelectionChanged, Destroyed };

/// Answers false to Ok when the dialog is to stay open; every other answer has no meaning.
using FileDialogHook = std::function<bool(FileDialogMessage)>;

/// The system's own bits, as callers combine them.
namespace filedialog {
inline constexpr std::uint32_t kOverwritePrompt = 0x2;
inline constexpr std::uint32_t kAllowMultiSelect = 0x200;
inline constexpr std::uint32_t kPathMustExist = 0x800;
inline constexpr std::uint32_t kFileMustExist = 0x1000;
}  // namespace filedialog

/// What a file dialog is opened with.
struct FileDialogRequest {
    std::string fileName;   ///< in the name box at first
    std::string fileTitle;  ///< what the title buffer holds before the dialog writes it
    std::string filter;     ///< "Text (*.txt)|*.txt|All Files (*.*)|*.*|": descriptions and patterns in turn
    int filterIndex = 1;    ///< the chosen pair, from 1
    std::string initialFolder;
    std::string title;
    std::string defaultExtension;
    WindowHandle owner = 0;
    std::uint32_t flags = 0;
};

/// How a file dialog ended.
struct FileDialogResult {
    bool confirmed = false;
    std::vector<std::string> fileNames;  ///< whole paths; more than one where kAllowMultiSelect was given
    std::string fileTitle;
    int filterIndex = 0;
    std::uint32_t extendedError = 0;  ///< why the dialog could not be shown; 0 also when a person cancelled
};

/// The system's dialogs for files. They do not throw: a failure is the result's extendedError.
class FileDialogs {
  public:
    virtual ~FileDialogs() = default;
    virtual FileDialogResult open(const FileDialogRequest& request, const FileDialogHook& hook) = 0;
    virtual FileDialogResult save(const FileDialogRequest& request, const FileDialogHook& hook) = 0;
    /// The name of a path as the system shows it, with or without its extension; "" for what is no path.
    virtual std::string fileTitle(const std::string& path) = 0;
};

/// The pairs of description and pattern of a filter; an odd piece at the end is dropped.
std::vector<std::pair<std::string, std::string>> filterPairs(const std::string& filter);

/// The paths in what the system answers: one path, or a folder and the names in it with a zero character
/// behind each.
std::vector<std::string> chosenPaths(const std::string& answer);

}  // namespace pellmark
