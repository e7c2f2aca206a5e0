#pragma once

#include "controls/Controls.h"
#include "win32/controls/ControlPeer.h"

namespace pellmark {

/// An edit box of one or several lines. Lines are parted by CR LF on both sides.
class TextBoxPeer : public ControlPeer {
  public:
    TextBoxPeer(FormWindow& form, TextBox& box, HWND parent);

    void detach() override;
    void command(WORD code) override;

  protected:
    std::optional<LRESULT> message(UINT message, WPARAM wParam, LPARAM lParam) override;
    void controlChanged(ControlChange change) override;

  private:
    TextBox* box() const { return static_cast<TextBox*>(control()); }
    void show();

    Subscription textChanged_;
    Subscription selectionRequested_;
    bool showing_ = false;
};

}  // namespace pellmark
