#include "support/win32/Person.h"

#include <algorithm>
#include <vector>

namespace pellmark::test {

namespace {

constexpr int kSlices = 1000;
constexpr DWORD kSlice = 10;

void sendKey(WORD key, bool up) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(::MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0;
    ::SendInput(1, &input, sizeof input);
}

void sendMouse(DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    ::SendInput(1, &input, sizeof input);
}

/// The window that the reverse of the pressed keys goes to may be another: pumping in between is what
/// happens to a slow person too.
void settle() {
    for (int i = 0; i < 5; ++i) {
        Person::pump();
        ::Sleep(1);
    }
}

}  // namespace

void Person::moveTo(HWND window, POINT at) {
    ::ClientToScreen(window, &at);
    ::SetCursorPos(static_cast<int>(at.x), static_cast<int>(at.y));
}

void Person::pressMouse() {
    sendMouse(MOUSEEVENTF_LEFTDOWN);
    settle();
}

void Person::releaseMouse() {
    sendMouse(MOUSEEVENTF_LEFTUP);
}

void Person::turnWheel(HWND over, POINT at, int notches) {
    moveTo(over, at);
    settle();
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = MOUSEEVENTF_WHEEL;
    input.mi.mouseData = static_cast<DWORD>(notches * WHEEL_DELTA);
    ::SendInput(1, &input, sizeof input);
    settle();
}

void Person::pump() {
    MSG message{};
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
}

bool Person::waitUntil(const std::function<bool()>& condition) {
    for (int i = 0; i < kSlices; ++i) {
        pump();
        if (condition()) return true;
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, kSlice, QS_ALLINPUT);
    }
    return false;
}

void Person::sendKeys(std::initializer_list<WORD> keys) {
    for (const WORD each : keys)
        sendKey(each, false);
    const std::vector<WORD> pressed(keys);
    for (auto each = pressed.rbegin(); each != pressed.rend(); ++each)
        sendKey(*each, true);
}

void Person::press(std::initializer_list<WORD> keys) {
    for (const WORD each : keys)
        sendKey(each, false);
    settle();
    const std::vector<WORD> pressed(keys);
    for (auto each = pressed.rbegin(); each != pressed.rend(); ++each)
        sendKey(*each, true);
    settle();
}

void Person::type(std::string_view text) {
    for (const char each : text) {
        const SHORT key = ::VkKeyScanA(each);
        if ((key & 0x100) != 0) {
            press({VK_SHIFT, static_cast<WORD>(key & 0xFF)});
        } else {
            press({static_cast<WORD>(key & 0xFF)});
        }
    }
}

POINT Person::middleOf(HWND window) {
    RECT client{};
    ::GetClientRect(window, &client);
    return {client.right / 2, client.bottom / 2};
}

void Person::sendClick(HWND window, POINT at, bool right) {
    moveTo(window, at);
    sendMouse(right ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN);
    sendMouse(right ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP);
}

void Person::click(HWND window, POINT at, bool right) {
    sendClick(window, at, right);
    settle();
}

void Person::click(HWND window) {
    click(window, middleOf(window));
}

void Person::clickWith(WORD modifier, HWND window, POINT at) {
    // The screen's own idea of what is pressed comes with every move of the mouse: first the move.
    moveTo(window, at);
    settle();
    sendKey(modifier, false);
    sendMouse(MOUSEEVENTF_LEFTDOWN);
    sendMouse(MOUSEEVENTF_LEFTUP);
    settle();
    sendKey(modifier, true);
    settle();
}

void Person::doubleClick(HWND window, POINT at) {
    sendClick(window, at, false);
    sendClick(window, at, false);
    settle();
}

void Person::drag(HWND window, POINT from, POINT to) {
    moveTo(window, from);
    sendMouse(MOUSEEVENTF_LEFTDOWN);
    settle();
    constexpr int kSteps = 8;
    for (int i = 1; i <= kSteps; ++i) {
        moveTo(window, {from.x + (to.x - from.x) * i / kSteps, from.y + (to.y - from.y) * i / kSteps});
        settle();
    }
    sendMouse(MOUSEEVENTF_LEFTUP);
    settle();
}

struct Meanwhile::State {
    std::vector<Step> steps;
    std::size_t next = 0;
    bool busy = false;
    HWND timer = nullptr;

    static void CALLBACK tick(HWND window, UINT, UINT_PTR, DWORD) noexcept {
        auto* state = reinterpret_cast<State*>(::GetWindowLongPtrW(window, GWLP_USERDATA));
        if (state->busy || state->next >= state->steps.size()) return;
        state->busy = true;
        const bool done = state->steps[state->next]();
        state->busy = false;
        if (done) ++state->next;
    }
};

Meanwhile::Meanwhile(std::initializer_list<Step> steps) : state_(new State) {
    state_->steps = steps;
    state_->timer =
        ::CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    ::SetWindowLongPtrW(state_->timer, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(state_));
    ::SetTimer(state_->timer, 1, kSlice, &State::tick);
}

Meanwhile::~Meanwhile() {
    ::DestroyWindow(state_->timer);
    delete state_;
}

bool Meanwhile::isDone() const {
    return state_->next >= state_->steps.size();
}

HWND visibleWindowOfClass(const wchar_t* className) {
    HWND found = nullptr;
    while ((found = ::FindWindowExW(nullptr, found, className, nullptr)) != nullptr) {
        DWORD process = 0;
        ::GetWindowThreadProcessId(found, &process);
        if (process == ::GetCurrentProcessId() && ::IsWindowVisible(found)) return found;
    }
    return nullptr;
}

}  // namespace pellmark::test
