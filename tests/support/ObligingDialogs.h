#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "ports/FileDialogs.h"
#include "ports/SystemDialogs.h"

namespace pellmark::test {

/// A person who chooses one path in every dialog.
class ObligingFileDialogs : public FileDialogs {
  public:
    std::string answer;
    std::function<void(const std::string& what)> onShown;

    FileDialogResult open(const FileDialogRequest& request, const FileDialogHook& hook) override {
        return choose(request, hook);
    }
    FileDialogResult save(const FileDialogRequest& request, const FileDialogHook& hook) override {
        return choose(request, hook);
    }
    std::string fileTitle(const std::string& path) override { return path; }

  private:
    FileDialogResult choose(const FileDialogRequest&, const FileDialogHook&) {
        if (onShown) onShown("file dialog");
        FileDialogResult chosen;
        chosen.confirmed = true;
        chosen.fileNames = {answer};
        return chosen;
    }
};

/// A person who says OK to the print dialog; no other is opened.
class ObligingSystemDialogs : public SystemDialogs {
  public:
    std::function<void(const std::string& what)> onShown;

    DialogResult<ColorChoice> chooseColor(const ColorChoice&, WindowHandle, std::uint32_t) override {
        return {};
    }
    DialogResult<FontChoice> chooseFont(const FontChoice&, WindowHandle, std::uint32_t) override {
        return {};
    }
    DialogResult<PrintChoice> print(const PrintChoice& first, WindowHandle, std::uint32_t) override {
        if (onShown) onShown("print dialog");
        return {true, first, 0};
    }
    DialogResult<PageChoice> pageSetup(const PageChoice&, WindowHandle, std::uint32_t) override { return {}; }
};

}  // namespace pellmark::test
