#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "controls/grid/Grid.h"
#include "knowledge/MemoryRecordSet.h"
#include "support/FormHarness.h"

namespace pellmark::test {

/// Answers any number of records without holding one, and counts what was read.
class CountingRecords : public RecordSet {
  public:
    explicit CountingRecords(std::size_t count) : count_(count) {}
    const std::vector<std::string>& fields() const override { return fields_; }
    std::size_t count() override { return count_; }
    std::string text(std::size_t record, std::size_t field) override {
        ++cellsRead;
        return field == 0 ? idOf(record).text() : "name " + std::to_string(record);
    }
    std::optional<std::vector<Guid>> keys() override {
        ++keyBlocks;
        std::vector<Guid> keys;
        for (std::size_t i = 0; i < count_; ++i)
            keys.push_back(idOf(i));
        return keys;
    }
    static Guid idOf(std::size_t record) {
        Guid guid;
        for (std::size_t i = 0; i < 4; ++i)
            guid.bytes[i] = static_cast<std::uint8_t>(record >> (8 * i));
        return guid;
    }

    int cellsRead = 0;
    int keyBlocks = 0;

  private:
    std::vector<std::string> fields_{"_Id", "_Name"};
    std::size_t count_;
};

/// A grid of three columns, and rows to fill it with.
class GridFixture : public testing::Test, protected FormHarness {
  protected:
    GridFixture() {
        grid.setHeadings("Id|Name|Unit");
        grid.setColKey(0, "_Id");
        grid.setColKey(1, "_Name");
        grid.setColKey(2, "_Unit");
    }

    /// Binds rows "a", "b", ... with units and with their letter as row data.
    void fill(int rows) {
        auto records = std::make_shared<MemoryRecordSet>(std::vector<std::string>{"_Id", "_Name", "_Unit"});
        for (int i = 0; i < rows; ++i) {
            const std::string name(1, static_cast<char>('a' + i));
            records->addRow({"id-" + name, name, i % 2 == 0 ? "70" : "71"});
        }
        grid.bind(records);
        grid.setRowDataFromColumn(0);
    }

    std::vector<std::string> names() {
        std::vector<std::string> all;
        for (int row = grid.fixedRows(); row < grid.rows(); ++row)
            all.push_back(grid.text(row, "_name"));
        return all;
    }

    std::vector<int> selection() {
        std::vector<int> rows;
        for (int i = 0; i < grid.selectedRows(); ++i)
            rows.push_back(grid.selectedRow(i));
        return rows;
    }

    Grid grid{form, "VSFG"};
};

}  // namespace pellmark::test
