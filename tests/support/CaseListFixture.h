#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/CaseHarness.h"

namespace pellmark::test {

inline constexpr const char* kDetachQuestion =
    "Delete selected process(es) from the selected Feature Case?\r\n\r\nAre you sure?";

/// The process list of a feature case.
class CaseListFixture : public testing::Test, protected CaseHarness {
  protected:
    Grid& grid() { return main.VSFGProcessCaseResults; }
    std::vector<std::string> names() {
        std::vector<std::string> all;
        for (int row = 1; row < grid().rows(); ++row)
            all.push_back(grid().text(row, field::kName));
        return all;
    }
    CellStyle nameStyle(const std::string& id) {
        return grid().style(grid().findRow(id), grid().colIndex(field::kName));
    }
    /// Two exact and three partial matches of the value 8, found partial ones first.
    void addFive() {
        base.addFeatureCase(hole, {m8}, {base.addProcess("p1"), base.addProcess("p2")});
        base.addFeatureCase(hole, {d8, m8}, {base.addProcess("e1"), base.addProcess("e2")});
        base.addFeatureCase(hole, {d8}, {base.addProcess("p3")});
    }
};

}  // namespace pellmark::test
