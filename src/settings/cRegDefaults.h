#pragma once

#include <cstdint>
#include <string>

#include "base/Trace.h"
#include "base/Variant.h"
#include "controls/Controls.h"
#include "controls/Form.h"
#include "controls/Splitter.h"
#include "controls/Toolbar.h"
#include "controls/grid/Grid.h"
#include "controls/list/ListView.h"
#include "settings/StoredValues.h"

namespace pellmark {

/// How a person left the windows: where dialogs stand, what the columns of lists and grids look like, which
/// entries of combo boxes are chosen. It lives in the registry of the current user, one key per form, and is
/// cached nowhere. docs/layouts.md names every value.
///
/// A restore takes what is stored and leaves the rest as the control has it; it creates nothing. What does
/// not read as its type, or is no length that a screen could have, counts as not stored and is traced. Saves
/// and restores end quietly: a failure is traced and shown to nobody. Controls must stand in a form, whose
/// name is part of the key. One per component.
class cRegDefaults {
  public:
    /// `title` is the component's own, the same in every language, so that another language finds the same
    /// layouts. The ports and the trace must outlive this object. `executableName` names the source of the
    /// registry's errors.
    cRegDefaults(Registry& registry, const CodePage& codePage, std::string executableName, std::string title,
                 Trace& trace);

    /// The language that is set for the host, as its own number; -1 when none is.
    std::int32_t NorvexLanguage();

    /// False, as at first, for layouts among those of the applications, true among the host's extensions.
    bool IsExtension() const { return isExtension_; }
    void setIsExtension(bool isExtension) { isExtension_ = isExtension; }

    /// The chosen entry, by its index. An index that the box does not have any more chooses nothing else.
    void SaveComboBoxIndex(const ComboBox& combo);
    void RestoreComboBoxIndex(ComboBox& combo);

    void SaveTextBox(const TextBox& box);
    void RestoreTextBox(TextBox& box);

    /// The number of columns and their widths.
    void SaveListView(const ListView& list);
    void RestoreListView(ListView& list);

    /// Where a person has put the bar, as the first neighbour's part of the room. One that stands at its
    /// usual place leaves nothing behind.
    void SaveSplitter(const Splitter& splitter);
    void RestoreSplitter(Splitter& splitter);

    /// Place, size and state of a window, in twips. Written only while the form stands on the screen in its
    /// normal state: a maximized form keeps the place that it had before, and neither an embedded form, whose
    /// place is the host's, nor one that was never shown has any.
    void SaveDialog(const Form& form);
    /// Only a sizable form takes the size.
    void RestoreDialog(Form& form);

    /// Width, place and visibility of every column that has a key, and the font.
    void SaveVSDataGrid(const Grid& grid);
    /// Columns are found by their keys, whatever their number and order; one that is not stored keeps its
    /// width and comes after those that are. Where the widths are not those that the grid has, a person has
    /// chosen them.
    void RestoreVSDataGrid(Grid& grid);

    /// A value of the caller's own: integers and flags are stored as numbers, bytes as bytes, all else as
    /// text.
    void SaveSetting(const std::string& name, const Variant& value);
    /// As it is stored; the default when it is not.
    Variant GetSetting(const std::string& name, const Variant& defaultValue);

    void SaveNorvexToolbar(const Toolbar& toolbar);
    /// One that was never saved is hidden and floats at a fixed place: that is the one restore that does not
    /// leave what there is.
    void RestoreNorvexToolbar(Toolbar& toolbar);

  private:
    /// The key of a section, with a "\" at its end.
    std::string section(const char* name) const;
    std::string dialogKey(const Control& control) const;
    std::string gridKey(const Grid& grid) const;
    StoredValues at(std::string key);
    void restoreColumns(Grid& grid, StoredValues& values);
    void restoreFont(Grid& grid, StoredValues& values);

    Registry& registry_;
    const CodePage& codePage_;
    std::string executableName_;
    std::string title_;
    Trace& trace_;
    bool isExtension_ = false;
};

}  // namespace pellmark
