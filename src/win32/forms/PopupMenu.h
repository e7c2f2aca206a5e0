#pragma once

#include <optional>

#include "controls/Menu.h"
#include "win32/Handles.h"
#include "win32/WindowsApi.h"

namespace pellmark {

/// A menu model as the system shows it: hidden items left out, and separators only between items.
class PopupMenu {
  public:
    explicit PopupMenu(const Menu& menu);

    /// Shows the menu at a point of the screen and waits. The position of the chosen item in the model, or
    /// nothing.
    std::optional<int> track(HWND owner, POINT at) const;
    /// Runs the command of an item by its position.
    static void run(Menu& menu, int position);

    HMENU handle() const { return menu_.get(); }

  private:
    Handle<HMENU, &::DestroyMenu> menu_;
};

}  // namespace pellmark
