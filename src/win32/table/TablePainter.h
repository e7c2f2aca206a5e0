#pragma once

#include <vector>

#include "controls/grid/CellColors.h"
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
    /// Shows where the keyboard is when there is no current row that would.
    void drawFocus(HDC canvas) const;
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
    static void drawFocusRect(HDC canvas, const RECT& rect);

    HWND list_;
    ShownTable& table_;
    const TableHeader& header_;
    FontHandle italic_;
    std::vector<RECT> columns_;
    RECT client_{};
    ListScheme scheme_;
    CellColors highlighted_;
    Color pale_ = 0;
    Color lines_ = 0;
};

}  // namespace pellmark
