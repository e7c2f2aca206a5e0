#include "controls/grid/GridPages.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <utility>

#include "controls/PrintText.h"
#include "controls/grid/SelectionText.h"

namespace pellmark {

namespace {

Twips widthOf(const Grid& grid, const std::vector<int>& columns) {
    return std::accumulate(columns.begin(), columns.end(), 0,
                           [&grid](Twips sum, int col) { return sum + grid.colWidth(col); });
}

}  // namespace

Orientation orientationFor(const Grid& grid) {
    return widthOf(grid, shownColumns(grid)) > kUprightWidth ? Orientation::Landscape : Orientation::Portrait;
}

GridPages::GridPages(const Grid& grid, const std::string& title, const Font& font, PrintDocument& document)
    : grid_(grid), title_(printableText(title)), font_(font), document_(document), page_(document.page()) {
    setFont(false, false);
    lineHeight_ = std::max(document_.lineHeight(), 1);
    fitColumns(page_.width - 2 * kMargin);
    setFont(true, false);
    headings_ = linesOf(0);
    // The title and a free line above, the page's number and a free line below.
    bodyTop_ = kMargin + 2 * lineHeight_ + heightOf(height(headings_));
    bodyBottom_ = page_.height - kMargin - 2 * lineHeight_;
}

void GridPages::fitColumns(Twips width) {
    const std::vector<int> shown = shownColumns(grid_);
    const std::int64_t whole = std::max(widthOf(grid_, shown), 1);
    std::int64_t before = 0;
    for (const int col : shown) {
        // Edges are rounded one by one, so that they add up to the whole width.
        const std::int64_t after = before + grid_.colWidth(col);
        const auto left = static_cast<Twips>(before * width / whole);
        const auto right = static_cast<Twips>(after * width / whole);
        columns_.push_back({col, kMargin + left, std::max(right - left - kColumnGap, 1)});
        before = after;
    }
}

GridPages::Lines GridPages::linesOf(int row) {
    Lines lines;
    std::string text;
    for (const Column& column : columns_) {
        text.clear();
        grid_.appendDisplayText(row, column.col, text);
        lines.push_back(wrapText(document_, text, column.width));
    }
    return lines;
}

int GridPages::height(const Lines& lines) {
    std::size_t most = 1;
    for (const auto& each : lines)
        most = std::max(most, each.size());
    return static_cast<int>(most);
}

bool GridPages::paginate(const Report& report) {
    starts_ = {{grid_.fixedRows(), 0}};
    setFont(false, false);
    Twips used = 0;
    for (int row = grid_.fixedRows(); row < grid_.rows(); ++row) {
        place(row, height(linesOf(row)), used);
        if (!report(row - grid_.fixedRows() + 1)) return false;
    }
    return true;
}

void GridPages::place(int row, int lines, Twips& used) {
    const Twips body = bodyBottom_ - bodyTop_;
    if (used + heightOf(lines) <= body) {
        used += heightOf(lines);
        return;
    }
    if (used > 0) starts_.push_back({row, 0});
    const int perPage = std::max((body - kRowGap) / lineHeight_, 1);
    int line = 0;
    for (; lines - line > perPage; line += perPage)
        starts_.push_back({row, line + perPage});
    used = heightOf(lines - line);
}

void GridPages::draw(int page) {
    drawHeadings();
    const Start begin = starts_[static_cast<std::size_t>(page)];
    const bool isLast = page + 1 == count();
    const Start end = isLast ? Start{grid_.rows(), 0} : starts_[static_cast<std::size_t>(page) + 1];
    Twips top = bodyTop_;
    for (int row = begin.row; row < end.row || (row == end.row && end.line > 0); ++row) {
        setFont(false, false);
        const Lines lines = linesOf(row);
        const int first = row == begin.row ? begin.line : 0;
        const int behind = row == end.row ? end.line : height(lines);
        drawRow(row, lines, first, behind, top);
        top += heightOf(behind - first);
    }
    setFont(false, false);
    const std::string number = std::to_string(page + 1) + " / " + std::to_string(count());
    document_.drawText(
        {page_.width - kMargin - document_.textWidth(number), page_.height - kMargin - lineHeight_}, number,
        kBlack);
}

void GridPages::drawHeadings() {
    setFont(true, false);
    document_.drawText({kMargin, kMargin}, title_, kBlack);
    const Twips top = kMargin + 2 * lineHeight_;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        Twips at = top;
        for (const std::string& line : headings_[i]) {
            document_.drawText({columns_[i].left, at}, line, kBlack);
            at += lineHeight_;
        }
    }
    document_.drawLine({kMargin, bodyTop_ - kRowGap / 2}, {page_.width - kMargin, bodyTop_ - kRowGap / 2});
}

void GridPages::drawRow(int row, const Lines& lines, int firstLine, int endLine, Twips top) {
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        const CellStyle style = grid_.style(row, columns_[i].col);
        setFont(false, style.italic);
        const int end = std::min(endLine, static_cast<int>(lines[i].size()));
        for (int line = firstLine; line < end; ++line) {
            document_.drawText({columns_[i].left, top + (line - firstLine) * lineHeight_},
                               lines[i][static_cast<std::size_t>(line)], style.fore.value_or(kBlack));
        }
    }
    const Twips rule = top + heightOf(endLine - firstLine) - kRowGap / 2;
    document_.drawLine({kMargin, rule}, {page_.width - kMargin, rule});
}

void GridPages::setFont(bool bold, bool italic) {
    Font font = font_;
    font.bold = font.bold || bold;
    font.italic = font.italic || italic;
    document_.setFont(font);
}

}  // namespace pellmark
