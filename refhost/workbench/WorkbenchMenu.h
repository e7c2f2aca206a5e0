#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "refhost/windows/HostTexts.h"
#include "refhost/workbench/HostSession.h"

namespace norvex {

/// The menu bar of the main window.
class WorkbenchMenu {
  public:
    /// Makes the window's bar anew in a language.
    void build(HWND window, const HostTexts& texts, HostSession& session);
    /// Takes the users of the knowledge base that is open.
    void fill(HostSession& session);
    /// Ticks what is chosen, and offers only what is possible: without a knowledge base nothing that shows
    /// one, and without the component nothing that closes it.
    void refresh(HostSession& session, bool hasComponent);

    bool isUser(int id) const;
    const std::string& userOf(int id) const;

  private:
    HMENU settings(int position) const;

    HWND window_ = nullptr;
    std::vector<std::string> users_;
};

}  // namespace norvex
