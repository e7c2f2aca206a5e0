#include "win32/controls/ComboBoxPeer.h"

#include <algorithm>

#include "win32/WideText.h"
#include "win32/table/RedrawPause.h"

namespace pellmark {

namespace {
constexpr int kLinesShown = 16;
constexpr int kBordersOfTheClosedBox = 6;
}  // namespace

ComboBoxPeer::ComboBoxPeer(FormWindow& form, ComboBox& combo, HWND parent) : ControlPeer(form, combo) {
    createWindow(parent, WC_COMBOBOXW, CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL);
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    if (::GetComboBoxInfo(window(), &info) && info.hwndList != nullptr) watchInner(info.hwndList);
    fitHeight();
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
    fitHeight();
}

RECT ComboBoxPeer::placement() const {
    // The system takes the height of the opened list; that of the closed box follows from its font.
    RECT at = ControlPeer::placement();
    at.bottom += kLinesShown * scale().pixels(Twips{16 * kTwipsPerPixelAt96Dpi});
    return at;
}

void ComboBoxPeer::fitHeight() {
    const Rect& bounds = combo()->bounds();
    const int height = scale().pixels(bounds.height) - kBordersOfTheClosedBox;
    const auto line = static_cast<int>(::SendMessageW(window(), CB_GETITEMHEIGHT, 0, 0));
    ::SendMessageW(window(), CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), std::max(height, line));
}

void ComboBoxPeer::showItems() {
    {
        const RedrawPause pause(window());
        ::SendMessageW(window(), CB_RESETCONTENT, 0, 0);
        for (const ComboBox::Item& each : combo()->items())
            ::SendMessageW(window(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(toWide(each.text).c_str()));
    }
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
