#pragma once

#include "win32/WindowsApi.h"

namespace pellmark {

/// While it lives, the first dialog box that the system shows on this thread comes up over the middle of its
/// owner. Left to itself a message box stands in the middle of the screen, which may be a hand's breadth away
/// from what it is about. A box without an owner that can be seen stays where the system puts it.
class CentredBox {
  public:
    CentredBox();
    ~CentredBox();
    CentredBox(const CentredBox&) = delete;
    CentredBox& operator=(const CentredBox&) = delete;

  private:
    static LRESULT CALLBACK activated(int code, WPARAM wParam, LPARAM lParam) noexcept;

    CentredBox* before_;  ///< of a box below this one
    HHOOK hook_;
    bool isPlaced_ = false;
};

}  // namespace pellmark
