#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/Event.h"
#include "controls/Grid.h"
#include "processes/Records.h"

namespace pellmark {

class Component;
class FrmMain;

/// The upper half of the Process Case view: the filters that describe a feature case and the grid of its
/// keys and values. Whether one exists is how the process list and the dialogs know which view they serve.
/// Every operation ends quietly when it fails; a failed query answers as if nothing were chosen.
class cFeatureCase {
  public:
    explicit cFeatureCase(Component& component);
    ~cFeatureCase();

    void Init(FrmMain& form);
    /// "" when none is selected.
    std::string GetPartMaterialClassId();
    void SetFeatureTypeGui(const std::string& featureTypeId);
    void SetValuesGui(const std::vector<std::string>& valueIds);
    /// unit::kNone leaves the selection as it is; so do the two other setters of numbers.
    void SetFeatureCaseUnitGui(std::int16_t unitCode);
    void SetProcessUnitGui(std::int16_t unitCode);
    void SetNvxFeatureTypeGui(std::int16_t nvxFeatureType);
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
    /// The id of the feature case of the current values, which is created with those values when it does
    /// not exist yet. Throws when the knowledge base refuses.
    std::string existingOrNewFeatureCase();

    /// Raised after the user or the host chose another value, feature type or filter.
    Event<> caseChanged;

  private:
    Component& component_;
};

}  // namespace pellmark
