#include <sqlite3.h>

#include <cstdio>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "controls/grid/DelimitedExport.h"
#include "controls/grid/Grid.h"
#include "knowledge/MemoryRecordSet.h"
#include "knowledge/Records.h"
#include "refhost/store/SqliteKnowledgeBaseService.h"
#include "refhost/store/Statement.h"
#include "store/FindBench.h"
#include "support/Measure.h"
#include "support/SyntheticBase.h"

/// What the process list costs over the SQLite store, against SQLite alone on the same rows.
namespace bench {
namespace {

using norvex::SqliteKnowledgeBaseService;
using norvex::Statement;
using pellmark::Grid;
using pellmark::Guid;
using pellmark::MemoryRecordSet;

constexpr int kRepetitions = 7;
constexpr pellmark::Color kRed = 255;
constexpr const char* kScan = "SELECT id, name, unit, rule, description FROM process";
constexpr const char* kScanByName =
    "SELECT id, name, unit, rule, description FROM process ORDER BY name COLLATE NOCASE, id";

/// Keeps the compiler from leaving out what nobody reads.
volatile std::size_t sink = 0;

/// The process grid as the component lays it out.
struct ProcessGrid {
    pellmark::Container root{pellmark::Control::Kind::Frame, nullptr, "root"};
    Grid grid{root, "grid"};

