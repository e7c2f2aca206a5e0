#pragma once

#include <vector>

#include "win32/Scale.h"
#include "win32/WindowsApi.h"
#include "win32/table/ShownTable.h"

namespace pellmark {

/// The headings of a list window: shows the model's columns and finds out what a person has done to them.
class TableHeader {
  public:
    TableHeader(HWND list, ShownTable& table);

    HWND window() const { return header_; }
    /// Makes the window's columns anew after the model's.
    void rebuild(const Scale& scale);
    /// Gives the last column what room there is up to the window's edge, as long as nobody has chosen widths;
    /// the model keeps its own width. After the window has another size.
    void stretch(const Scale& scale);
    /// Draws the arrow over the heading of the column by which the rows stand, after the window has drawn
    /// itself: fonts lack the letter, and not every version of the control draws one.
    void paintArrow(const Scale& scale) const;
    /// Compares the window's widths and order with what was shown last and tells the model of differences.
    void takeChanges(const Scale& scale);
    /// Makes a column as wide as what is on the screen needs, up to the window's width.
    void fit(int column, const Scale& scale, HFONT font);

    /// The column under a point of the header, -1 beside them; dividers belong to no column.
    int columnAt(POINT at) const;
    /// The heading's rectangle in the list's client area.
    RECT columnRect(int column) const;

  private:
    std::vector<int> shownOrder() const;
    int shownWidth(int column) const;
    void takeStretch(const Scale& scale);

    HWND list_;
    HWND header_;
    ShownTable& table_;
    std::vector<int> widths_;
};

}  // namespace pellmark
