#pragma once

#include "win32/WindowsApi.h"
#include "win32/table/RedrawPause.h"

namespace pellmark {

/// Held while a list window selects or deselects many rows. It draws none of them meanwhile, and does without
/// its full-row style: in that, some versions of the control ask the headings about every row.
class [[nodiscard]] LongMove {
  public:
    explicit LongMove(HWND list) : list_(list), pause_(list) { setFullRows(0); }
    ~LongMove() { setFullRows(LVS_EX_FULLROWSELECT); }
    LongMove(const LongMove&) = delete;
    LongMove& operator=(const LongMove&) = delete;

  private:
    void setFullRows(LPARAM style) const {
        ::SendMessageW(list_, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, style);
    }

    HWND list_;
    RedrawPause pause_;
};

}  // namespace pellmark
