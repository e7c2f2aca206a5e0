#include "steps/StepEdits.h"

#include <charconv>
#include <limits>

#include "base/Convert.h"
#include "base/Error.h"
#include "steps/StepRows.h"

namespace pellmark {

namespace {

constexpr const char* kBlanks = " \t";

std::int16_t smallNumber(const std::string& text) {
    const std::int32_t number = text.empty() ? 0 : toInt32(text);
    if (number < std::numeric_limits<std::int16_t>::min() ||
        number > std::numeric_limits<std::int16_t>::max())
        throw Error(errors::kOverflow, "Pellmark.cProcessSteps", "Overflow: " + text + " is out of range.");
    return static_cast<std::int16_t>(number);
}

}  // namespace

std::optional<std::int16_t> priorityFrom(const std::string& text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string::npos || text[first] == '-') return std::nullopt;
    const char* const end = text.data() + text.find_last_not_of(kBlanks) + 1;
    std::int16_t priority = 0;
    const auto result = std::from_chars(text.data() + first, end, priority);
    if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
    return priority;
}

StepEdits::StepEdits(const StepServices& services, Grid& grid) : services_(services), grid_(grid) {
    subscriptions_.push_back(grid.beforeEdit.subscribe([this](CellEdit& edit) { begin(edit); }));
    subscriptions_.push_back(grid.validateEdit.subscribe([this](CellEdit& edit) { validate(edit); }));
    subscriptions_.push_back(grid.afterEdit.subscribe([this](int row, int col) { write(row, col); }));
}

void StepEdits::begin(CellEdit& edit) {
    edit.cancel = true;  // also when the knowledge base cannot tell whether it is allowed
    trapAndTell(services_.person, "cProcessSteps::BeforeEdit", [&] {
        edit.cancel = !services_.rights.CheckPermission(PermissionEdit) || !showsWhatIsStored(edit.row);
        before_ = edit.text;
    });
}

/// An edit writes the whole row, and the list may be hours old: what somebody else has changed of the step
/// since must not be undone by it.
bool StepEdits::showsWhatIsStored(int row) {
    ProcessStepStore& store = services_.knowledgeBase.stepStore();
    bool exists = true;
    trap(services_.person.operations(), "cProcessSteps::BeforeEdit", [&] {
        const std::string id = grid_.rowData(row);
        try {
            if (store.step(id) == recordOf(row)) return;
        } catch (const Error& error) {
            if (error.number() != errors::kNotFound) throw;
        }
        exists = showStoredStep(grid_, store, id);
    });
    if (!exists) tellStepIsGone(services_.person);
    return exists;
}

void StepEdits::validate(CellEdit& edit) {
    const bool isBlank = edit.text.find_first_not_of(kBlanks) == std::string::npos;
    if (edit.col == grid_.colIndex(field::kName) && isBlank) {
        refuse(edit, "Name cannot be blank", MessageIcon::Critical);
    } else if (edit.col == grid_.colIndex(field::kPriority)) {
        if (const auto priority = priorityFrom(edit.text)) {
            edit.text = std::to_string(*priority);
        } else {
            refuse(edit, "The priority must be a whole number from 0 to 32767", MessageIcon::Information);
        }
    }
}

void StepEdits::refuse(CellEdit& edit, const char* reason, MessageIcon icon) {
    edit.cancel = true;
    // The message takes the keyboard from the cell, which then offers its value once more.
    if (telling_) return;
    telling_ = true;
    trap(services_.person.operations(), "cProcessSteps::ValidateEdit", [&] {
        services_.person.show({services_.person.texts.GetString(reason), "", icon});
    });
    telling_ = false;
}

ProcessStepRecord StepEdits::recordOf(int row) const {
    return {grid_.rowData(row), grid_.text(row, field::kName), grid_.text(row, field::kProcessId),
            smallNumber(grid_.text(row, field::kPriority)),
            smallNumber(grid_.text(row, field::kCuttingCycleId))};
}

void StepEdits::write(int row, int col) {
    constexpr const char* kOperation = "cProcessSteps::AfterEdit";
    const std::string id = grid_.rowData(row);
    ProcessStepStore& store = services_.knowledgeBase.stepStore();
    trap(services_.person.operations(), kOperation, [&] {
        try {
            store.updateStep(recordOf(row));
        } catch (...) {
            grid_.setText(grid_.findRow(id), col, before_);
            bool exists = true;
            trap(services_.person.operations(), kOperation,
                 [&] { exists = showStoredStep(grid_, store, id); });
            if (exists) {
                services_.person.tellCurrentFailure(kOperation);
            } else {
                tellStepIsGone(services_.person);
            }
            throw;
        }
    });
}

}  // namespace pellmark
