#pragma once

#include "controls/Form.h"
#include "settings/cRegDefaults.h"

namespace pellmark {

/// The one place that says what of a form is remembered: where its window stands, the column widths that a
/// person chose in the report lists within, and where the bars between its parts were put. Text and combo
/// boxes are not: in the dialogs they hold the record that is being edited. Grids belong to the lists that
/// fill them (see GridLayout).

/// Brings a loaded form back as it was left; for Form::restoreLayout.
void restoreFormLayout(Form& form, cRegDefaults& layouts);
/// For Form_QueryUnload.
void saveFormLayout(Form& form, cRegDefaults& layouts);

}  // namespace pellmark
