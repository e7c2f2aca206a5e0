#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/Event.h"
#include "controls/Controls.h"
#include "featurecases/FeatureCaseCreation.h"
#include "featurecases/FeatureCaseGrid.h"
#include "knowledge/KnowledgeBaseService.h"
#include "util/GridLayout.h"
#include "util/UserInterface.h"

namespace pellmark {

/// The controls of the main form that the view works on. They must outlive it.
struct FeatureCaseControls {
    ComboBox& CmbNvxFeatureType;
    ComboBox& cmbPartType;
    ComboBox& CmbPartMaterial;
    ComboBox& CmbUnit;
    ComboBox& cmbPcUnit;
    Grid& mFgcase;
};

/// The upper half of the Process Case view: the filters that describe a feature case and the grid of its
/// keys and values. Whether one exists is how the process list and the dialogs know which view they serve.
/// Every operation ends quietly when it fails; a failed query answers as if nothing were chosen.
class cFeatureCase {
  public:
    cFeatureCase(const UserInterface& person, KnowledgeBaseService& knowledgeBase,
                 FeatureCaseCreation& creation);
    ~cFeatureCase();

    /// Fills the filters, each with the entry that a person chose last, and lays the feature-case grid out.
    void Init(const FeatureCaseControls& controls);
    /// Leaves all five filters open, and what is remembered of them as it is.
    void openFilters();
    /// "" when none is selected.
    std::string GetPartMaterialClassId();
    /// "" leaves the feature type as it is, "-1" chooses none. A type that the filters leave out is chosen
    /// all the same: the host knows its case better than a filter that is left from before.
    void SetFeatureTypeGui(const std::string& featureTypeId);
    /// Chooses these values and no others; ids that the feature type does not offer are passed over. Raises
    /// caseChanged: the host calls it last.
    void SetValuesGui(const std::vector<std::string>& valueIds);
    /// unit::kNone leaves the selection as it is; so do the two other setters of numbers, and a value that
    /// the list does not hold.
    void SetFeatureCaseUnitGui(std::int16_t unitCode);
    void SetProcessUnitGui(std::int16_t unitCode);
    void SetNvxFeatureTypeGui(std::int16_t nvxFeatureType);
    /// An empty or unknown id leaves the selection as it is.
    void SetPartTypeGui(const std::string& partTypeId);
    void SetPartMaterialClassGui(const std::string& materialClassId);
    /// unit::kNone when none is selected.
    std::int16_t GetFTUnit();
    std::int16_t GetPcUnit();
    /// Shows a description of the current case.
    void Properties();
    /// In row order; empty when no value is chosen.
    std::vector<std::string> GetCurrentValueIds();
    /// The first feature case whose values are exactly the current ones; "" when there is none.
    std::string GetFirstFeatureTypeExactMatchId();
    /// "-1" when none is chosen.
    std::string GetCurrentFeatureType();

    /// Everything the knowledge base's queries take, in one piece.
    FeatureCaseDescription description();
    /// A feature case is current as soon as a feature type is chosen.
    bool hasCase() { return GetCurrentFeatureType() != FeatureCaseGrid::kNoType; }
    /// The id of the feature case of the current values; "" while there is none. Throws when the knowledge
    /// base cannot say: a case that is there must not be made a second time.
    std::string existingFeatureCase();
    /// The same, but creates the case with those values when it does not exist yet. Throws when the knowledge
    /// base refuses.
    std::string existingOrNewFeatureCase();

    /// Raised after the user chose another value, feature type or filter, and at the end of SetValuesGui.
    Event<> caseChanged;

  private:
    FeatureCaseStore& store() const;
    void fillFilters();
    /// Offers what the filters leave, and keeps feature type and values where they are still offered.
    void rebuildGrid();
    void rebuildKeys(const std::vector<std::string>& chosenValues);
    std::vector<KeyChoices> keysOf(const std::string& featureTypeId) const;
    std::string propertiesText() const;
    void filterClicked(const char* operation, ComboBox& combo, bool rebuilds);

    UserInterface person_;
    KnowledgeBaseService& knowledgeBase_;
    FeatureCaseCreation& creation_;
    ComboBox* CmbNvxFeatureType = nullptr;
    ComboBox* cmbPartType = nullptr;
    ComboBox* CmbPartMaterial = nullptr;
    ComboBox* CmbUnit = nullptr;
    ComboBox* cmbPcUnit = nullptr;
    std::unique_ptr<FeatureCaseGrid> mFgcase;
    std::optional<GridLayout> layout_;
    std::vector<Subscription> subscriptions_;
};

}  // namespace pellmark
