#pragma once

#include <memory>

#include "refhost/automation/AutomationObject.h"
#include "refhost/automation/HostWindow.h"

namespace norvex {

/// "Norvex.Application": what a host hands to the component. A program sets its own window; for a script the
/// object makes one when it is asked for.
class HostApplicationObject : public AutomationObject {
  public:
    HostApplicationObject();

  private:
    std::int32_t mainWindow();
    void addSettings();

    HWND given_ = nullptr;
    std::unique_ptr<HostWindow> own_;
};

}  // namespace norvex
