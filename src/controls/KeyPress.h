#pragma once

namespace pellmark {

/// A key press, which a handler may take for itself.
struct KeyPress {
    int keyCode = 0;
    bool shift = false;
    bool control = false;
    bool handled = false;

    // The codes are those of Windows.
    static constexpr int kEnter = 13;
    static constexpr int kEscape = 27;
    static constexpr int kPageUp = 33;
    static constexpr int kPageDown = 34;
    static constexpr int kUp = 38;
    static constexpr int kDown = 40;
    static constexpr int kInsert = 45;
    static constexpr int kDelete = 46;
    static constexpr int kF2 = 0x71;
    static constexpr int kF5 = 0x74;

    /// The key alone, without Shift or Ctrl.
    bool is(int code) const { return keyCode == code && !shift && !control; }
    bool isWithControl(int code) const { return keyCode == code && control && !shift; }
};

}  // namespace pellmark
