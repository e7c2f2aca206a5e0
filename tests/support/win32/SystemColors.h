#pragma once

#include <map>
#include <vector>

#include "win32/WindowsApi.h"

namespace pellmark::test {

/// Other system colours for the whole desktop, and those from before when it goes.
class SystemColors {
  public:
    using Scheme = std::map<int, COLORREF>;  ///< by the system's number of a colour

    explicit SystemColors(const Scheme& scheme) {
        for (const auto& [index, color] : scheme)
            before_[index] = ::GetSysColor(index);
        set(scheme);
    }
    ~SystemColors() { set(before_); }
    SystemColors(const SystemColors&) = delete;
    SystemColors& operator=(const SystemColors&) = delete;

    static Scheme dark() {
        return made(RGB(32, 32, 32), RGB(240, 240, 240), RGB(45, 45, 45), RGB(0, 99, 177), RGB(255, 255, 255),
                    RGB(150, 150, 150));
    }
    static Scheme highContrast() {
        return made(RGB(0, 0, 0), RGB(255, 255, 255), RGB(0, 0, 0), RGB(26, 235, 255), RGB(0, 0, 0),
                    RGB(63, 242, 63));
    }

  private:
    static Scheme made(COLORREF window, COLORREF text, COLORREF face, COLORREF highlight,
                       COLORREF highlightText, COLORREF gray) {
        return {{COLOR_WINDOW, window}, {COLOR_WINDOWTEXT, text},     {COLOR_BTNFACE, face},
                {COLOR_BTNTEXT, text},  {COLOR_HIGHLIGHT, highlight}, {COLOR_HIGHLIGHTTEXT, highlightText},
                {COLOR_GRAYTEXT, gray}, {COLOR_BTNSHADOW, gray},      {COLOR_3DLIGHT, face}};
    }
    static void set(const Scheme& scheme) {
        std::vector<int> indices;
        std::vector<COLORREF> colors;
        for (const auto& [index, color] : scheme) {
            indices.push_back(index);
            colors.push_back(color);
        }
        ::SetSysColors(static_cast<int>(indices.size()), indices.data(), colors.data());
    }

    Scheme before_;
};

}  // namespace pellmark::test
