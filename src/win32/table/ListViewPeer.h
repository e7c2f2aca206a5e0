#pragma once

#include "controls/list/ListView.h"
#include "win32/table/ListViewTable.h"
#include "win32/table/TablePeer.h"

namespace pellmark {

/// A report list's window.
class ListViewPeer : public TablePeer {
  public:
    ListViewPeer(FormWindow& form, ListView& list, HWND parent);

    void detach() override;
    std::optional<LRESULT> notified(NMHDR& header) override;

  protected:
    void cellDoubleClicked(Cell cell) override;
    void headingClicked(int column) override;

  private:
    ListView* list() const { return static_cast<ListView*>(control()); }
    void modelChanged(const ListChange& change);

    Subscription listChanged_;
};

}  // namespace pellmark
