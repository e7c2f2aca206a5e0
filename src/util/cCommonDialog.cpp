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
    if (!ended(result.confirmed, result.extendedError) || result.fileNames.empty()) return false;
    request.fileName = result.fileNames.front();
    request.fileTitle = result.fileTitle;
    request.filterIndex = result.filterIndex;
    return true;
}

bool cCommonDialog::ended(bool confirmed, std::uint32_t extendedError) {
    apiReturn_ = confirmed ? 1 : 0;
    extendedError_ = extendedError;
    if (extendedError == 0) return confirmed;
    throw Error(static_cast<std::int32_t>(extendedError), sourceOf(extendedError),
                "The dialog could not be shown (code " + std::to_string(extendedError) + ").");
}

std::string cCommonDialog::sourceOf(std::uint32_t number) const {
    return executableName_ + (number >= kFirstDialogError ? ".CommonDialog" : ".VBError");
}

std::size_t cCommonDialog::checkedIndex(int index) const {
    if (index < 0 || static_cast<std::size_t>(index) >= customColors_.size()) {
        throw Error(errors::kInvalidArgument, sourceOf(errors::kInvalidArgument),
                    "There is no custom colour " + std::to_string(index) + ".");
    }
    return static_cast<std::size_t>(index);
}

bool cCommonDialog::VBChooseColor(Color& color, WindowHandle owner, std::uint32_t flags) {
    const auto result = others_.chooseColor({color, customColors_}, owner, flags);
    // The colours that were mixed stay, as in every program, also when none of them was taken.
    if (result.extendedError == 0) customColors_ = result.chosen.customColors;
    if (!ended(result.confirmed, result.extendedError)) return false;
    color = result.chosen.color;
    return true;
}

bool cCommonDialog::VBChooseFont(Font& font, Color& color, WindowHandle owner, std::uint32_t flags) {
    const auto result = others_.chooseFont({font, color}, owner, flags);
    if (!ended(result.confirmed, result.extendedError)) return false;
    font = result.chosen.font;
    color = result.chosen.color;
    return true;
}

bool cCommonDialog::VBPrintDlg(PageRange& pages, WindowHandle owner, std::uint32_t flags) {
    const auto result = others_.print({printer_.settings(), pages}, owner, flags);
    if (!ended(result.confirmed, result.extendedError)) return false;
    printer_.setSettings(result.chosen.settings);
    pages = result.chosen.pages;
    return true;
}

bool cCommonDialog::VBPageSetupDlg(PageMargins& margins, WindowHandle owner, std::uint32_t flags) {
    const auto result = others_.pageSetup({printer_.settings(), margins}, owner, flags);
    if (!ended(result.confirmed, result.extendedError)) return false;
    printer_.setSettings(result.chosen.settings);
    margins = result.chosen.margins;
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
