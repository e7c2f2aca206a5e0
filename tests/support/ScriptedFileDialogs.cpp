#include "support/ScriptedFileDialogs.h"

#include <gtest/gtest.h>

#include "ports/FileNames.h"

namespace pellmark::test {

ScriptedFileDialogs::~ScriptedFileDialogs() {
    for (const Expected& expected : script_)
        ADD_FAILURE() << "never came: the " << expected.kind << " dialog";
}

ScriptedFileDialogs::Script ScriptedFileDialogs::choosing(const std::string& path) {
    return [path](const FileDialogHook&) {
        FileDialogResult result;
        if (path.empty()) return result;
        result.confirmed = true;
        result.fileNames = {path};
        result.fileTitle = nameOfPath(path);
        result.filterIndex = 1;
        return result;
    };
}

FileDialogResult ScriptedFileDialogs::show(const std::string& kind, const FileDialogRequest& request,
                                           const FileDialogHook& hook) {
    requests_.push_back(request);
    if (script_.empty() || script_.front().kind != kind) {
        ADD_FAILURE() << "unexpected " << kind << " dialog: " << request.title;
        return {};
    }
    const Script script = std::move(script_.front().script);
    script_.pop_front();
    return script(hook);
}

}  // namespace pellmark::test
