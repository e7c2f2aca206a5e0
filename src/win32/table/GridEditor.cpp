#include "win32/table/GridEditor.h"

#include <vector>

#include "win32/WideText.h"
#include "win32/controls/LineBox.h"

namespace pellmark {

namespace {
constexpr int kChoicesShown = 12;
}  // namespace

GridEditor::GridEditor(HWND list, const RECT& cell, const DisplayList& choices, const std::string& stored,
                       HFONT font, const Operations& operations, Ended ended)
    : list_(list), choices_(choices), stored_(stored), ended_(std::move(ended)) {
    const bool isList = !choices_.empty();
    box_ = ::CreateWindowExW(
        0, isList ? WC_COMBOBOXW : WC_EDITW, nullptr,
        WS_CHILD | WS_CLIPSIBLINGS | (isList ? CBS_DROPDOWNLIST | WS_VSCROLL : WS_BORDER | ES_AUTOHSCROLL), 0,
        0, 0, 0, list, nullptr, nullptr, nullptr);
    if (isList) {
        makeList(stored);
        fit(cell, font);
    } else {
        fit(cell, font);
        makeLine(stored);
    }
    hook_.emplace(box_, *this, operations);
    ::ShowWindow(box_, SW_SHOWNA);
    ::SetFocus(box_);
    if (isList) ::SendMessageW(box_, CB_SHOWDROPDOWN, TRUE, 0);
}

GridEditor::~GridEditor() {
    const bool hadFocus = ::GetFocus() == box_;
    hook_.reset();
    if (hadFocus) ::SetFocus(list_);
    ::DestroyWindow(box_);
}

void GridEditor::fit(const RECT& cell, HFONT font) {
    ::SendMessageW(box_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    const bool isList = !choices_.empty();
    const int height = static_cast<int>(cell.bottom - cell.top);
    ::SetWindowPos(box_, nullptr, cell.left, cell.top, cell.right - cell.left,
                   isList ? height * kChoicesShown : height, SWP_NOZORDER | SWP_NOACTIVATE);
    if (!isList) return;
    linebox::setClosedHeight(box_, linebox::closedHeight(linebox::lineHeight(font), height));
    linebox::fitOpened(box_);
}

void GridEditor::makeList(const std::string& stored) {
    for (const DisplayList::Item& each : choices_.items())
        ::SendMessageW(box_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(toWide(each.shown).c_str()));
    ::SendMessageW(box_, CB_SETCURSEL, static_cast<WPARAM>(choices_.indexOf(stored)), 0);
}

void GridEditor::makeLine(const std::string& stored) {
    ::SetWindowTextW(box_, toWide(stored).c_str());
    ::SendMessageW(box_, EM_SETSEL, 0, -1);
}

std::string GridEditor::value() const {
    if (!choices_.empty()) {
        const auto index = ::SendMessageW(box_, CB_GETCURSEL, 0, 0);
        // Nothing chosen leaves the cell as it was.
        return index < 0 ? stored_ : choices_.items()[static_cast<std::size_t>(index)].stored;
    }
    std::vector<wchar_t> text(static_cast<std::size_t>(::GetWindowTextLengthW(box_)) + 1);
    const int length = ::GetWindowTextW(box_, text.data(), static_cast<int>(text.size()));
    return fromWide({text.data(), static_cast<std::size_t>(length)});
}

void GridEditor::end(End how) {
    const Ended ended = ended_;  // the call may destroy this
    ended(how);
}

std::optional<LRESULT> GridEditor::seen(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    switch (message) {
        case WM_GETDLGCODE:
            return DLGC_WANTALLKEYS | WindowHook::pass(window, message, wParam, lParam);
        case WM_CHAR:
            if (wParam == VK_RETURN || wParam == VK_ESCAPE || wParam == VK_TAB) return 0;  // no beep
            break;
        case WM_KEYDOWN:
            if (wParam == VK_RETURN) {
                end(End::Commit);
                return 0;
            }
            if (wParam == VK_TAB) {
                end(::GetKeyState(VK_SHIFT) < 0 ? End::Previous : End::Next);
                return 0;
            }
            if (wParam == VK_ESCAPE) {
                end(End::Cancel);
                return 0;
            }
            break;
        case WM_KILLFOCUS: {
            const LRESULT result = WindowHook::pass(window, message, wParam, lParam);
            // The opened list of the box belongs to it.
            const HWND next = reinterpret_cast<HWND>(wParam);
            if (next == nullptr || !::IsChild(window, next)) end(End::LostFocus);
            return result;
        }
        default:
            break;
    }
    return std::nullopt;
}

}  // namespace pellmark
