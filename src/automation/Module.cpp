#include "automation/Module.h"

#include <atomic>
#include <stdexcept>

namespace pellmark::module {

namespace {

// The one piece of state that belongs to the DLL rather than to an object: the loader asks without one.
std::atomic<long>& lockCount() noexcept {
    static constinit std::atomic<long> count{0};
    return count;
}

}  // namespace

void Lock::add() noexcept {
    ++lockCount();
}
void Lock::remove() noexcept {
    --lockCount();
}
bool Lock::any() noexcept {
    return lockCount() > 0;
}

HINSTANCE instance() noexcept {
    HMODULE module = nullptr;
    ::GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<LPCWSTR>(&instance), &module);
    return module;
}

std::wstring pathOf(HMODULE module) {
    constexpr std::size_t kLongestPath = 32768;
    std::wstring buffer(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = ::GetModuleFileNameW(module, buffer.data(), static_cast<DWORD>(buffer.size()));
        if (length == 0) throw std::runtime_error("the module has no path");
        // a path that fills the buffer has been cut
        if (length < buffer.size()) {
            buffer.resize(length);
            return buffer;
        }
        if (buffer.size() >= kLongestPath) throw std::runtime_error("the module's path is too long");
        buffer.resize(buffer.size() * 2);
    }
}

}  // namespace pellmark::module
