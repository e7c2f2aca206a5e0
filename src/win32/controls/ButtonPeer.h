#pragma once

#include "controls/Controls.h"
#include "win32/controls/ControlPeer.h"

namespace pellmark {

/// A push button. The one that Enter would press is drawn as the default.
class ButtonPeer : public ControlPeer {
  public:
    ButtonPeer(FormWindow& form, Button& button, HWND parent);

    void showDefault(bool isDefault);
    void command(WORD code) override;
    bool accessed() override;

  protected:
    std::optional<LRESULT> message(UINT message, WPARAM wParam, LPARAM lParam) override;
};

}  // namespace pellmark
