#include "settings/cRegDefaults.h"

#include <utility>
#include <variant>
#include <vector>

#include "base/Convert.h"
#include "base/Error.h"

namespace pellmark {

namespace {

constexpr const char* kApplications = "Software\\Orvane\\Applications\\";
constexpr const char* kExtensions = "Software\\Orvane\\Norvex\\ExtensionSettings\\";
constexpr const char* kHostSettings = "Software\\Orvane\\Norvex\\Config";

constexpr const char* kDialogs = "DialogSettings";
constexpr const char* kGrids = "GridDefaults";
constexpr const char* kGlobals = "GlobalSettings";
constexpr const char* kToolbars = "Toolbars";

constexpr const char* kColumnHeaders = "ColumnHeaders";
constexpr const char* kWidthEnding = "-Width";
constexpr const char* kPositionEnding = "-Position";
constexpr const char* kHiddenEnding = "-Hidden";

constexpr Point kToolbarPlace{300, 100};

/// More than any desk of screens is wide: what is stored beyond it is no length, and sums of lengths stay
/// numbers.
constexpr Twips kLongest = 1000 * 1440;
constexpr double kLargestFont = 1000;

/// The lists of one dialog share its key, so the value names the list as well as the column.
std::string headerWidthName(const ListView& list, std::size_t column) {
    return "ColumnHeaderWidth-" + list.name() + "-" + std::to_string(column);
}

const std::string& formOf(const Control& control) {
    if (const Form* form = control.form()) return form->name();
    throw Error(errors::kInvalidArgument, "Pellmark.cRegDefaults",
                "The control " + control.name() + " stands in no form");
}

}  // namespace

cRegDefaults::cRegDefaults(Registry& registry, const CodePage& codePage, std::string executableName,
                           std::string title, Trace& trace)
    : registry_(registry),
      codePage_(codePage),
      executableName_(std::move(executableName)),
      title_(std::move(title)),
      trace_(trace) {}

// --- keys ------------------------------------------------------------------------------------------------

std::string cRegDefaults::section(const char* name) const {
    return (isExtension_ ? kExtensions : kApplications) + title_ + "\\" + name + "\\";
}

std::string cRegDefaults::dialogKey(const Control& control) const {
    return section(kDialogs) + formOf(control) + "\\";
}

std::string cRegDefaults::gridKey(const Grid& grid) const {
    return section(kGrids) + formOf(grid) + "\\" + grid.name() + "\\";
}

StoredValues cRegDefaults::at(std::string key) {
    return {cRegistry(registry_, codePage_, executableName_), std::move(key), trace_};
}

// --- small controls --------------------------------------------------------------------------------------

std::int32_t cRegDefaults::NorvexLanguage() {
    std::int32_t language = -1;
    trap(trace_, "cRegDefaults::NorvexLanguage",
         [&] { language = at(kHostSettings).number("LanguageOption").value_or(-1); });
    return language;
}

void cRegDefaults::SaveComboBoxIndex(const ComboBox& combo) {
    trap(trace_, "cRegDefaults::SaveComboBoxIndex",
         [&] { at(dialogKey(combo)).writeNumber(combo.name(), combo.index()); });
}

void cRegDefaults::RestoreComboBoxIndex(ComboBox& combo) {
    trap(trace_, "cRegDefaults::RestoreComboBoxIndex", [&] {
        const int last = static_cast<int>(combo.items().size()) - 1;
        if (const auto index = at(dialogKey(combo)).number(combo.name(), ComboBox::kNone, last))
            combo.setIndex(*index);
    });
}

void cRegDefaults::SaveTextBox(const TextBox& box) {
    trap(trace_, "cRegDefaults::SaveTextBox", [&] { at(dialogKey(box)).writeText(box.name(), box.text()); });
}

void cRegDefaults::RestoreTextBox(TextBox& box) {
    trap(trace_, "cRegDefaults::RestoreTextBox", [&] {
        if (auto text = at(dialogKey(box)).text(box.name())) box.setText(std::move(*text));
    });
}

void cRegDefaults::SaveListView(const ListView& list) {
    trap(trace_, "cRegDefaults::SaveListView", [&] {
        StoredValues values = at(dialogKey(list));
        const std::vector<ColumnHeader>& columns = list.columnHeaders();
        values.writeText(kColumnHeaders, static_cast<std::int32_t>(columns.size()));
        for (std::size_t column = 0; column < columns.size(); ++column)
            values.writeText(headerWidthName(list, column), columns[column].width);
    });
}

void cRegDefaults::RestoreListView(ListView& list) {
    trap(trace_, "cRegDefaults::RestoreListView", [&] {
        StoredValues values = at(dialogKey(list));
        for (std::size_t column = 0; column < list.columnHeaders().size(); ++column) {
            if (const auto width = values.number(headerWidthName(list, column), 0, kLongest))
                list.setColumnWidth(static_cast<int>(column), *width);
        }
    });
}

void cRegDefaults::SaveSplitter(const Splitter& splitter) {
    trap(trace_, "cRegDefaults::SaveSplitter", [&] {
        StoredValues values = at(dialogKey(splitter));
        if (splitter.share()) {
            values.writeNumber(splitter.name(), *splitter.share());
        } else {
            values.remove(splitter.name());
        }
    });
}

void cRegDefaults::RestoreSplitter(Splitter& splitter) {
    trap(trace_, "cRegDefaults::RestoreSplitter", [&] {
        if (const auto share = at(dialogKey(splitter)).number(splitter.name(), 0, kWholeShare))
            splitter.setShare(*share);
    });
}

// --- windows ---------------------------------------------------------------------------------------------

void cRegDefaults::SaveDialog(const Form& form) {
    trap(trace_, "cRegDefaults::SaveDialog", [&] {
        const Rect& bounds = form.bounds();
        const bool isPlaced = !form.isEmbedded() && bounds != Rect{};
        if (!isPlaced || form.windowState() != WindowState::Normal) return;
        StoredValues values = at(dialogKey(form));
        values.writeNumber("Left", bounds.left);
        values.writeNumber("Top", bounds.top);
        values.writeNumber("Width", bounds.width);
        values.writeNumber("Height", bounds.height);
        values.writeNumber("WindowState", static_cast<std::int32_t>(form.windowState()));
    });
}

void cRegDefaults::RestoreDialog(Form& form) {
    trap(trace_, "cRegDefaults::RestoreDialog", [&] {
        StoredValues values = at(dialogKey(form));
        if (!values.keyExists()) return;
        if (const auto state = values.number("WindowState", 0, static_cast<int>(WindowState::Maximized)))
            form.setWindowState(static_cast<WindowState>(*state));
        const auto left = values.number("Left", -kLongest, kLongest);
        const auto top = values.number("Top", -kLongest, kLongest);
        Rect bounds = form.bounds();
        if (left || top) {
            bounds.left = left.value_or(bounds.left);
            bounds.top = top.value_or(bounds.top);
            // Without a size the place (0, 0) would be that of a window which was never placed.
            if (bounds.width == 0) bounds.width = form.clientSize().width;
            if (bounds.height == 0) bounds.height = form.clientSize().height;
        }
        if (form.isSizable()) {
            bounds.width = values.number("Width", 1, kLongest).value_or(bounds.width);
            bounds.height = values.number("Height", 1, kLongest).value_or(bounds.height);
        }
        form.setBounds(bounds);
    });
}

// --- grids -----------------------------------------------------------------------------------------------

void cRegDefaults::SaveVSDataGrid(const Grid& grid) {
    trap(trace_, "cRegDefaults::SaveVSDataGrid", [&] {
        StoredValues values = at(gridKey(grid));
        for (int col = 0; col < grid.cols(); ++col) {
            const std::string& key = grid.colKey(col);
            if (key.empty()) continue;
            values.writeNumber(key + kWidthEnding, grid.colWidth(col));
            values.writeNumber(key + kPositionEnding, grid.colPosition(col));
            values.writeFlag(key + kHiddenEnding, grid.colHidden(col));
        }
        const Font& font = grid.font();
        values.writeText("FontName", font.name);
        values.writeText("FontSize", font.size);
        values.writeFlag("FontBold", font.bold);
        values.writeFlag("FontItalic", font.italic);
        values.writeFlag("FontStrikethrough", font.strikethrough);
        values.writeFlag("FontUnderline", font.underline);
    });
}

void cRegDefaults::RestoreVSDataGrid(Grid& grid) {
    trap(trace_, "cRegDefaults::RestoreVSDataGrid", [&] {
        StoredValues values = at(gridKey(grid));
        if (!values.keyExists()) return;
        const Grid::RedrawOff off(grid);
        restoreColumns(grid, values);
        restoreFont(grid, values);
    });
}

void cRegDefaults::restoreColumns(Grid& grid, StoredValues& values) {
    std::vector<Grid::ColPosition> positions;
    for (int col = 0; col < grid.cols(); ++col) {
        const std::string& key = grid.colKey(col);
        if (key.empty()) continue;
        const auto width = values.number(key + kWidthEnding, 0, kLongest);
        if (width && *width != grid.colWidth(col)) {
            grid.setColWidth(col, *width);
            // A fixed column is fitted to its contents by whoever fills it.
            if (col >= grid.fixedCols()) grid.setWidthsChosen(true);
        }
        if (const auto position = values.number(key + kPositionEnding, 0, kLongest))
            positions.push_back({col, *position});
        if (const auto hidden = values.flag(key + kHiddenEnding)) grid.setColHidden(col, *hidden);
    }
    grid.setColPositions(std::move(positions));
}

void cRegDefaults::restoreFont(Grid& grid, StoredValues& values) {
    Font font = grid.font();
    font.name = values.text("FontName").value_or(font.name);
    font.size = values.number("FontSize", 0.0, kLargestFont).value_or(font.size);
    font.bold = values.flag("FontBold").value_or(font.bold);
    font.italic = values.flag("FontItalic").value_or(font.italic);
    font.strikethrough = values.flag("FontStrikethrough").value_or(font.strikethrough);
    font.underline = values.flag("FontUnderline").value_or(font.underline);
    grid.setFont(font);
}

// --- settings and toolbars -------------------------------------------------------------------------------

void cRegDefaults::SaveSetting(const std::string& name, const Variant& value) {
    trap(trace_, "cRegDefaults::SaveSetting", [&] {
        StoredValues values = at(section(kGlobals));
        if (const auto* set = std::get_if<bool>(&value)) {
            values.writeFlag(name, *set);
        } else if (std::holds_alternative<std::int16_t>(value) ||
                   std::holds_alternative<std::int32_t>(value)) {
            values.writeNumber(name, toInt32(value));
        } else if (const auto* bytes = std::get_if<ByteArray>(&value)) {
            values.writeBytes(name, *bytes);
        } else {
            values.writeText(name, value);
        }
    });
}

Variant cRegDefaults::GetSetting(const std::string& name, const Variant& defaultValue) {
    Variant value;
    trap(trace_, "cRegDefaults::GetSetting", [&] { value = at(section(kGlobals)).read(name); });
    return std::holds_alternative<std::monostate>(value) ? defaultValue : value;
}

void cRegDefaults::SaveNorvexToolbar(const Toolbar& toolbar) {
    trap(trace_, "cRegDefaults::SaveNorvexToolbar", [&] {
        StoredValues values = at(section(kToolbars) + toolbar.name() + "\\");
        values.writeNumber("Position", toolbar.position());
        values.writeNumber("Left", toolbar.place().left);
        values.writeNumber("Top", toolbar.place().top);
        values.writeFlag("Visible", toolbar.visible());
    });
}

void cRegDefaults::RestoreNorvexToolbar(Toolbar& toolbar) {
    trap(trace_, "cRegDefaults::RestoreNorvexToolbar", [&] {
        StoredValues values = at(section(kToolbars) + toolbar.name() + "\\");
        const Point stored{values.number("Left", -kLongest, kLongest).value_or(kToolbarPlace.left),
                           values.number("Top", -kLongest, kLongest).value_or(kToolbarPlace.top)};
        toolbar.setVisible(values.flag("Visible").value_or(false));
        const int position = values.number("Position").value_or(Toolbar::kFloating);
        if (position != Toolbar::kFloating) {
            toolbar.dock(position, stored);
        } else {
            toolbar.floatAt(stored);
        }
    });
}

}  // namespace pellmark
