#pragma once

#include <windows.h>

#include <functional>
#include <utility>

namespace pellmark {

/// Does something once a modal form or message of this thread is up, from inside its message loop, and closes
/// each that comes. One at a time.
class DuringModal {
  public:
    explicit DuringModal(HWND host, std::function<void()> action = {})
        : host_(host), action_(std::move(action)) {
        current() = this;
        timer_ = SetTimer(nullptr, 0, kPollMilliseconds, &tick);
    }
    DuringModal(const DuringModal&) = delete;
    DuringModal& operator=(const DuringModal&) = delete;
    ~DuringModal() {
        KillTimer(nullptr, timer_);
        current() = nullptr;
    }
    bool wasShown() const { return wasShown_; }

  private:
    static constexpr UINT kPollMilliseconds = 10;

    static DuringModal*& current() {
        static DuringModal* instance = nullptr;
        return instance;
    }
    static BOOL CALLBACK seek(HWND window, LPARAM parameter) {
        auto& self = *reinterpret_cast<DuringModal*>(parameter);
        if (window == self.host_ || !IsWindowVisible(window)) return TRUE;
        self.form_ = window;
        return FALSE;
    }
    static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD) {
        DuringModal& self = *current();
        self.form_ = nullptr;
        EnumThreadWindows(GetCurrentThreadId(), &seek, reinterpret_cast<LPARAM>(&self));
        if (self.form_ == nullptr) return;
        self.wasShown_ = true;
        const HWND form = self.form_;
        if (self.action_) std::exchange(self.action_, {})();
        if (IsWindow(form)) PostMessageW(form, WM_CLOSE, 0, 0);
    }

    HWND host_;
    HWND form_ = nullptr;
    std::function<void()> action_;
    UINT_PTR timer_ = 0;
    bool wasShown_ = false;
};

}  // namespace pellmark
