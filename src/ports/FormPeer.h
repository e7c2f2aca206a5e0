#pragma once

#include <functional>
#include <optional>

#include "base/Geometry.h"

namespace pellmark {

class Control;
class Menu;

/// Where in the host a window is embedded, in pixels of the host's window; without an area it fills that.
struct EmbeddedPlace {
    WindowHandle parent = 0;
    std::optional<Rect> area;
};

/// The window behind a form, made by the Desktop. Destroying it destroys the window.
class FormPeer {
  public:
    virtual ~FormPeer() = default;

    /// The window's handle, 0 where there is no real window.
    virtual WindowHandle handle() const = 0;
    /// Makes the window a borderless child of the host's window and shows it at its place there. The host
    /// moves it from then on.
    virtual void embed(const EmbeddedPlace& place) = 0;
    /// Where it is embedded now; nothing when it is not or has gone.
    virtual std::optional<EmbeddedPlace> embeddedPlace() const = 0;
    /// Shows the window above its disabled owner and returns when endModal has been called. The owner is
    /// enabled again and gets the focus back, whatever way the dialog ended.
    virtual void runModal(WindowHandle owner) = 0;
    virtual void endModal() = 0;
    /// The same while the work runs instead of a loop. What it throws is thrown on.
    virtual void runWhile(WindowHandle owner, const std::function<void()>& work) = 0;
    /// Pops a menu up and returns when it has been closed; the chosen item's handler has run by then. A
    /// negative place means where the keyboard is in the control: at a grid's current row.
    virtual void popUp(Menu& menu, Control& over, Point at) = 0;
};

}  // namespace pellmark
