#include "refhost/store/CuttingData.h"

#include <algorithm>
#include <array>

#include "refhost/store/SeedTables.h"
#include "refhost/store/Statement.h"

namespace norvex {

namespace {

struct WorkName {
    Work work;
    const char* name;
};

constexpr std::array kWorkNames{WorkName{Work::Drill, "drill"}, WorkName{Work::Ream, "ream"},
                                WorkName{Work::Tap, "tap"},     WorkName{Work::FaceMill, "face mill"},
                                WorkName{Work::Mill, "mill"},   WorkName{Work::Turn, "turn"}};

const char* nameOf(Work work) {
    return std::find_if(kWorkNames.begin(), kWorkNames.end(),
                        [work](const WorkName& entry) { return entry.work == work; })
        ->name;
}

void write(Connection& connection, const CuttingRow& row) {
    Statement add(connection,
                  "INSERT INTO cutting_data (material_class, material, work, speed, feed, feed_of_diameter) "
                  "VALUES (?, ?, ?, ?, ?, ?)");
    add.bind(std::string_view(&row.materialClass, 1))
        .bind(row.material)
        .bind(std::string_view(nameOf(row.work)));
    add.bind(row.speed).bind(row.feed).bind(std::int64_t{row.ofDiameter}).run();
}

}  // namespace

void writeCuttingData(Connection& connection) {
    constexpr double kReamFeed = 0.02;  // per revolution, as a share of the diameter
    for (const seed::CuttingData& data : seed::kCuttingData) {
        const auto add = [&](Work work, double speed, double feed, bool ofDiameter) {
            write(connection, {data.letter, data.material, work, speed, feed, ofDiameter});
        };
        add(Work::Drill, data.drillSpeed, data.drillFeed, true);
        add(Work::Ream, data.reamSpeed, kReamFeed, true);
        add(Work::Tap, data.tapSpeed, 0, false);
        add(Work::FaceMill, data.faceSpeed, data.faceFeed, false);
        add(Work::Mill, data.millSpeed, data.millFeed, true);
        add(Work::Turn, data.turnSpeed, data.turnFeed, false);
    }
}

CuttingTable readCuttingData(Connection& connection) {
    std::vector<CuttingRow> rows;
    Statement list(connection,
                   "SELECT material_class, material, work, speed, feed, feed_of_diameter FROM cutting_data "
                   "ORDER BY row");
    while (list.step()) {
        const std::string name = list.text(2);
        const auto* const known = std::find_if(kWorkNames.begin(), kWorkNames.end(),
                                               [&](const WorkName& entry) { return name == entry.name; });
        const std::string_view letter = list.view(0);
        if (known == kWorkNames.end() || letter.size() != 1) continue;
        const char materialClass = letter.front();
        rows.push_back(
            {materialClass, list.text(1), known->work, list.real(3), list.real(4), list.integer(5) != 0});
    }
    return CuttingTable(std::move(rows));
}

}  // namespace norvex
