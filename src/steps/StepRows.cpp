#include "steps/StepRows.h"

#include <optional>

#include "base/Error.h"

namespace pellmark {

namespace {

std::optional<ProcessStepRecord> storedStep(ProcessStepStore& store, const std::string& id) {
    try {
        return store.step(id);
    } catch (const Error& error) {
        if (error.number() == errors::kNotFound) return std::nullopt;
        throw;
    }
}

}  // namespace

bool showStoredStep(Grid& grid, ProcessStepStore& store, const std::string& id) {
    const auto step = storedStep(store, id);
    const Grid::RedrawOff off(grid);
    const int row = grid.findRow(id);
    if (!step) {
        grid.removeRow(row);
        return false;
    }
    grid.setText(row, field::kId, step->id);
    grid.setText(row, field::kName, step->name);
    grid.setText(row, field::kPriority, std::to_string(step->priority));
    grid.setText(row, field::kProcessId, step->processId);
    grid.setText(row, field::kCuttingCycleId, std::to_string(step->cuttingCycleId));
    return true;
}

void tellStepIsGone(const UserInterface& person) {
    person.show(
        {person.texts.GetString("The process step does not exist any more. Somebody else has deleted it."),
         "", MessageIcon::Information});
}

}  // namespace pellmark
