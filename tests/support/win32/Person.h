#pragma once

#include <functional>
#include <initializer_list>
#include <string_view>

#include "win32/WindowsApi.h"

namespace pellmark::test {

/// Works the windows of the test's thread as a person does: keys and mouse go through the system's input
/// queue, and every call pumps messages until they have arrived.
class Person {
  public:
    /// Pumps until the condition holds; false after ten seconds.
    static bool waitUntil(const std::function<bool()>& condition);
    /// Pumps what is waiting.
    static void pump();

    /// Presses the keys one after the other and releases them in the reverse order: {VK_CONTROL, 'A'}.
    static void press(std::initializer_list<WORD> keys);
    static void type(std::string_view text);
    /// At a point of the window's client area.
    static void click(HWND window, POINT at, bool right = false);
    static void click(HWND window);
    /// With Ctrl or Shift held down.
    static void clickWith(WORD modifier, HWND window, POINT at);
    static void doubleClick(HWND window, POINT at);
    static void drag(HWND window, POINT from, POINT to);
    /// Only sends; for use inside a loop that somebody else runs, where pumping would be wrong.
    static void sendKeys(std::initializer_list<WORD> keys);
    static void sendClick(HWND window, POINT at, bool right);
    static POINT middleOf(HWND window);
    static void moveTo(HWND window, POINT at);
    static void pressMouse();
    static void releaseMouse();
    /// By so many notches, towards the person where negative.
    static void turnWheel(HWND over, POINT at, int notches);
};

/// Does things while somebody else's loop runs (a modal form, a message box, a menu): each step waits until
/// it can be done and answers true when it has been.
class Meanwhile {
  public:
    using Step = std::function<bool()>;
    explicit Meanwhile(std::initializer_list<Step> steps);
    ~Meanwhile();
    Meanwhile(const Meanwhile&) = delete;
    Meanwhile& operator=(const Meanwhile&) = delete;

    bool isDone() const;

  private:
    struct State;
    State* state_;
};

/// A visible top-level window of this process with that class, null when there is none.
HWND visibleWindowOfClass(const wchar_t* className);

}  // namespace pellmark::test
