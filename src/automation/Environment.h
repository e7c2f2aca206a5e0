#pragma once

#include <string>

namespace pellmark {

/// The value of an environment variable of this process, of any length, as UTF-8; empty where there is none.
std::string environmentText(const wchar_t* name);

}  // namespace pellmark
