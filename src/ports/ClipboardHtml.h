#pragma once

#include <string>
#include <string_view>

namespace pellmark {

/// A fragment of a page as the clipboard's form "HTML Format" wants it: in UTF-8, inside a page of its own,
/// under a heading that says at which bytes the page and the fragment begin and end.
std::string clipboardHtml(std::string_view fragment);

}  // namespace pellmark
