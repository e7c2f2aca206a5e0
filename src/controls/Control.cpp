#include "controls/Control.h"

#include <algorithm>

#include "controls/Form.h"

namespace pellmark {

Control::Control(Kind kind, Container* parent, std::string name)
    : kind_(kind), parent_(parent), name_(std::move(name)) {
    if (parent_ != nullptr) parent_->children_.push_back(this);
}

Control::~Control() {
    if (parent_ == nullptr) return;
    if (Form* root = form()) root->forget(*this);
    std::erase(parent_->children_, this);
}

Form* Control::form() {
    Control* root = this;
    while (root->parent_ != nullptr)
        root = root->parent_;
    return root->kind_ == Kind::Form ? static_cast<Form*>(root) : nullptr;
}

const Form* Control::form() const {
    return const_cast<Control*>(this)->form();
}

void Control::setFocus() {
    if (Form* root = form()) root->askFocus(*this);
    focusRequested.raise();
}

void Control::setCaption(std::string caption) {
    if (caption == caption_) return;
    caption_ = std::move(caption);
    changed.raise(ControlChange::Caption);
}

void Control::setBounds(const Rect& bounds) {
    if (bounds == bounds_) return;
    bounds_ = bounds;
    changed.raise(ControlChange::Bounds);
}

void Control::setVisible(bool visible) {
    if (visible == visible_) return;
    visible_ = visible;
    changed.raise(ControlChange::Visible);
}

void Control::setEnabled(bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    changed.raise(ControlChange::Enabled);
}

void Control::setToolTip(std::string toolTip) {
    if (toolTip == toolTip_) return;
    toolTip_ = std::move(toolTip);
    changed.raise(ControlChange::ToolTip);
}

void Control::place(const Rect& design, Size designParent, Anchors anchors) {
    design_ = design;
    designParent_ = designParent;
    anchors_ = anchors;
    setBounds(design);
}

Container::~Container() {
    for (Control* child : children_)
        child->parent_ = nullptr;
}

void arrangeInside(Control& control) {
    // A tab strip's pages wait for its peer, which alone knows how much of it the tabs take.
    if (control.kind() != Control::Kind::Frame && control.kind() != Control::Kind::TabPage) return;
    static_cast<Container&>(control).arrange({control.bounds().width, control.bounds().height});
}

void Container::arrange(Size client) {
    for (Control* child : children_) {
        if (child->designParent() == Size{}) continue;
        child->setBounds(
            anchoredRect(child->designBounds(), child->designParent(), client, child->anchors()));
        arrangeInside(*child);
    }
}

Rect anchoredRect(const Rect& design, Size designed, Size actual, const Anchors& anchors) {
    const Twips wider = actual.width - designed.width;
    const Twips higher = actual.height - designed.height;
    Rect placed = design;
    if (anchors.right) (anchors.left ? placed.width : placed.left) += wider;
    if (anchors.bottom) (anchors.top ? placed.height : placed.top) += higher;
    placed.width = std::max(placed.width, 0);
    placed.height = std::max(placed.height, 0);
    return placed;
}

}  // namespace pellmark
