#pragma once

#include <windows.h>

#include <cstdint>
#include <utility>

namespace pellmark {

/// Owns one system handle and closes it. Closing keeps the calling thread's last error, so that a failure can
/// still be reported after its cleanup.
template <class Type, auto Close, std::intptr_t Invalid = 0>
class Handle {
  public:
    Handle() = default;
    explicit Handle(Type handle) : handle_(handle) {}
    Handle(Handle&& other) noexcept : handle_(other.release()) {}
    Handle& operator=(Handle&& other) noexcept {
        if (this != &other) reset(other.release());
        return *this;
    }
    ~Handle() { reset(); }

    Type get() const { return handle_; }
    explicit operator bool() const { return handle_ != invalid(); }

    /// Gives the handle up without closing it.
    Type release() { return std::exchange(handle_, invalid()); }

    void reset(Type handle = invalid()) {
        const Type old = std::exchange(handle_, handle);
        if (old == invalid()) return;
        const DWORD error = ::GetLastError();
        Close(old);
        ::SetLastError(error);
    }

  private:
    static Type invalid() { return reinterpret_cast<Type>(Invalid); }

    Type handle_ = invalid();
};

using FileHandle = Handle<HANDLE, &::CloseHandle, -1>;
using GlobalMemory = Handle<HGLOBAL, &::GlobalFree>;
using FontHandle = Handle<HFONT, &::DeleteObject>;
using FindHandle = Handle<HANDLE, &::FindClose, -1>;

}  // namespace pellmark
