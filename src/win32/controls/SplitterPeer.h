#pragma once

#include <optional>

#include "controls/Splitter.h"
#include "win32/controls/ControlPeer.h"

namespace pellmark {

/// The bar between two neighbours. The mouse drags it and brings the usual place back with a double click.
/// With the keyboard in it (F6, see FormKeyboard) the arrows move it, with Ctrl finely, Home and End as far
/// as it goes, Delete brings the usual place back, Enter ends, and Escape takes all of it back.
class SplitterPeer : public ControlPeer {
  public:
    SplitterPeer(FormWindow& form, Splitter& splitter, HWND parent);

    /// True while the mouse drags a bar of this thread.
    static bool isDragged();
    /// Lets go of a bar that the mouse is dragging and takes its way back. False when none is dragged.
    static bool dropDragged();

  protected:
    std::optional<LRESULT> message(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    /// A bar that the mouse holds: where that was when it took hold, in pixels of the bar's parent.
    struct Hold {
        int mouse = 0;
        Twips first = 0;
        Share share;
    };

    Splitter* splitter() const { return static_cast<Splitter*>(control()); }
    bool isStanding() const { return splitter()->bar() == Splitter::Bar::Standing; }
    /// The mouse's place along the way of the bar.
    int mouseNow() const;
    void take();
    void letGo();
    void drop();
    bool keyDown(int key);
    void paint() const;

    std::optional<Hold> hold_;
    Share entered_;  ///< the share when the keyboard came
};

}  // namespace pellmark
