#pragma once

#include <optional>

#include "base/Viewport.h"
#include "win32/WindowsApi.h"

namespace pellmark {

class FormWindow;

/// The scroll bars of a form's window: they come where the window has less room than the form is laid out
/// for, and go when it has enough again. All lengths in pixels.
class FormScroll {
  public:
    explicit FormScroll(FormWindow& form) : form_(form) {}

    /// The window's room or what the form needs at least has changed. The size to lay the form out for.
    Size fit(Size least);
    /// The width of a standing bar and the height of a lying one.
    Size barSizes() const;
    /// True while the bars come and go, which changes the window's room in between.
    bool isFitting() const { return fitting_; }

    /// The point of the form that is at the window's upper left corner.
    Point at() const { return view_.at(); }
    /// Nothing is brought into sight under a pressed mouse: what it does next counts where it is.
    static bool isMousePressed();
    /// Shows the window of a control, if need be by scrolling.
    void reveal(HWND control);
    /// The same for a control with a label that stands at its left.
    void reveal(HWND control, HWND label);
    /// The same for a part of a window, in pixels of that one's client area.
    void reveal(HWND window, RECT part);

    /// What a person does to the bars or with the wheel over a place where nothing else takes it.
    std::optional<LRESULT> message(UINT message, WPARAM wParam, LPARAM lParam);

  private:
    /// A part of a window in the form's contents; nothing where nothing is to be scrolled.
    std::optional<Rect> placeOf(HWND window, RECT part) const;
    std::optional<Rect> placeOf(HWND control) const;
    void reveal(const std::optional<Rect>& wanted);
    /// The window's room if it had no bars.
    Size roomWithoutBars() const;
    void showBar(int bar, int content, int page, int at) const;
    void showBars() const;
    void scrollTo(Point at);
    void moved(Point from) const;
    std::optional<int> barMoved(int bar, int code, int at, int page) const;
    bool turnWheel(bool across, int delta);
    int line() const;

    FormWindow& form_;
    Viewport view_;
    bool fitting_ = false;
    int wheel_ = 0;  ///< what has been turned but is less than a step
};

}  // namespace pellmark
