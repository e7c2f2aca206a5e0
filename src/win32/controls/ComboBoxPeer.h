#pragma once

#include "controls/Controls.h"
#include "win32/controls/ControlPeer.h"

namespace pellmark {

/// A drop-down list.
class ComboBoxPeer : public ControlPeer {
  public:
    ComboBoxPeer(FormWindow& form, ComboBox& combo, HWND parent);

    void detach() override;
    void rescale() override;
    RECT placement() const override;
    void command(WORD code) override;

  protected:
    void controlChanged(ControlChange change) override;

  private:
    ComboBox* combo() const { return static_cast<ComboBox*>(control()); }
    void showItems();
    void showIndex();
    int closedHeight(const RECT& room) const;
    void fitClosed();

    Subscription itemsChanged_;
    Subscription indexChanged_;
};

}  // namespace pellmark
