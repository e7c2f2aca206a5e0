#include "processes/ProcessRemoval.h"

#include <algorithm>
#include <exception>

#include "base/OneLine.h"
#include "controls/Form.h"
#include "knowledge/Records.h"
#include "util/ManyCalls.h"

namespace pellmark {

namespace {

/// So that the box stays on the screen, however many processes were selected and however long their names.
constexpr std::size_t kMostNamed = 10;
constexpr std::size_t kMostUnits = 100;

}  // namespace

ProcessRemoval::ProcessRemoval(const UserInterface& person, Idle& idle, Grid& grid)
    : person_(person), idle_(idle), grid_(grid) {
    for (int i = grid.selectedRows() - 1; i >= 0; --i) {
        const int row = grid.selectedRow(i);
        if (grid.rowData(row).empty()) continue;
        targets_.push_back(
            {grid.rowData(row), grid.text(row, field::kFeatureCaseId), grid.text(row, field::kName)});
    }
}

std::vector<std::string> ProcessRemoval::names() const {
    std::vector<std::string> names;
    std::transform(targets_.rbegin(), targets_.rend(), std::back_inserter(names),
                   [](const Target& target) { return target.name; });
    return names;
}

void ProcessRemoval::carryOut(const char* operation, const Remove& remove) {
    std::vector<std::string> removed;
    std::vector<std::string> failures;
    const auto removeOne = [&](const Target& target) {
        // One process that fails must not keep the others from being handled.
        trap(person_.operations(), operation, [&] {
            try {
                if (remove(target)) removed.push_back(target.id);
            } catch (const std::exception& error) {
                failures.push_back(oneLine(target.name, kMostUnits) + ": " + error.what());
                throw;
            }
        });
    };
    const WindowHandle owner = grid_.form() == nullptr ? 0 : grid_.form()->handle();
    makeCalls(person_, idle_, person_.texts.GetString("Processes are being removed"), owner, targets_.size(),
              [&](std::size_t i) { removeOne(targets_[i]); });
    // Only now: a list that is painted between the calls must not lose rows under the painter's hands.
    for (const std::string& id : removed) {
        const int row = grid_.findRow(id);
        if (row >= 0) grid_.removeRow(row);
    }
    if (!failures.empty()) tell(removed.size(), failures);
}

void ProcessRemoval::tell(std::size_t removed, const std::vector<std::string>& failures) const {
    Texts& texts = person_.texts;
    std::string text = texts.GetString("The knowledge base failed. Still there:");
    for (std::size_t i = 0; i < std::min(failures.size(), kMostNamed); ++i)
        text += "\r\n" + failures[i];
    if (failures.size() > kMostNamed) text += "\r\n+ " + std::to_string(failures.size() - kMostNamed);
    text += "\r\n\r\n" + texts.GetString("Removed:") + " " + std::to_string(removed) + " / " +
            std::to_string(targets_.size());
    person_.show({text, "", MessageIcon::Critical});
}

}  // namespace pellmark
