#include "win32/controls/NameAnswer.h"

#include <algorithm>
#include <string>

#include "controls/SpokenName.h"
#include "win32/WideText.h"

namespace pellmark {

namespace {

bool isWithoutText(Control::Kind kind) {
    return kind == Control::Kind::Grid || kind == Control::Kind::ListView ||
           kind == Control::Kind::CheckList || kind == Control::Kind::TabStrip;
}

}  // namespace

std::optional<LRESULT> answerWithName(const Control& control, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_GETTEXT && message != WM_GETTEXTLENGTH) return std::nullopt;
    if (!isWithoutText(control.kind())) return std::nullopt;
    const std::wstring name = toWide(spokenName(control));
    if (message == WM_GETTEXTLENGTH) return static_cast<LRESULT>(name.size());
    if (wParam == 0) return 0;
    auto* room = reinterpret_cast<wchar_t*>(lParam);
    const std::size_t length = std::min<std::size_t>(name.size(), wParam - 1);
    std::copy_n(name.c_str(), length, room);
    room[length] = L'\0';
    return static_cast<LRESULT>(length);
}

}  // namespace pellmark
