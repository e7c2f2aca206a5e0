// One grid, five ways out of it: whatever a cell holds, each shows the same.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "controls/grid/DelimitedExport.h"
#include "controls/grid/GridPages.h"
#include "controls/grid/SelectionText.h"
#include "refhost/texts/DelimitedTable.h"
#include "support/AwkwardTable.h"
#include "support/PortsHarness.h"

namespace pellmark::test {
namespace {

using Table = std::vector<std::vector<std::string>>;

void replaceAll(std::string& text, const std::string& what, const std::string& by) {
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size()))
        text.replace(at, what.size(), by);
}

/// Line breaks of one kind, as paper and HTML have them.
std::string withPlainBreaks(std::string text) {
    replaceAll(text, "\r\n", "\n");
    replaceAll(text, "\r", "\n");
    return text;
}

/// The cells of a table as a program reads them that pastes it.
Table htmlCells(const std::string& html) {
    Table table;
    for (std::size_t at = html.find('<'); at != std::string::npos; at = html.find('<', at + 1)) {
        if (html.compare(at, 4, "<tr>") == 0) table.emplace_back();
        if (html.compare(at, 3, "<td") != 0 && html.compare(at, 3, "<th") != 0) continue;
        const std::size_t begin = html.find('>', at) + 1;
        std::string cell = html.substr(begin, html.find("</t", begin) - begin);
        replaceAll(cell, "<br style=\"mso-data-placement:same-cell\">", "\n");
        replaceAll(cell, "&lt;", "<");
        replaceAll(cell, "&gt;", ">");
        replaceAll(cell, "&quot;", "\"");
        replaceAll(cell, "&amp;", "&");
        table.back().push_back(cell);
    }
    return table;
}

class OutputsTest : public testing::Test, protected ServicesHarness {
  protected:
    OutputsTest() {
        fillAwkwardly(grid);
        grid.selectAll();
    }
    /// What the screen shows, headings first.
    Table screen() const {
        Table table;
        for (int row = 0; row < grid.rows(); ++row) {
            table.emplace_back();
            for (int col = 0; col < grid.cols(); ++col)
                table.back().push_back(grid.displayText(row, col));
        }
        return table;
    }
    template <class Change>
    static Table changed(Table table, const Change& change) {
        for (auto& row : table)
            std::transform(row.begin(), row.end(), row.begin(), change);
        return table;
    }
    Table exported(char separator) const {
        std::string text;
        writeDelimited(grid, {separator}, [&](std::string_view piece, int) { text += piece; });
        return norvex::parseDelimited(text, separator);
    }
    /// What stands on paper: lines at one place of a row belong to one cell.
    Table printed() {
        printer.page = {300'000, 2'000'000};  // so that no line ends where the text has no break
        const auto document = printer.begin("x");
        GridPages pages(grid, "title", {}, *document);
        pages.paginate([](int) { return true; });
        pages.draw(0);
        const auto& page = printer.documents.back().pages.at(0);
        std::vector<Twips> lefts;
        for (std::size_t i = 1; i <= 3; ++i)
            lefts.push_back(page.texts.at(i).at.left);
        std::vector<Twips> rules;
        for (const auto& line : page.lines)
            rules.push_back(line.from.top);
        Table table(rules.size(), std::vector<std::string>(3));
        std::map<std::pair<std::size_t, std::size_t>, bool> begun;
        for (std::size_t i = 1; i + 1 < page.texts.size(); ++i) {
            const auto& text = page.texts[i];
            const auto row = static_cast<std::size_t>(
                std::lower_bound(rules.begin(), rules.end(), text.at.top) - rules.begin());
            const auto col =
                static_cast<std::size_t>(std::find(lefts.begin(), lefts.end(), text.at.left) - lefts.begin());
            if (row >= table.size() || col >= lefts.size()) {
                ADD_FAILURE() << "stands nowhere: " << text.text;
                continue;
            }
            std::string& cell = table[row][col];
            if (begun[{row, col}]) cell += '\n';
            begun[{row, col}] = true;
            cell += text.text;
        }
        return table;
    }

    Grid grid{form, "VSFG"};
};

TEST_F(OutputsTest, ScreenClipboardHtmlExportAndPrintShowTheSame) {
    const Table shown = screen();
    ASSERT_EQ(shown.size(), 20U);
    EXPECT_EQ(shown[2][1], "Met,ric");
    EXPECT_EQ(exported(','), shown);
    EXPECT_EQ(exported('\t'), shown);

    services.gridOps.CopySelection(grid);
    ASSERT_EQ(clipboard.puts.size(), 1U);
    EXPECT_EQ(norvex::parseDelimited(clipboard.puts[0].content.text, '\t'), shown);
    EXPECT_EQ(htmlCells(clipboard.puts[0].content.htmlFragment), changed(shown, withPlainBreaks));

    const auto onPaper = [](const std::string& text) {
        std::string line = withPlainBreaks(text);
        std::replace(line.begin(), line.end(), '\t', ' ');
        return line;
    };
    EXPECT_EQ(printed(), changed(shown, onPaper));
}

TEST_F(OutputsTest, AFileThatCannotHoldTheCharactersHoldsThemAsUnicode) {
    desktop.expectMessage(
        "6 character(s), the first '\xF0\x9F\x94\xA9', need a Unicode file (UTF-8). Save such a file?");
    fileDialogs.expectSave("C:\\Temp\\a.csv");
    services.gridOps.SaveGrid(grid, 0);
    const std::string file = files.contents("C:\\Temp\\a.csv");
    ASSERT_TRUE(file.starts_with("\xEF\xBB\xBF"));
    EXPECT_EQ(norvex::parseDelimited(file.substr(3), ','), screen());
}

}  // namespace
}  // namespace pellmark::test
