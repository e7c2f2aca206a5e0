#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "ports/FileDialogs.h"
#include "ports/FileSystem.h"
#include "ports/Printer.h"
#include "ports/SystemDialogs.h"

namespace pellmark {

/// Hears what happens in an open file dialog.
class FileDialogEvents {
  public:
    virtual ~FileDialogEvents() = default;
    virtual void InitDialog() {}
    virtual void TypeChange() {}
    /// False keeps the dialog open.
    virtual bool ConfirmOK() { return true; }
    virtual void FolderChange() {}
    virtual void FileChange() {}
    virtual void DialogClose() {}
};

/// The system's dialogs behind plain calls. A dialog that cannot be shown throws Error with the
/// system's extended error code as its number.
class cCommonDialog {
  public:
    /// `executableName` is the host executable's name without folder and extension, the first half of an
    /// error's source. The ports must outlive this object.
    cCommonDialog(FileDialogs& dialogs, SystemDialogs& others, Printer& printer, FileSystem& files,
                  std::string executableName)
        : dialogs_(dialogs),
          others_(others),
          printer_(printer),
          files_(files),
          executableName_(std::move(executableName)) {
        customColors_.fill(kWhite);
    }

    /// Each shows its dialog and returns true when the person confirmed: fileName, fileTitle and filterIndex
    /// of the request are then what was chosen. After a cancel the request is as it was.
    bool VBGetOpenFileName(FileDialogRequest& request);
    /// `overwritePrompt` lets the dialog ask before an existing file is chosen.
    bool VBGetSaveFileName(FileDialogRequest& request, bool overwritePrompt);
    /// The paths chosen in the last open dialog; none after a cancel.
    const std::vector<std::string>& GetFileNames() const { return fileNames_; }
    /// The display name of a path.
    std::string VBGetFileTitle(const std::string& path);
    /// True when the path names an existing file, hidden ones included; a pattern names none.
    bool FileExists(const std::string& path);

    /// Each shows its dialog with what is given and returns true when the person confirmed; what was chosen
    /// is then in its place, and after a cancel nothing has changed. `flags` are the system's own bits.
    bool VBChooseColor(Color& color, WindowHandle owner, std::uint32_t flags = 0);
    /// The sixteen colours that persons mixed for themselves, from 0, white at first; the colour dialog shows
    /// and changes them. Throws Error (invalid argument) for another index.
    Color CustomColor(int index) const { return customColors_[checkedIndex(index)]; }
    void setCustomColor(int index, Color color) { customColors_[checkedIndex(index)] = color; }
    bool VBChooseFont(Font& font, Color& color, WindowHandle owner, std::uint32_t flags = 0);
    /// Sets the printer's device, Copies, Orientation, PaperSize and PrintQuality to what was chosen, and
    /// gives the pages that are wanted. How many there are is not known yet.
    bool VBPrintDlg(PageRange& pages, WindowHandle owner, std::uint32_t flags = 0);
    /// The printer alike, and the margins of the page.
    bool VBPageSetupDlg(PageMargins& margins, WindowHandle owner, std::uint32_t flags = 0);

    /// Whether the last dialog was confirmed, as the system's call returned it: 1 or 0.
    std::int32_t APIReturn() const { return apiReturn_; }
    /// The system's reason why the last dialog failed, 0 for none.
    std::uint32_t ExtendedError() const { return extendedError_; }

    /// Hears the dialogs from now on; null for nobody. It must outlive them or be replaced.
    void setEvents(FileDialogEvents* events) { events_ = events; }
    /// Passes a dialog's message on. False when OK is refused.
    bool DialogHook(FileDialogMessage message);

  private:
    static constexpr Color kWhite = 0xFFFFFF;

    bool finish(const FileDialogResult& result, FileDialogRequest& request);
    /// Keeps how a dialog ended; throws when it failed.
    bool ended(bool confirmed, std::uint32_t extendedError);
    std::string sourceOf(std::uint32_t number) const;
    std::size_t checkedIndex(int index) const;

    FileDialogs& dialogs_;
    SystemDialogs& others_;
    Printer& printer_;
    FileSystem& files_;
    std::string executableName_;
    FileDialogEvents* events_ = nullptr;
    CustomColors customColors_;
    std::vector<std::string> fileNames_;
    std::int32_t apiReturn_ = 0;
    std::uint32_t extendedError_ = 0;
};

}  // namespace pellmark
