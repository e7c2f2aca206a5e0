#include "win32/forms/TabOrder.h"

#include <algorithm>
#include <string>

#include "controls/Splitter.h"
#include "win32/WideText.h"

namespace pellmark {

namespace {

wchar_t lower(wchar_t letter) {
    const auto code = reinterpret_cast<LPWSTR>(static_cast<std::uintptr_t>(letter));
    return static_cast<wchar_t>(reinterpret_cast<std::uintptr_t>(::CharLowerW(code)));
}

/// The window's own style does not tell: in a top-level window the bit of WS_TABSTOP is WS_MAXIMIZEBOX.
bool takesKeyboard(const ControlPeer& peer) {
    return peer.control()->tabStop() && ::IsWindowVisible(peer.window()) && ::IsWindowEnabled(peer.window());
}

}  // namespace

wchar_t accessKey(const std::wstring& caption) {
    for (std::size_t at = caption.find(L'&'); at != std::wstring::npos && at + 1 < caption.size();
         at = caption.find(L'&', at + 2)) {
        if (caption[at + 1] != L'&') return lower(caption[at + 1]);
    }
    return 0;
}

template <class Accept>
ControlPeer* TabOrder::walk(const ControlPeer* from, int step, Accept&& accept) const {
    const auto count = static_cast<int>(peers_.size());
    const auto found = std::find(peers_.begin(), peers_.end(), from);
    int at = found != peers_.end() ? static_cast<int>(found - peers_.begin()) : (step > 0 ? -1 : count);
    for (int i = 0; i < count; ++i) {
        at = (at + step + count) % count;
        ControlPeer* peer = peers_[static_cast<std::size_t>(at)];
        if (accept(*peer)) return peer;
    }
    return nullptr;
}

ControlPeer* TabOrder::first(Control::Kind kind) const {
    return walk(nullptr, 1, [kind](const ControlPeer& each) { return each.control()->kind() == kind; });
}

ControlPeer* TabOrder::next(const ControlPeer* from, int step) const {
    return walk(from, step, [](const ControlPeer& each) { return takesKeyboard(each); });
}

ControlPeer* TabOrder::nextSibling(const ControlPeer& from, int step) const {
    const Container* parent = from.control()->parent();
    return walk(&from, step, [parent](const ControlPeer& each) {
        return each.control()->parent() == parent && takesKeyboard(each);
    });
}

ControlPeer* TabOrder::nextSplitter(const ControlPeer* from, int step) const {
    return walk(from, step, [](const ControlPeer& each) {
        return each.control()->kind() == Control::Kind::Splitter &&
               static_cast<const Splitter*>(each.control())->isMovable();
    });
}

ControlPeer* TabOrder::withAccessKey(wchar_t key, const ControlPeer* from) const {
    const wchar_t wanted = lower(key);
    return walk(from, 1, [wanted](const ControlPeer& each) {
        return each.control()->kind() != Control::Kind::Form && each.control()->enabled() &&
               accessKey(toWide(each.control()->caption())) == wanted;
    });
}

}  // namespace pellmark
