#include "util/cCommonDialog.h"

#include <algorithm>

#include "base/Error.h"

namespace pellmark {

namespace {

/// Codes below are the run-time's own numbers, those from here on are the dialogs'.
constexpr std::uint32_t kFirstDialogError = 1001;

}  // namespace

bool cCommonDialog::VBGetOpenFileName(FileDialogRequest& request) {
    fileNames_.clear();
    const FileDialogResult result =
        dialogs_.open(request, [this](FileDialogMessage message) { return DialogHook(message); });
    if (result.confirmed) fileNames_ = result.fileNames;
    return finish(result, request);
}

bool cCommonDialog::VBGetSaveFileName(FileDialogRequest& request, bool overwritePrompt) {
    FileDialogRequest asked = request;
    if (overwritePrompt) asked.flags |= filedialog::kOverwritePrompt;
    return finish(dialogs_.save(asked, [this](FileDialogMessage message) { return DialogHook(message); }),
                  request);
}

bool cCommonDialog::finish(const FileDialogResult& result, FileDialogRequest& request) {
    apiReturn_ = result.confirmed ? 1 : 0;
    extendedError_ = result.extendedError;
    if (extendedError_ != 0) {
        const bool isDialogs = extendedError_ >= kFirstDialogError;
        throw Error(static_cast<std::int32_t>(extendedError_),
                    executableName_ + (isDialogs ? ".CommonDialog" : ".VBError"),
                    "The file dialog could not be shown (code " + std::to_string(extendedError_) + ").");
    }
    if (!result.confirmed || result.fileNames.empty()) return false;
    request.fileName = result.fileNames.front();
    request.fileTitle = result.fileTitle;
    request.filterIndex = result.filterIndex;
    return true;
}

std::string cCommonDialog::VBGetFileTitle(const std::string& path) {
    return dialogs_.fileTitle(path);
}

bool cCommonDialog::FileExists(const std::string& path) {
    if (path.empty() || path.back() == '\\' || path.find_first_of("*?") != std::string::npos) return false;
    const auto entries = files_.list(path);
    return std::any_of(entries.begin(), entries.end(), [](const auto& entry) { return !entry.isFolder(); });
}

bool cCommonDialog::DialogHook(FileDialogMessage message) {
    if (events_ == nullptr) return true;
    switch (message) {
        case FileDialogMessage::Initialised:
            events_->InitDialog();
            break;
        case FileDialogMessage::TypeChanged:
            events_->TypeChange();
            break;
        case FileDialogMessage::Ok:
            return events_->ConfirmOK();
        case FileDialogMessage::FolderChanged:
            events_->FolderChange();
            break;
        case FileDialogMessage::SelectionChanged:
            events_->FileChange();
            break;
        case FileDialogMessage::Destroyed:
            events_->DialogClose();
            break;
    }
    return true;
}

}  // namespace pellmark
