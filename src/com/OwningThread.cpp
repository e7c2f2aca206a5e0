#include "com/OwningThread.h"

#include "automation/Guard.h"
#include "automation/Module.h"

namespace pellmark {

namespace {

constexpr UINT kRunTask = WM_APP;

}  // namespace

OwningThread::OwningThread(std::function<void()> task) : task_(std::move(task)) {
    // A message-only window of a class that is always there: a class of our own would have to be taken back
    // before the DLL goes. Unlike a message to the thread, one to a window is not lost in a modal loop.
    window_ = ::CreateWindowExW(0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                module::instance(), nullptr);
    if (window_ == nullptr) {
        throw CallError(HRESULT_FROM_WIN32(::GetLastError()), "The component cannot have a window");
    }
    ::SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    ::SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&OwningThread::procedure));
}

OwningThread::~OwningThread() {
    ::DestroyWindow(window_);
}

bool OwningThread::handOver() const noexcept {
    if (::PostMessageW(window_, kRunTask, 0, 0)) return true;
    // a queue can be full; this way does not go through it
    return ::SendNotifyMessageW(window_, kRunTask, 0, 0) != FALSE;
}

LRESULT CALLBACK OwningThread::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != kRunTask) return ::DefWindowProcW(window, message, wParam, lParam);
    const auto* self = reinterpret_cast<const OwningThread*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
    self->task_();
    return 0;
}

}  // namespace pellmark
