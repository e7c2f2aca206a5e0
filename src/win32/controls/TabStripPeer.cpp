#include "win32/controls/TabStripPeer.h"

#include "win32/WideText.h"
#include "win32/forms/FormWindow.h"

namespace pellmark {

TabPagePeer::TabPagePeer(FormWindow& form, TabPage& page, HWND parent) : ContainerPeer(form, page) {
    createWindow(parent, form.surroundings().containerClass(), WS_CLIPCHILDREN, WS_EX_CONTROLPARENT);
    show(strip().index() >= 0 && strip().pages()[static_cast<std::size_t>(strip().index())] == &page);
    createChildren();
}

TabStrip& TabPagePeer::strip() const {
    return *static_cast<TabStrip*>(control()->parent());
}

void TabPagePeer::show(bool shown) {
    ::ShowWindow(window(), shown ? SW_SHOWNA : SW_HIDE);
}

void TabPagePeer::controlChanged(ControlChange change) {
    if (change != ControlChange::Visible) ContainerPeer::controlChanged(change);
}

TabStripPeer::TabStripPeer(FormWindow& form, TabStrip& strip, HWND parent) : ContainerPeer(form, strip) {
    createWindow(parent, WC_TABCONTROLW, WS_CLIPCHILDREN, WS_EX_CONTROLPARENT);
    TCITEMW tab{};
    tab.mask = TCIF_TEXT;
    int index = 0;
    for (TabPage* page : strip.pages()) {
        std::wstring caption = toWide(page->caption());
        tab.pszText = caption.data();
        ::SendMessageW(window(), TCM_INSERTITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&tab));
        captions_.push_back(page->changed.subscribe([this, index](ControlChange change) {
            if (change == ControlChange::Caption) showTab(index);
        }));
        ++index;
    }
    createChildren();
    showPage();
    arrange();
    indexChanged_ = strip.indexChanged.subscribe([this] { showPage(); });
}

void TabStripPeer::detach() {
    indexChanged_.reset();
    captions_.clear();
    ContainerPeer::detach();
}

void TabStripPeer::showTab(int index) {
    std::wstring caption = toWide(strip()->pages()[static_cast<std::size_t>(index)]->caption());
    TCITEMW tab{};
    tab.mask = TCIF_TEXT;
    tab.pszText = caption.data();
    ::SendMessageW(window(), TCM_SETITEMW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&tab));
}

void TabStripPeer::showPage() {
    const int index = strip()->index();
    ::SendMessageW(window(), TCM_SETCURSEL, static_cast<WPARAM>(index), 0);
    const HWND focus = ::GetFocus();
    TabPagePeer* shown = nullptr;
    for (const auto& each : children()) {
        auto& page = static_cast<TabPagePeer&>(*each);
        const bool isShown =
            index >= 0 && page.control() == strip()->pages()[static_cast<std::size_t>(index)];
        if (isShown) shown = &page;
    }
    if (shown != nullptr) shown->show(true);
    for (const auto& each : children()) {
        if (each.get() == shown) continue;
        // The keyboard must not stay in a page that nobody sees.
        if (focus != nullptr && ::IsChild(each->window(), focus)) ::SetFocus(window());
        static_cast<TabPagePeer&>(*each).show(false);
    }
}

void TabStripPeer::rescale() {
    ContainerPeer::rescale();
    arrange();
}

void TabStripPeer::arrange() {
    RECT page{0, 0, scale().pixels(strip()->bounds().width), scale().pixels(strip()->bounds().height)};
    ::SendMessageW(window(), TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&page));
    if (page.right < page.left) page.right = page.left;
    if (page.bottom < page.top) page.bottom = page.top;
    const Point corner = scale().twips(POINT{page.left, page.top});
    for (TabPage* each : strip()->pages()) {
        const Rect& bounds = each->bounds();
        each->setBounds({corner.left, corner.top, bounds.width, bounds.height});
    }
    strip()->arrange({scale().twips(static_cast<int>(page.right - page.left)),
                      scale().twips(static_cast<int>(page.bottom - page.top))});
}

std::optional<LRESULT> TabStripPeer::notified(NMHDR& header) {
    if (header.code == TCN_SELCHANGE) {
        strip()->click(static_cast<int>(::SendMessageW(window(), TCM_GETCURSEL, 0, 0)));
        return 0;
    }
    return std::nullopt;
}

void TabStripPeer::step(int by) {
    const auto count = static_cast<int>(strip()->pages().size());
    if (count > 0) strip()->click((strip()->index() + by + count) % count);
}

std::optional<LRESULT> TabStripPeer::message(UINT message, WPARAM wParam, LPARAM lParam) {
    // The tabs paint themselves; only what concerns the pages is the container's.
    if (message == WM_ERASEBKGND || message == WM_CTLCOLORSTATIC || message == WM_CTLCOLORBTN)
        return std::nullopt;
    return ContainerPeer::message(message, wParam, lParam);
}

}  // namespace pellmark
