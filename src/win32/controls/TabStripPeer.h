#pragma once

#include "controls/Controls.h"
#include "win32/controls/ContainerPeer.h"

namespace pellmark {

/// The page of a tab strip: a plain container below the tabs.
class TabPagePeer : public ContainerPeer {
  public:
    TabPagePeer(FormWindow& form, TabPage& page, HWND parent);

    void show(bool shown);

  protected:
    void controlChanged(ControlChange change) override;

  private:
    TabStrip& strip() const;
};

/// The system's tabs over page containers, of which one is shown.
class TabStripPeer : public ContainerPeer {
  public:
    TabStripPeer(FormWindow& form, TabStrip& strip, HWND parent);

    void detach() override;
    void rescale() override;
    /// Tells the model the size that the tabs leave, and places the pages there.
    void arrange() override;
    std::optional<LRESULT> notified(NMHDR& header) override;
    /// Ctrl+Tab: the next page or, with a negative step, the one before, round the ends.
    void step(int by);

  protected:
    std::optional<LRESULT> message(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    TabStrip* strip() const { return static_cast<TabStrip*>(control()); }
    void showTab(int index);
    void showPage();

    Subscription indexChanged_;
    std::vector<Subscription> captions_;
};

}  // namespace pellmark
