#pragma once

#include <vector>

#include "win32/Scale.h"
#include "win32/forms/Surroundings.h"
#include "win32/table/ShownTable.h"
#include "win32/table/TableHeader.h"

namespace pellmark {

/// Draws the rows of a list window, a whole row at a time: cell colours, italics, the selection in its two
/// looks and lines between the cells.
class TablePainter {
  public:
    TablePainter(HWND list, ShownTable& table, const TableHeader& header)
        : list_(list), table_(table), header_(header) {}

    /// Answers the window's custom-draw notification.
    LRESULT draw(const NMLVCUSTOMDRAW& request, HFONT font, const Scale& scale);
    /// True when a cell's text does not fit its column.
    bool isCut(int row, int column, HFONT font, const Scale& scale) const;
    /// Forgets fonts made for another resolution.
    void forgetFonts() { italic_.reset(); }

  private:
    /// Looks once for all rows of one painting what they have in common.
    void prepare();
    void drawRow(HDC canvas, int row, HFONT font, const Scale& scale);
    void drawText(HDC canvas, RECT cell, const std::string& text, const Scale& scale) const;
    HFONT italicOf(HFONT font);

    HWND list_;
    ShownTable& table_;
    const TableHeader& header_;
    FontHandle italic_;
    std::vector<RECT> columns_;
    RECT client_{};
    struct Colors {
        COLORREF window, text, highlight, highlightText, pale, lines;
    } colors_{};
};

}  // namespace pellmark
