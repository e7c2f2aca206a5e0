#pragma once

#include "controls/Controls.h"
#include "win32/controls/ContainerPeer.h"

namespace pellmark {

/// A group box that is the parent of what stands in it, so that nothing is drawn past its edge.
class FramePeer : public ContainerPeer {
  public:
    FramePeer(FormWindow& form, Frame& frame, HWND parent);

  protected:
    std::optional<LRESULT> message(UINT message, WPARAM wParam, LPARAM lParam) override;
    void controlChanged(ControlChange change) override;

  private:
    void paint();
    void drawBox(HDC canvas, const RECT& client) const;
};

}  // namespace pellmark
