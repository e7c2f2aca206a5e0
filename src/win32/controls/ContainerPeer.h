#pragma once

#include <memory>
#include <vector>

#include "win32/controls/ControlPeer.h"

namespace pellmark {

/// A window that holds the windows of other controls: it owns their peers, hands their notifications to
/// them and paints the background behind them.
class ContainerPeer : public ControlPeer {
  public:
    void detach() override;
    void rescale() override;
    void arrange() override;
    ControlPeer* find(const Control& control) override;
    void collect(std::vector<ControlPeer*>& peers) override;

  protected:
    using ControlPeer::ControlPeer;

    Container* container() const { return static_cast<Container*>(control()); }
    const std::vector<std::unique_ptr<ControlPeer>>& children() const { return children_; }
    /// Creates the windows within, in tab order.
    void createChildren();
    /// Destroys the windows within.
    void destroyChildren() { children_.clear(); }
    std::optional<LRESULT> message(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    std::vector<std::unique_ptr<ControlPeer>> children_;
};

}  // namespace pellmark
