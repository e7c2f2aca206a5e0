#pragma once

#include <string>

#include "base/Geometry.h"

namespace pellmark {

/// A bar of tools that stands at an edge of its host's frame or floats above it. The forms here have none;
/// the layout store keeps the place of one for a host that asks for it.
class Toolbar {
  public:
    /// The number of the edge at which a bar is docked is the host's own; this one means none.
    static constexpr int kFloating = 0;

    explicit Toolbar(std::string name) : name_(std::move(name)) {}

    const std::string& name() const { return name_; }
    bool visible() const { return visible_; }
    void setVisible(bool visible) { visible_ = visible; }
    int position() const { return position_; }
    bool isDocked() const { return position_ != kFloating; }
    /// The upper left corner: in the frame while docked, on the screen while floating.
    const Point& place() const { return place_; }

    void dock(int position, Point at) {
        position_ = position;
        place_ = at;
    }
    void floatAt(Point at) { dock(kFloating, at); }

  private:
    std::string name_;
    bool visible_ = true;
    int position_ = kFloating;
    Point place_;
};

}  // namespace pellmark
