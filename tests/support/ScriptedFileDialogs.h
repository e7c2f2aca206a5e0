#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "ports/FileDialogs.h"

namespace pellmark::test {

/// A person at the file dialogs, scripted: each dialog must have been announced, in order. An unexpected one
/// fails the test, and so does one that never came.
class ScriptedFileDialogs : public FileDialogs {
  public:
    /// Gets the hook, so that it can do what happens in an open dialog.
    using Script = std::function<FileDialogResult(const FileDialogHook&)>;

    ~ScriptedFileDialogs() override;

    void expectOpen(Script script) { script_.push_back({"open", std::move(script)}); }
    void expectSave(Script script) { script_.push_back({"save", std::move(script)}); }
    /// The person chooses this path, or cancels when it is empty.
    void expectOpen(const std::string& path) { expectOpen(choosing(path)); }
    void expectSave(const std::string& path) { expectSave(choosing(path)); }

    /// Every dialog so far, for looking at titles, filters and folders.
    const std::vector<FileDialogRequest>& requests() const { return requests_; }

    FileDialogResult open(const FileDialogRequest& request, const FileDialogHook& hook) override {
        return show("open", request, hook);
    }
    FileDialogResult save(const FileDialogRequest& request, const FileDialogHook& hook) override {
        return show("save", request, hook);
    }
    std::string fileTitle(const std::string& path) override { return "title of " + path; }

  private:
    struct Expected {
        std::string kind;
        Script script;
    };
    static Script choosing(const std::string& path);
    FileDialogResult show(const std::string& kind, const FileDialogRequest& request,
                          const FileDialogHook& hook);

    std::deque<Expected> script_;
    std::vector<FileDialogRequest> requests_;
};

}  // namespace pellmark::test
