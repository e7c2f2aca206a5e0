#pragma once

#include <string>

namespace pellmark {

class Control;

/// The label that stands directly before the control in the order of the Tab key; null for anything else.
const Control* labelBefore(const Control& control);

/// What a screen reader calls a control: its caption, else that of the label before it in the order of the
/// Tab key, else that of what it stands in, up to the form. Without the marks of access keys; "" where
/// nothing in sight says a name.
std::string spokenName(const Control& control);

}  // namespace pellmark
