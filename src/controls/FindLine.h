#pragma once

#include <string>

#include "controls/Controls.h"

namespace pellmark {

/// The line above a list into which a person types what to look for: hidden until it is opened. It knows
/// nothing of lists; whoever narrows one listens to it.
class FindLine : public Frame {
  public:
    /// What an open line takes from the room of its list.
    static constexpr Twips kHeight = 435;
    /// The least at which everything in it can be used.
    static constexpr Twips kLeastWidth = 4400;

    FindLine(Container& parent, std::string name);

    bool isOpen() const { return visible(); }
    /// Shows the line and takes the keyboard to it; what stands there is selected.
    void open();
    /// Hides it and forgets the text.
    void close();
    /// What the line takes: its height while it is open, nothing otherwise.
    Twips taken() const { return isOpen() ? kHeight : 0; }
    const std::string& text() const { return TxtFind.text(); }

    void arrange(Size client) override;

    Label LblFind{*this, "LblFind"};
    TextBox TxtFind{*this, "TxtFind"};
    Label LblFound{*this, "LblFound"};
    Button CmdCloseFind{*this, "CmdCloseFind"};

    /// The line has been opened or closed: what stands around it makes room.
    Event<> toggled;
};

}  // namespace pellmark
