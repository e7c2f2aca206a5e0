#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/Font.h"
#include "controls/grid/Grid.h"
#include "ports/Printer.h"

namespace pellmark {

/// The width up to which a grid is printed on upright paper, in twips: that of a page of A4 within its
/// margins.
inline constexpr Twips kUprightWidth = 10'500;

/// The orientation that suits the widths of a grid's shown columns.
Orientation orientationFor(const Grid& grid);

/// A grid as pages of a document: its shown columns, in the order of the screen, fill the width of the page
/// in the proportions of the screen; a text that is wider than its column goes on in further lines, so that
/// nothing is lost. Each page repeats the title and the headings and bears its number. Only a row that is
/// taller than a page is parted. Italics and text colours are those of the cells.
class GridPages {
  public:
    /// Tells how many rows have been looked at; false stops.
    using Report = std::function<bool(int rows)>;

    /// Grid and document must outlive this object, and the grid must not change meanwhile.
    GridPages(const Grid& grid, const std::string& title, const Font& font, PrintDocument& document);

    /// Finds out which rows stand on which page. False when the report stopped it.
    bool paginate(const Report& report);
    /// Known once paginate has come to its end; at least 1.
    int count() const { return static_cast<int>(starts_.size()); }
    /// Draws a page, from 0, on the document's present one.
    void draw(int page);

  private:
    /// Where a page begins: at which line of which row.
    struct Start {
        int row;
        int line;
    };
    struct Column {
        int col;
        Twips left;
        Twips width;  ///< of the text
    };
    using Lines = std::vector<std::vector<std::string>>;  ///< of each column

    void fitColumns(Twips width);
    Lines linesOf(int row);
    static int height(const Lines& lines);
    Twips heightOf(int lines) const { return lines * lineHeight_ + kRowGap; }
    void place(int row, int lines, Twips& used);
    void drawHeadings();
    void drawRow(int row, const Lines& lines, int firstLine, int endLine, Twips top);
    void setFont(bool bold, bool italic);

    static constexpr Twips kMargin = 400;
    static constexpr Twips kColumnGap = 120;
    static constexpr Twips kRowGap = 60;

    const Grid& grid_;
    std::string title_;
    Font font_;
    PrintDocument& document_;
    Size page_;
    Twips lineHeight_ = 0;
    std::vector<Column> columns_;
    Lines headings_;
    Twips bodyTop_ = 0;
    Twips bodyBottom_ = 0;
    std::vector<Start> starts_;
};

}  // namespace pellmark
