#include "processes/ProcessRows.h"

namespace pellmark {

namespace {

// Widths go by position in both lists, so that those of a case fall one column to the right.
constexpr ColumnSpec kAllColumns[] = {{"Id", field::kId, 4000, true},
                                      {"Name", field::kName, 2000},
                                      {"Unit", field::kUnit, 1000, false, false, kUnitComboList},
                                      {"Rule", field::kRule, 2000},
                                      {"Description", field::kDescription, 4000}};
constexpr ColumnSpec kCaseColumns[] = {
    {"Id", field::kId, 4000, true}, {"FeatureCaseId", field::kFeatureCaseId, 2000, true},
    {"Name", field::kName, 1000},   {"Unit", field::kUnit, 2000, false, false, kUnitComboList},
    {"Rule", field::kRule, 4000},   {"Description", field::kDescription}};

}  // namespace

std::span<const ColumnSpec> processColumns(bool ofFeatureCase) {
    return ofFeatureCase ? std::span<const ColumnSpec>(kCaseColumns) : kAllColumns;
}

bool isStored(ProcessStore& store, const std::string& processId) {
    return store.processes(processId)->count() > 0;
}

void showStoredProcess(Grid& grid, ProcessStore& store, const std::string& processId) {
    const auto stored = store.processes(processId);
    const Grid::RedrawOff off(grid);
    int row = grid.findRow(processId);
    if (stored->count() == 0) {
        if (row >= 0) grid.removeRow(row);
        return;
    }
    if (row < 0) {
        row = grid.addRow();
        grid.setRowData(row, processId);
    }
    for (const char* key : {field::kId, field::kName, field::kUnit, field::kRule, field::kDescription})
        grid.setText(row, key, stored->text(0, stored->requireField(key)));
}

void tellProcessIsGone(const UserInterface& person) {
    person.show({person.texts.GetString("The process does not exist any more. Somebody else has deleted it."),
                 "", MessageIcon::Information});
}

}  // namespace pellmark
