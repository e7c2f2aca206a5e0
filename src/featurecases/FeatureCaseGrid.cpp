#include "featurecases/FeatureCaseGrid.h"

#include <algorithm>

#include "base/Ids.h"
#include "base/Text.h"

namespace pellmark {

namespace {

/// Part of the host's own vocabulary, the same in every language.
constexpr const char* kTypeCaption = "Feature Type";
/// The cells are not fields of a record, but a stored layout finds its columns by their keys.
constexpr const char* kNameKey = "Key";
constexpr const char* kValueKey = "Value";
constexpr Twips kNameWidth = 2600;
constexpr Twips kValueWidth = 3600;

}  // namespace

FeatureCaseGrid::FeatureCaseGrid(Grid& grid) : grid_(grid) {
    subscriptions_.push_back(grid.validateEdit.subscribe([this](CellEdit& edit) { validate(edit); }));
    subscriptions_.push_back(grid.afterEdit.subscribe([this](int row, int) { edited(row); }));
}

void FeatureCaseGrid::layOut(const std::string& nameHeading, const std::string& valueHeading) {
    Grid::RedrawOff off(grid_);
    // A "|" within a translation must not make a third column.
    grid_.setHeadings(replaced(nameHeading, '|', ' ') + "|" + replaced(valueHeading, '|', ' '));
    grid_.setColKey(kNameCol, kNameKey);
    grid_.setColKey(kValueCol, kValueKey);
    grid_.setColWidth(kNameCol, kNameWidth);
    grid_.setColWidth(kValueCol, kValueWidth);
    grid_.setWidthsChosen(false);
    grid_.setColEditable(kValueCol, true);
    showTypes({}, kNoType);
    grid_.select(kTypeRow, kValueCol);
}

void FeatureCaseGrid::showTypes(const std::vector<Choice>& types, const std::string& chosenId) {
    Grid::RedrawOff off(grid_);
    const int current = grid_.row();
    grid_.bind(nullptr);
    grid_.addRow();
    grid_.setText(kTypeRow, kNameCol, kTypeCaption);
    setChoices(kTypeRow, kNoType, types);
    const std::string* known = offered(kTypeRow, chosenId);
    choose(kTypeRow, known != nullptr ? *known : kNoType);
    if (current >= kTypeRow) grid_.select(kTypeRow, kValueCol);
}

void FeatureCaseGrid::showKeys(const std::vector<KeyChoices>& keys,
                               const std::vector<std::string>& chosenIds) {
    Grid::RedrawOff off(grid_);
    grid_.setRows(kFirstKeyRow);
    for (const KeyChoices& key : keys) {
        const int row = grid_.addRow();
        grid_.setText(row, kNameCol, key.name);
        setChoices(row, "", key.values);
    }
    chooseValues(chosenIds);
}

void FeatureCaseGrid::chooseValues(const std::vector<std::string>& ids) {
    Grid::RedrawOff off(grid_);
    for (int row = kFirstKeyRow; row < grid_.rows(); ++row) {
        const std::string* chosen = nullptr;
        for (auto id = ids.begin(); chosen == nullptr && id != ids.end(); ++id) {
            if (!id->empty()) chosen = offered(row, *id);
        }
        choose(row, chosen != nullptr ? *chosen : std::string());
    }
}

/// The first entry is empty and takes the choice back.
void FeatureCaseGrid::setChoices(int row, std::string_view noneId, const std::vector<Choice>& choices) {
    std::string list = "#" + std::string(noneId) + ";";
    for (const Choice& choice : choices)
        list += "|#" + choice.id + ";" + replaced(choice.name, '|', ' ');
    grid_.setRowComboList(row, kValueCol, list);
}

void FeatureCaseGrid::choose(int row, const std::string& storedId) {
    grid_.setText(row, kValueCol, storedId);
    grid_.setRowData(row, storedId);
}

const std::string* FeatureCaseGrid::offered(int row, const std::string& id) const {
    const std::string wanted = registryForm(id);
    const auto& items = grid_.comboList(row, kValueCol).items();
    const auto found = std::find_if(items.begin(), items.end(), [&](const DisplayList::Item& item) {
        return equalNoCase(item.stored, wanted);
    });
    return found == items.end() ? nullptr : &found->stored;
}

void FeatureCaseGrid::validate(CellEdit& edit) const {
    const std::string* known = edit.col == kValueCol ? offered(edit.row, edit.text) : nullptr;
    if (known == nullptr) {
        edit.cancel = true;
    } else {
        edit.text = *known;
    }
}

void FeatureCaseGrid::edited(int row) {
    grid_.setRowData(row, grid_.text(row, kValueCol));
    (row == kTypeRow ? typeChosen : valueChosen).raise();
}

std::string FeatureCaseGrid::featureType() const {
    const std::string id = grid_.rowData(kTypeRow);
    return id.empty() ? kNoType : id;
}

std::vector<std::string> FeatureCaseGrid::valueIds() const {
    std::vector<std::string> ids;
    for (int row = kFirstKeyRow; row < grid_.rows(); ++row) {
        std::string id = grid_.rowData(row);
        if (!id.empty()) ids.push_back(std::move(id));
    }
    return ids;
}

std::vector<std::pair<std::string, std::string>> FeatureCaseGrid::shownRows() const {
    std::vector<std::pair<std::string, std::string>> shown;
    for (int row = kTypeRow; row < grid_.rows(); ++row) {
        shown.emplace_back(grid_.displayText(row, kNameCol), grid_.displayText(row, kValueCol));
    }
    return shown;
}

}  // namespace pellmark
