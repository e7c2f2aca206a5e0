#pragma once

#include "controls/Controls.h"
#include "win32/controls/ControlPeer.h"

namespace pellmark {

/// An edit box of one or several lines, the latter with a scroll bar while it has something to scroll. Lines
/// are parted by CR LF on both sides.
class TextBoxPeer : public ControlPeer {
  public:
    TextBoxPeer(FormWindow& form, TextBox& box, HWND parent);

    void detach() override;
    void command(WORD code) override;
    RECT placement() const override;

  protected:
    std::optional<LRESULT> message(UINT message, WPARAM wParam, LPARAM lParam) override;
    void controlChanged(ControlChange change) override;

  private:
    TextBox* box() const { return static_cast<TextBox*>(control()); }
    void show();
    /// Shows the scroll bar of a box of several lines where there are more than it has room for.
    void fitScrollBar();
    bool isOverfull() const;
    void showScrollBar(bool shown);

    Subscription textChanged_;
    Subscription selectionRequested_;
    bool showing_ = false;
    bool hasScrollBar_ = true;
    bool fitting_ = false;
};

}  // namespace pellmark
