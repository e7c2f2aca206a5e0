#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "refhost/technology/Operation.h"

namespace norvex {

/// The kinds of work that the table of speeds and feeds tells apart.
enum class Work { Drill, Ream, Tap, FaceMill, Mill, Turn };

/// Starting values for one material class and one kind of work, metric.
struct CuttingRow {
    char materialClass = 0;  ///< letter of ISO 513
    std::string material;    ///< as people call the class
    Work work = Work::Drill;
    double speed = 0;         ///< m/min
    double feed = 0;          ///< 0 where the pitch of the thread is the feed
    bool ofDiameter = false;  ///< the feed is a share of the tool's diameter, otherwise millimetres
};

class CuttingTable {
  public:
    CuttingTable() = default;
    explicit CuttingTable(std::vector<CuttingRow> rows) : rows_(std::move(rows)) {}

    /// Null where the table has nothing.
    const CuttingRow* find(char materialClass, Work work) const;
    /// Letter and name of the classes, in the order of the table.
    std::vector<std::pair<char, std::string>> classes() const;

  private:
    std::vector<CuttingRow> rows_;
};

/// Nothing for cycles that do not cut.
std::optional<Work> workOf(const CuttingCycle& cycle);

/// Puts the row's speed and feed into the operation, in its unit. The tool diameter must be known where the
/// feed depends on it: the answer is the reason why nothing was done, a sentence() or "".
std::string takeFromTable(Operation& operation, const CuttingRow& row);

/// The spindle speed that cutting speed and diameter ask for; 0 while one of them is missing or no
/// such figure exists.
double spindleSpeedOf(const Operation& operation);
/// Puts it into the operation. The answer is the reason why nothing was done, a sentence() or "".
std::string computeSpindleSpeed(Operation& operation);

/// The feed rate that follows from spindle speed, feed and teeth; 0 while one is missing or no
/// such figure exists.
double feedRateOf(const Operation& operation);

}  // namespace norvex
