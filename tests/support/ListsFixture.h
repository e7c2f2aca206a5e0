#pragma once

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "support/CaseHarness.h"

namespace pellmark::test {

/// Both views with their lists, and what a person does in those.
class ListsFixture : public testing::Test, protected CaseHarness {
  protected:
    static std::vector<std::string> names(const Grid& of) {
        std::vector<std::string> all;
        for (int row = 1; row < of.rows(); ++row)
            all.push_back(of.text(row, field::kName));
        return all;
    }
    static std::string current(const Grid& of) { return of.text(of.row(), field::kName); }
    static bool press(Grid& of, int keyCode, bool control = false, bool shift = false) {
        KeyPress key{keyCode, shift, control};
        of.keyPressed.raise(key);
        return key.handled;
    }
    static bool pressIn(FindLine& of, int keyCode) {
        KeyPress key{keyCode};
        of.TxtFind.keyPressed.raise(key);
        return key.handled;
    }
    static void sortBy(Grid& of, const char* key) { of.headingClicked.raise(of.colIndex(key)); }
    /// The row of a name; -1 when there is none.
    static int rowNamed(const Grid& of, const std::string& name) {
        int row = of.rows() - 1;
        while (row > 0 && of.text(row, field::kName) != name)
            --row;
        return row > 0 ? row : -1;
    }
    static void selectNamed(Grid& of, const std::string& name) { of.select(rowNamed(of, name), 1); }
    std::optional<Color> colorOf(const Grid& of, const std::string& id) {
        return of.style(of.findRow(id), of.colIndex(field::kName)).fore;
    }
    void openTaps() {
        for (const char* name : {"Tap M10", "Tap M3", "Drill 8", "Ream", "Tap M30"})
            ids[name] = base.addProcess(name, unit::kMetric, "r", "d");
        openProcesses();
    }

    std::map<std::string, std::string> ids;
    Grid& grid = main.VSFGAllProcesses;
    FindLine& line = main.FindAllProcesses;
    Grid& results = main.VSFGProcessCaseResults;
    FindLine& resultsLine = main.FindProcessCaseResults;
};

}  // namespace pellmark::test
