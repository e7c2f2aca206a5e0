#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/Event.h"
#include "base/Geometry.h"

namespace pellmark {

class Container;
class Form;

/// Which edges of its container a control follows when the container is resized. A control tied to both
/// opposite edges grows; one tied to neither keeps its left or top distance.
struct Anchors {
    bool left = true;
    bool top = true;
    bool right = false;
    bool bottom = false;
};

/// What about a control changed, so that its peer repaints no more than needed. A smallest size have forms
/// only.
enum class ControlChange { Caption, Bounds, Visible, Enabled, ToolTip, MinimumSize };

/// The part that all control models share: a name, a place in twips, and the states a person sees.
/// Models know no window; a peer in the windows layer draws them and turns input into calls on them.
/// A control registers itself with its container when it is constructed and must be destroyed before or
/// with it, which members of one form class are.
class Control {
  public:
    enum class Kind {
        Label,
        Button,
        TextBox,
        ComboBox,
        CheckList,
        Frame,
        TabStrip,
        TabPage,
        Grid,
        ListView,
        Splitter,
        Form
    };

    Control(Kind kind, Container* parent, std::string name);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    Kind kind() const { return kind_; }
    const std::string& name() const { return name_; }
    Container* parent() const { return parent_; }
    /// The form at the root, or null while the control stands in none.
    Form* form();
    const Form* form() const;

    /// A "&" before a letter makes it the access key; "&&" shows one ampersand.
    const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);

    const Rect& bounds() const { return bounds_; }
    void setBounds(const Rect& bounds);

    bool visible() const { return visible_; }
    void setVisible(bool visible);
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);
    const std::string& toolTip() const { return toolTip_; }
    void setToolTip(std::string toolTip);

    /// Controls are visited by the Tab key in this order; equal numbers in the order of construction.
    int tabIndex() const { return tabIndex_; }
    void setTabIndex(int tabIndex) { tabIndex_ = tabIndex; }
    /// False for what the Tab key passes over (labels, frames).
    bool tabStop() const { return tabStop_; }
    void setTabStop(bool tabStop) { tabStop_ = tabStop; }

    /// While set, Escape is this control's own key: it comes to the control and does not close the form.
    bool takesEscape() const { return takesEscape_; }
    void setTakesEscape(bool takes) { takesEscape_ = takes; }

    const Anchors& anchors() const { return anchors_; }
    /// Declares place and behaviour on resize together: `design` within a container of `designParent`.
    void place(const Rect& design, Size designParent, Anchors anchors);
    const Rect& designBounds() const { return design_; }
    Size designParent() const { return designParent_; }

    /// Moves the keyboard here, or lets it arrive here when the form is shown.
    void setFocus();

    /// For the peer.
    Event<ControlChange> changed;
    Event<> focusRequested;
    /// Raised by the peer when the keyboard focus arrives.
    Event<> entered;

  private:
    friend class Container;

    Kind kind_;
    Container* parent_;
    std::string name_;
    std::string caption_;
    std::string toolTip_;
    Rect bounds_;
    Rect design_;
    Size designParent_;
    Anchors anchors_;
    bool visible_ = true;
    bool enabled_ = true;
    bool tabStop_ = true;
    bool takesEscape_ = false;
    int tabIndex_ = 0;
};

/// A control that holds others. Children are not owned: they are members of the form class.
class Container : public Control {
  public:
    using Control::Control;
    ~Container() override;

    /// In the order of construction.
    const std::vector<Control*>& children() const { return children_; }

    /// Lays the children out for a client area of this size, by their anchors; a subclass with layout rules
    /// of its own overrides it. Called by the peer at every resize and before the first show.
    virtual void arrange(Size client);

  private:
    friend class Control;
    std::vector<Control*> children_;
};

/// Lays a frame's or a page's children out for the bounds that it has now; other controls have none.
void arrangeInside(Control& control);

/// The rectangle of a control designed as `design` in a container of size `designed`, in one of `actual`.
/// Never narrower or lower than nothing.
Rect anchoredRect(const Rect& design, Size designed, Size actual, const Anchors& anchors);

}  // namespace pellmark
