#include "win32/controls/ComboBoxPeer.h"

#include "win32/WideText.h"
#include "win32/controls/LineBox.h"
#include "win32/forms/FormWindow.h"
#include "win32/table/RedrawPause.h"

namespace pellmark {

namespace {
constexpr int kLinesShown = 16;
}  // namespace

ComboBoxPeer::ComboBoxPeer(FormWindow& form, ComboBox& combo, HWND parent) : ControlPeer(form, combo) {
    createWindow(parent, WC_COMBOBOXW, CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL);
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    if (::GetComboBoxInfo(window(), &info) && info.hwndList != nullptr) watchInner(info.hwndList);
    fitClosed();
    place();
    showItems();
    itemsChanged_ = combo.itemsChanged.subscribe([this] { showItems(); });
    indexChanged_ = combo.indexChanged.subscribe([this] { showIndex(); });
}

void ComboBoxPeer::detach() {
    itemsChanged_.reset();
    indexChanged_.reset();
    ControlPeer::detach();
}

void ComboBoxPeer::rescale() {
    ControlPeer::rescale();
    fitClosed();
    place();
    linebox::fitOpened(window());
}

RECT ComboBoxPeer::placement() const {
    // The system takes the height of the opened list; that of the closed box follows from its font.
    RECT at = ControlPeer::placement();
    at = linebox::placed(at, closedHeight(at));
    at.bottom += kLinesShown * scale().pixels(Twips{16 * kTwipsPerPixelAt96Dpi});
    return at;
}

int ComboBoxPeer::closedHeight(const RECT& room) const {
    return linebox::closedHeight(linebox::lineHeight(form().font()), room.bottom - room.top);
}

void ComboBoxPeer::fitClosed() {
    linebox::setClosedHeight(window(), closedHeight(ControlPeer::placement()));
}

void ComboBoxPeer::showItems() {
    {
        const RedrawPause pause(window());
        ::SendMessageW(window(), CB_RESETCONTENT, 0, 0);
        for (const ComboBox::Item& each : combo()->items())
            ::SendMessageW(window(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(toWide(each.text).c_str()));
    }
    linebox::fitOpened(window());
    showIndex();
}

void ComboBoxPeer::showIndex() {
    const auto index = static_cast<WPARAM>(combo()->index());  // none is -1 on both sides
    ::SendMessageW(window(), CB_SETCURSEL, index, 0);
}

void ComboBoxPeer::controlChanged(ControlChange change) {
    if (change != ControlChange::Caption) ControlPeer::controlChanged(change);
}

void ComboBoxPeer::command(WORD code) {
    if (code != CBN_SELCHANGE) return;
    const auto index = static_cast<int>(::SendMessageW(window(), CB_GETCURSEL, 0, 0));
    const auto quiet = indexChanged_.mute();
    combo()->choose(index);
}

}  // namespace pellmark
