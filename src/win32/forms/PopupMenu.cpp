#include "win32/forms/PopupMenu.h"

#include <functional>

#include "win32/WideText.h"

namespace pellmark {

PopupMenu::PopupMenu(const Menu& menu) : menu_(::CreatePopupMenu()) {
    bool separatorDue = false;
    bool any = false;
    UINT_PTR id = 0;
    for (const MenuItem& item : menu.items()) {
        ++id;
        if (!item.visible) continue;
        if (item.isSeparator()) {
            separatorDue = any;
            continue;
        }
        if (separatorDue) ::AppendMenuW(menu_.get(), MF_SEPARATOR, 0, nullptr);
        separatorDue = false;
        any = true;
        const UINT flags = MF_STRING | (item.enabled ? MF_ENABLED : MF_GRAYED);
        const std::string key = item.shortcut.empty() ? std::string() : "\t" + item.shortcut;
        ::AppendMenuW(menu_.get(), flags, id, toWide(item.caption + key).c_str());
    }
}

std::optional<int> PopupMenu::track(HWND owner, POINT at) const {
    const UINT flags = TPM_RETURNCMD | TPM_RIGHTBUTTON | TPM_NONOTIFY;
    const int id = ::TrackPopupMenuEx(menu_.get(), flags, static_cast<int>(at.x), static_cast<int>(at.y),
                                      owner, nullptr);
    return id > 0 ? std::optional(id - 1) : std::nullopt;
}

void PopupMenu::run(Menu& menu, int position) {
    const MenuItem& item = menu.items()[static_cast<std::size_t>(position)];
    // The command may change or destroy the menu.
    const std::function<void()> command = item.command;
    if (command) command();
}

}  // namespace pellmark
