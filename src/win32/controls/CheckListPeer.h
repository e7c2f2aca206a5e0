#pragma once

#include "controls/list/CheckList.h"
#include "win32/controls/ControlPeer.h"

namespace pellmark {

/// A check list's window: the system's own list with a check box before each line, which brings the arrow
/// keys, Space, typing ahead and what a screen reader says.
class CheckListPeer : public ControlPeer {
  public:
    CheckListPeer(FormWindow& form, CheckList& list, HWND parent);

    void detach() override;
    void rescale() override;
    std::optional<LRESULT> notified(NMHDR& header) override;

  protected:
    std::optional<LRESULT> message(UINT message, WPARAM wParam, LPARAM lParam) override;
    void controlChanged(ControlChange change) override;

  private:
    CheckList* list() const { return static_cast<CheckList*>(control()); }
    void showItems();
    void showSelection(int item);
    void fitColumn();
    void remakeBoxes();

    bool filling_ = false;  ///< the window's notifications are about what it was told
    Subscription itemsChanged_;
    Subscription selectionChanged_;
};

}  // namespace pellmark
