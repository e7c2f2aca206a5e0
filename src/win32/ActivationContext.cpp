#include "win32/ActivationContext.h"

#include <string>

namespace pellmark {

namespace {
constexpr int kManifestOfALibrary = 2;
}

ActivationContext::ActivationContext(HINSTANCE component, Trace& trace) {
    wchar_t path[MAX_PATH * 4] = L"";
    ::GetModuleFileNameW(component, path, static_cast<DWORD>(std::size(path)));
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    wanted.lpSource = path;
    wanted.hModule = component;
    wanted.lpResourceName = MAKEINTRESOURCEW(kManifestOfALibrary);
    context_ = ::CreateActCtxW(&wanted);
    if (!isThere()) {
        trace.record("ActivationContext",
                     "no themed controls, system error " + std::to_string(::GetLastError()));
    }
}

ActivationContext::~ActivationContext() {
    if (isThere()) ::ReleaseActCtx(context_);
}

ActivationContext::Active::Active(const ActivationContext& context)
    : active_(context.isThere() && ::ActivateActCtx(context.context_, &cookie_) != FALSE) {}

ActivationContext::Active::~Active() {
    if (active_) ::DeactivateActCtx(0, cookie_);
}

}  // namespace pellmark
