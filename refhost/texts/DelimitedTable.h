#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace norvex {

/// Takes delimited text apart as RFC 4180 has it, with a separator of choice: fields in quotes may hold the
/// separator, line breaks and doubled quotes; lines end in LF, CR LF or CR. Blank lines are left out. A quote
/// that is never closed reaches to the end of the text.
std::vector<std::vector<std::string>> parseDelimited(std::string_view text, char separator);

}  // namespace norvex
