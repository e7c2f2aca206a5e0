#include "win32/forms/PeerFactory.h"

#include "base/Error.h"
#include "controls/Form.h"
#include "win32/controls/ButtonPeer.h"
#include "win32/controls/CheckListPeer.h"
#include "win32/controls/ComboBoxPeer.h"
#include "win32/controls/FramePeer.h"
#include "win32/controls/LabelPeer.h"
#include "win32/controls/SplitterPeer.h"
#include "win32/controls/TabStripPeer.h"
#include "win32/controls/TextBoxPeer.h"
#include "win32/table/GridPeer.h"
#include "win32/table/ListViewPeer.h"

namespace pellmark {

std::unique_ptr<ControlPeer> makePeer(FormWindow& form, Control& control, HWND parent) {
    switch (control.kind()) {
        case Control::Kind::Label:
            return std::make_unique<LabelPeer>(form, static_cast<Label&>(control), parent);
        case Control::Kind::Button:
            return std::make_unique<ButtonPeer>(form, static_cast<Button&>(control), parent);
        case Control::Kind::TextBox:
            return std::make_unique<TextBoxPeer>(form, static_cast<TextBox&>(control), parent);
        case Control::Kind::ComboBox:
            return std::make_unique<ComboBoxPeer>(form, static_cast<ComboBox&>(control), parent);
        case Control::Kind::CheckList:
            return std::make_unique<CheckListPeer>(form, static_cast<CheckList&>(control), parent);
        case Control::Kind::Frame:
            return std::make_unique<FramePeer>(form, static_cast<Frame&>(control), parent);
        case Control::Kind::TabStrip:
            return std::make_unique<TabStripPeer>(form, static_cast<TabStrip&>(control), parent);
        case Control::Kind::TabPage:
            return std::make_unique<TabPagePeer>(form, static_cast<TabPage&>(control), parent);
        case Control::Kind::Grid:
            return std::make_unique<GridPeer>(form, static_cast<Grid&>(control), parent);
        case Control::Kind::ListView:
            return std::make_unique<ListViewPeer>(form, static_cast<ListView&>(control), parent);
        case Control::Kind::Splitter:
            return std::make_unique<SplitterPeer>(form, static_cast<Splitter&>(control), parent);
        case Control::Kind::Form:
            break;
    }
    throw Error(errors::kInvalidArgument, "PeerFactory",
                "There is no window for the control " + control.name() + ".");
}

}  // namespace pellmark
