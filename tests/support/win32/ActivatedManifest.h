#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>

namespace pellmark::test {

/// Makes the classes of a shipped manifest known to the calling thread while it lives.
class ActivatedManifest {
  public:
    /// Throws std::runtime_error when the system does not take the file.
    explicit ActivatedManifest(const std::wstring& path) {
        ACTCTXW request{};
        request.cbSize = sizeof request;
        request.lpSource = path.c_str();
        context_ = CreateActCtxW(&request);
        if (context_ == INVALID_HANDLE_VALUE || !ActivateActCtx(context_, &cookie_)) {
            throw std::runtime_error("no activation context");
        }
    }
    ActivatedManifest(const ActivatedManifest&) = delete;
    ActivatedManifest& operator=(const ActivatedManifest&) = delete;
    ~ActivatedManifest() {
        DeactivateActCtx(0, cookie_);
        ReleaseActCtx(context_);
    }

  private:
    HANDLE context_ = INVALID_HANDLE_VALUE;
    ULONG_PTR cookie_ = 0;
};

}  // namespace pellmark::test