    ProcessGrid() {
        grid.setHeadings("Id|Name|Unit|Rule|Description");
        const char* keys[] = {"_Id", "_Name", "_Unit", "_Rule", "_Description"};
        for (int col = 0; col < 5; ++col)
            grid.setColKey(col, keys[col]);
        grid.setColComboList(2, pellmark::kUnitComboList);
    }
    void readScreen(int firstRow) {
        for (int row = firstRow; row < firstRow + 40; ++row) {
            for (int col = 0; col < 5; ++col)
                sink = sink + grid.displayText(row, col).size();
        }
    }
};

/// SQLite alone: every row, every column, nothing kept.
void bareScan(norvex::Connection& connection, const char* sql = kScan) {
    Statement scan(connection, sql);
    std::size_t bytes = 0;
    while (scan.step()) {
        for (int column = 0; column < 5; ++column)
            bytes += scan.view(column).size();
    }
    sink = bytes;
}

void colourOrphans(SqliteKnowledgeBaseService& service, Grid& grid) {
    grid.setColumnForeColor(1, 0);
    auto orphans = service.processStore().orphanProcesses();
    for (std::size_t i = 0; i < orphans->count(); ++i) {
        const int row = grid.findRow(orphans->text(i, 0));
        if (row >= 0) grid.setForeColor(row, 1, kRed);
    }
}

void list(SqliteKnowledgeBaseService& service, ProcessGrid& view) {
    view.grid.bind(service.processStore().processes(""));
    view.readScreen(1);
    view.grid.setRowDataFromColumn(0);
}

std::size_t storeBytes() {
    return static_cast<std::size_t>(sqlite3_memory_used());
}

void listing(Table& table, SqliteKnowledgeBaseService& service, std::size_t count, const char* budget) {
    norvex::Connection& connection = service.base()->connection();
    const std::string rows = std::to_string(count);
    ProcessGrid view;
    const auto scan = [&] { bareScan(connection); };

    const double first = medianMilliseconds(kRepetitions, [&] {
        view.grid.bind(service.processStore().processes(""));
        view.readScreen(1);
    });
    table.add({"first screen of " + rows, number(first, 2) + " ms", "", "", "10 ms"});

    const Comparison listed = compare(
        kRepetitions, [&] { list(service, view); }, scan);
    table.add({rows + " listed, ids known", number(listed.measured) + " ms", number(listed.baseline) + " ms",
               number(listed.ratio, 2), budget});
    const Comparison coloured = compare(
        kRepetitions,
        [&] {
            list(service, view);
            colourOrphans(service, view.grid);
        },
        scan);
    table.add({"the same with a tenth coloured as orphans", number(coloured.measured) + " ms",
               number(coloured.baseline) + " ms", number(coloured.ratio, 2), ""});

    std::mt19937 random(7);
    std::vector<double> pages;
    for (int i = 0; i < 200; ++i) {
        const int at = static_cast<int>(random() % (count - 50)) + 1;
        pages.push_back(millisecondsOf([&] { view.readScreen(at); }));
    }
    std::sort(pages.begin(), pages.end());
    table.add({"a screen anywhere in " + rows + ", 95th percentile", number(pages[190], 2) + " ms", "", "",
               "16 ms"});
}

void memory(Table& table, SqliteKnowledgeBaseService& service, std::size_t count) {
    if (heapBytes() == 0) return;
    {
        // Fills the store's caches, which are not the rows' own.
        ProcessGrid warm;
        list(service, warm);
        colourOrphans(service, warm.grid);
    }
    const std::size_t before = heapBytes() - storeBytes();
    ProcessGrid view;
    list(service, view);
    view.grid.findRow(Guid{}.text());
    const std::size_t listed = heapBytes() - storeBytes() - before;
    colourOrphans(service, view.grid);
    const std::size_t coloured = heapBytes() - storeBytes() - before;
    const double mebibyte = 1024.0 * 1024.0;
    table.add({std::to_string(count) + " rows in the grid, ids indexed",
               number(static_cast<double>(listed) / mebibyte) + " MiB", "",
               number(static_cast<double>(listed) / static_cast<double>(count)) + " B per row", "32 MiB"});
    table.add({"the same with orphans coloured", number(static_cast<double>(coloured) / mebibyte) + " MiB",
               "", number(static_cast<double>(coloured) / static_cast<double>(count)) + " B per row", ""});
}

void eagerLoad(Table& table, SqliteKnowledgeBaseService& service, std::size_t count) {
    norvex::Connection& connection = service.base()->connection();
    const Comparison loaded = compare(
        kRepetitions,
        [&] {
            MemoryRecordSet records({"_Id", "_Name", "_Unit", "_Rule", "_Description"});
            Statement scan(connection, kScan);
            while (scan.step()) {
                records.addRow(scan.guid(0), {scan.view(1), scan.view(2), scan.view(3), scan.view(4)});
            }
            sink = records.count();
        },
        [&] { bareScan(connection); });
    table.add({std::to_string(count) + " loaded whole into memory", number(loaded.measured) + " ms",
               number(loaded.baseline) + " ms", number(loaded.ratio, 2), "1.5"});
}

std::vector<std::string> someIds(SqliteKnowledgeBaseService& service, std::size_t howMany) {
    auto keys = *service.processStore().processes("")->keys();
    std::shuffle(keys.begin(), keys.end(), std::mt19937(11));
    std::vector<std::string> ids;
    for (std::size_t i = 0; i < howMany && i < keys.size(); ++i)
        ids.push_back(keys[i].text());
    return ids;
}

void lookUps(Table& table, SqliteKnowledgeBaseService& service, std::size_t count) {
    norvex::Connection& connection = service.base()->connection();
    const std::vector<std::string> ids = someIds(service, 10000);
    std::vector<Guid> guids;
    for (const std::string& id : ids)
        guids.push_back(*Guid::parse(id));
    const Comparison read = compare(
        kRepetitions, [&] { sink = service.processStore().processRecords(ids).size(); },
        [&] {
            norvex::Transaction view(connection, norvex::Transaction::Kind::Read);
            Statement find(connection, "SELECT id, name, unit, rule, description FROM process WHERE id = ?");
            std::size_t bytes = 0;
            for (const Guid& guid : guids) {
                find.bind(guid);
                if (find.step()) {
                    for (int column = 0; column < 5; ++column)
                        bytes += find.view(column).size();
                }
                find.reset();
            }
            sink = bytes;
            view.commit();
        });
    table.add({"current values of 10000 of " + std::to_string(count), number(read.measured) + " ms",
               number(read.baseline) + " ms", number(read.ratio, 2), "1.5"});
}

void findRows(Table& table, SqliteKnowledgeBaseService& service, std::size_t count) {
    ProcessGrid view;
    list(service, view);
    const std::vector<std::string> ids = someIds(service, 200000);
    view.grid.findRow(ids[0]);
    const double time = medianMilliseconds(kRepetitions, [&] {
        for (const std::string& id : ids)
            sink = sink + static_cast<std::size_t>(view.grid.findRow(id));
    });
    table.add({"finding a row by id among " + std::to_string(count),
               number(time * 1e6 / static_cast<double>(ids.size()), 0) + " ns", "", "", "1000 ns"});
}

void removeRows(Table& table, SqliteKnowledgeBaseService& service, std::size_t count) {
    const std::vector<std::string> ids = someIds(service, 1000);
    std::vector<double> times;
    for (int i = 0; i < kRepetitions; ++i) {
        ProcessGrid view;
        list(service, view);
        times.push_back(millisecondsOf([&] {
            for (const std::string& id : ids)
                view.grid.removeRow(view.grid.findRow(id));
        }));
    }
    table.add({"removing 1000 scattered rows of " + std::to_string(count), number(medianOf(times), 2) + " ms",
               "", "", ""});
}

void exportGrid(Table& table, SqliteKnowledgeBaseService& service, std::size_t count) {
    ProcessGrid view;
    list(service, view);
    const auto write = [&] {
        pellmark::writeDelimited(view.grid, {},
                                 [](std::string_view piece, int) { sink = sink + piece.size(); });
    };
    // The file has the order of the list, in which SQLite itself reads more slowly than in its own.
    for (const auto& [sql, order] :
         {std::pair{kScanByName, "a scan by name"}, {kScan, "a scan in any order"}}) {
        const Comparison written =
            compare(kRepetitions, write, [&] { bareScan(service.base()->connection(), sql); });
        table.add({"whole grid of " + std::to_string(count) + " exported, against " + order,
                   number(written.measured) + " ms", number(written.baseline) + " ms",
                   number(written.ratio, 2), sql == kScanByName ? "3" : ""});
    }
}

/// `only` restricts the run to one size, for profiling; 0 runs all.
void run(const std::string& folder, std::size_t only) {
    Table table({"what", "measured", "bare SQLite", "ratio", "budget"});
    for (const auto& [count, budget] :
         {std::pair{std::size_t{100000}, "1.5"}, {std::size_t{1000000}, "0.5"}}) {
        if (only != 0 && count != only) continue;
        norvex::OpenOptions options;
        options.seed = false;
        SqliteKnowledgeBaseService service(syntheticBase(folder, count), options);
        listing(table, service, count, budget);
        memory(table, service, count);
        eagerLoad(table, service, count);
        lookUps(table, service, count);
        findRows(table, service, count);
        removeRows(table, service, count);
        if (count == 100000) exportGrid(table, service, count);
        findAndSort(table, service, count);
    }
    table.print();
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
    try {
        bench::run(argc > 1 ? argv[1] : "bench-data", argc > 2 ? std::stoul(argv[2]) : 0);
    } catch (const std::exception& error) {
        std::printf("not measured: %s\n", error.what());
    }
    return 0;
}
