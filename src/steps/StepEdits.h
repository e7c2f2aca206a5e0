#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "controls/grid/Grid.h"
#include "steps/StepServices.h"

namespace pellmark {

/// A priority as a person types it: a whole number from 0 to 32767, blanks around it allowed. Nothing for any
/// other text.
std::optional<std::int16_t> priorityFrom(const std::string& text);

/// The in-place editing of the step list: every edit is written to the knowledge base at once. What it
/// refuses is told, and the cell then shows what is stored. The row is read anew before it is edited.
class StepEdits {
  public:
    /// Listens to the grid, which must outlive this object.
    StepEdits(const StepServices& services, Grid& grid);

  private:
    void begin(CellEdit& edit);
    bool showsWhatIsStored(int row);
    void validate(CellEdit& edit);
    /// `reason` in English.
    void refuse(CellEdit& edit, const char* reason, MessageIcon icon);
    void write(int row, int col);
    ProcessStepRecord recordOf(int row) const;

    StepServices services_;
    Grid& grid_;
    std::string before_;    ///< of the cell being edited
    bool telling_ = false;  ///< why a value is refused
    std::vector<Subscription> subscriptions_;
};

}  // namespace pellmark
