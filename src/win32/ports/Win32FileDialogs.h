#pragma once

#include <string>

#include "base/Operations.h"
#include "ports/FileDialogs.h"
#include "win32/WindowsApi.h"

#include <commdlg.h>  // needs the system's types

namespace pellmark {

/// The system's own dialogs for files.
class Win32FileDialogs : public FileDialogs {
  public:
    explicit Win32FileDialogs(const Operations& operations) : operations_(operations) {}

    FileDialogResult open(const FileDialogRequest& request, const FileDialogHook& hook) override;
    FileDialogResult save(const FileDialogRequest& request, const FileDialogHook& hook) override;
    std::string fileTitle(const std::string& path) override;

  private:
    using Call = BOOL(WINAPI*)(OPENFILENAMEW*);
    FileDialogResult show(Call call, const FileDialogRequest& request, const FileDialogHook& hook);

    Operations operations_;
};

}  // namespace pellmark
