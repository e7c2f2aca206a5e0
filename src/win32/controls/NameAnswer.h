#pragma once

#include <optional>

#include "controls/Control.h"
#include "win32/WindowsApi.h"

namespace pellmark {

/// The answer of a window that shows no text of its own, a list or a tab strip, when it is asked for its
/// text: its name, which is how a screen reader learns it. Nothing for any other window or message. The name
/// is the one of the moment: captions change with the language.
std::optional<LRESULT> answerWithName(const Control& control, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace pellmark
