#include "win32/table/TypedText.h"

#include <algorithm>

#include "win32/WideText.h"

namespace pellmark {

namespace {

constexpr int kRowsSearched = 20000;

bool beginsWith(const std::wstring& text, const std::wstring& prefix) {
    return text.size() >= prefix.size() &&
           ::CompareStringOrdinal(text.c_str(), static_cast<int>(prefix.size()), prefix.c_str(),
                                  static_cast<int>(prefix.size()), TRUE) == CSTR_EQUAL;
}

}  // namespace

int findTyped(const ShownTable& table, const NMLVFINDITEMW& wanted) {
    const int rows = table.rows();
    if ((wanted.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || wanted.lvfi.psz == nullptr || rows == 0)
        return -1;
    const std::wstring typed = wanted.lvfi.psz;
    const int bound = std::min(rows, kRowsSearched);
    const int start = wanted.iStart >= 0 && wanted.iStart < rows ? wanted.iStart : 0;
    for (int i = 0; i < bound; ++i) {
        const int row = (start + i) % rows;
        if (beginsWith(toWide(table.text(row, 0)), typed)) return row;
    }
    return -1;
}

}  // namespace pellmark
