#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Event.h"
#include "controls/grid/Grid.h"

namespace pellmark {

/// Something to choose: its id and its name.
struct Choice {
    std::string id;
    std::string name;
};

/// One key of a feature type with the values it may have.
struct KeyChoices {
    std::string name;
    std::vector<Choice> values;
};

/// The grid of a feature case: the feature type in its first data row, one key with its value in each row
/// below. Row data holds the chosen id: kNoType or a feature type's, "" or a value's. What is chosen is
/// always one of the choices offered.
class FeatureCaseGrid {
  public:
    static constexpr const char* kNoType = "-1";
    static constexpr int kTypeRow = 1;
    static constexpr int kFirstKeyRow = 2;
    static constexpr int kNameCol = 0;
    static constexpr int kValueCol = 1;

    /// The grid must outlive this object.
    explicit FeatureCaseGrid(Grid& grid);

    /// Two columns under these headings and the row of the feature type, with none chosen.
    void layOut(const std::string& nameHeading, const std::string& valueHeading);
    /// Offers feature types and chooses one of them, or none where the id is not among them. The rows of keys
    /// go; showKeys brings those of the new type.
    void showTypes(const std::vector<Choice>& types, const std::string& chosenId);
    /// A row for each key, its chosen value being the first of the ids that it offers.
    void showKeys(const std::vector<KeyChoices>& keys, const std::vector<std::string>& chosenIds);
    /// Chooses in each row of a key the first of the ids that it offers, and none where it offers none of
    /// them.
    void chooseValues(const std::vector<std::string>& ids);

    /// kNoType when none is chosen.
    std::string featureType() const;
    /// In row order; rows without a chosen value are skipped.
    std::vector<std::string> valueIds() const;
    /// The feature type's caption and name, then each key and the name of its value, as they are shown.
    std::vector<std::pair<std::string, std::string>> shownRows() const;

    /// A person chose another feature type, or another value.
    Event<> typeChosen;
    Event<> valueChosen;

  private:
    void setChoices(int row, std::string_view noneId, const std::vector<Choice>& choices);
    void choose(int row, const std::string& storedId);
    /// The id as the row offers it, where it offers it at all: ids come in any case.
    const std::string* offered(int row, const std::string& id) const;
    void validate(CellEdit& edit) const;
    void edited(int row);

    Grid& grid_;
    std::vector<Subscription> subscriptions_;
};

}  // namespace pellmark
