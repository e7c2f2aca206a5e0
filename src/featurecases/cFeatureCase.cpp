#include "featurecases/cFeatureCase.h"

#include <algorithm>
#include <charconv>
#include <map>

#include "base/Ids.h"
#include "base/Text.h"

namespace pellmark {

namespace {

constexpr std::int16_t kOpen = -1;
/// Every filter's first entry.
constexpr int kAny = 0;

/// Reads a record set of ids and names before anything is changed: its cells may fail like any query.
std::vector<Choice> choicesOf(RecordSet& records) {
    const std::size_t id = records.requireField(field::kId);
    const std::size_t name = records.requireField(field::kName);
    std::vector<Choice> choices;
    for (std::size_t i = 0; i < records.count(); ++i)
        choices.push_back({records.text(i, id), records.text(i, name)});
    return choices;
}

/// What is no such number leaves the filter open.
std::int16_t numberOf(const std::string& text) {
    std::int16_t number = kOpen;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

std::int16_t itemDataOf(const ComboBox* combo) {
    const ComboBox::Item* item = combo == nullptr ? nullptr : combo->selected();
    return item == nullptr ? kOpen : static_cast<std::int16_t>(item->itemData);
}

std::string idOf(const ComboBox* combo) {
    const ComboBox::Item* item = combo == nullptr ? nullptr : combo->selected();
    return item == nullptr ? std::string() : item->id;
}

/// True when another entry is selected now than before.
template <class Matches>
bool selectWhere(ComboBox* combo, Matches&& matches) {
    if (combo == nullptr) return false;
    const auto& items = combo->items();
    const auto found = std::find_if(items.begin(), items.end(), matches);
    if (found == items.end()) return false;
    const int before = combo->index();
    combo->setIndex(static_cast<int>(found - items.begin()));
    return combo->index() != before;
}

bool selectNumber(ComboBox* combo, std::int16_t number) {
    if (number == kOpen) return false;
    return selectWhere(combo, [number](const ComboBox::Item& item) { return item.itemData == number; });
}

bool selectId(ComboBox* combo, const std::string& id) {
    if (id.empty()) return false;
    const std::string wanted = registryForm(id);
    return selectWhere(combo, [&](const ComboBox::Item& item) { return equalNoCase(item.id, wanted); });
}

}  // namespace

cFeatureCase::cFeatureCase(const UserInterface& person, KnowledgeBaseService& knowledgeBase,
                           FeatureCaseCreation& creation)
    : person_(person), knowledgeBase_(knowledgeBase), creation_(creation) {}

cFeatureCase::~cFeatureCase() = default;

FeatureCaseStore& cFeatureCase::store() const {
    return knowledgeBase_.featureCaseStore();
}

void cFeatureCase::Init(const FeatureCaseControls& controls) {
    CmbNvxFeatureType = &controls.CmbNvxFeatureType;
    cmbPartType = &controls.cmbPartType;
    CmbPartMaterial = &controls.CmbPartMaterial;
    CmbUnit = &controls.CmbUnit;
    cmbPcUnit = &controls.cmbPcUnit;
    mFgcase = std::make_unique<FeatureCaseGrid>(controls.mFgcase);

    subscriptions_.clear();
    const auto onClick = [this](ComboBox& combo, const char* operation, bool rebuilds) {
        subscriptions_.push_back(combo.clicked.subscribe(
            [this, operation, &combo, rebuilds] { filterClicked(operation, combo, rebuilds); }));
    };
    onClick(*CmbNvxFeatureType, "cFeatureCase::CmbNvxFeatureType_Click", true);
    onClick(*cmbPartType, "cFeatureCase::cmbPartType_Click", true);
    onClick(*CmbUnit, "cFeatureCase::CmbUnit_Click", true);
    onClick(*CmbPartMaterial, "cFeatureCase::CmbPartMaterial_Click", false);
    onClick(*cmbPcUnit, "cFeatureCase::cmbPcUnit_Click", false);
    subscriptions_.push_back(mFgcase->typeChosen.subscribe([this] {
        trap(person_.operations(), "cFeatureCase::FeatureTypeChosen", [this] {
            rebuildKeys({});
            caseChanged.raise();
        });
    }));
    subscriptions_.push_back(mFgcase->valueChosen.subscribe([this] {
        trap(person_.operations(), "cFeatureCase::ValueChosen", [this] { caseChanged.raise(); });
    }));

    layout_.emplace(controls.mFgcase, person_.layouts);
    trap(person_.operations(), "cFeatureCase::Init", [this] {
        mFgcase->layOut(person_.texts.GetString("Key"), person_.texts.GetString("Value"));
        layout_->restore();
    });
    fillFilters();
    trap(person_.operations(), "cFeatureCase::Init", [this] { rebuildGrid(); });
}

void cFeatureCase::fillFilters() {
    const std::string any = person_.texts.GetString("Any");
    // Each list stands by itself: one that cannot be read leaves its filter open and the others usable.
    const auto fill = [&](ComboBox& combo, const auto& query) {
        std::vector<ComboBox::Item> items{{any, kOpen, ""}};
        trap(person_.operations(), "cFeatureCase::Init", [&] { query(items); });
        combo.setItems(std::move(items));
        // Nothing stored, or an index from a longer list, chooses nothing; the filter then stays open.
        person_.layouts.RestoreComboBoxIndex(combo);
        if (combo.index() == ComboBox::kNone) combo.setIndex(kAny);
    };
    const auto units = [](std::vector<ComboBox::Item>& items) {
        items.push_back({"Inch", unit::kInch, ""});
        items.push_back({"Metric", unit::kMetric, ""});
    };
    const auto byId = [](std::vector<ComboBox::Item>& items, RecordSet& records) {
        for (Choice& each : choicesOf(records))
            items.push_back({std::move(each.name), 0, std::move(each.id)});
    };
    fill(*CmbUnit, units);
    fill(*cmbPcUnit, units);
    fill(*CmbNvxFeatureType, [this](std::vector<ComboBox::Item>& items) {
        for (Choice& each : choicesOf(*store().nvxFeatureTypes())) {
            items.push_back({std::move(each.name), numberOf(each.id), ""});
        }
    });
    fill(*cmbPartType, [&](std::vector<ComboBox::Item>& items) { byId(items, *store().partTypes()); });
    fill(*CmbPartMaterial,
         [&](std::vector<ComboBox::Item>& items) { byId(items, *store().materialClasses()); });
}

void cFeatureCase::openFilters() {
    for (ComboBox* combo : {CmbUnit, cmbPcUnit, CmbNvxFeatureType, cmbPartType, CmbPartMaterial})
        if (combo != nullptr) combo->setIndex(kAny);
}

void cFeatureCase::filterClicked(const char* operation, ComboBox& combo, bool rebuilds) {
    trap(person_.operations(), operation, [&] {
        person_.layouts.SaveComboBoxIndex(combo);
        if (rebuilds) trap(person_.operations(), operation, [this] { rebuildGrid(); });
        caseChanged.raise();
    });
}

void cFeatureCase::rebuildGrid() {
    const std::vector<Choice> types =
        choicesOf(*store().featureTypes(itemDataOf(CmbNvxFeatureType), idOf(cmbPartType), GetFTUnit()));
    const std::vector<std::string> values = mFgcase->valueIds();
    mFgcase->showTypes(types, mFgcase->featureType());
    rebuildKeys(values);
}

void cFeatureCase::rebuildKeys(const std::vector<std::string>& chosenValues) {
    const std::string type = mFgcase->featureType();
    std::vector<KeyChoices> keys;
    trap(person_.operations(), "cFeatureCase::rebuildKeys", [&] {
        if (type != FeatureCaseGrid::kNoType) keys = keysOf(type);
    });
    mFgcase->showKeys(keys, chosenValues);
}

std::vector<KeyChoices> cFeatureCase::keysOf(const std::string& featureTypeId) const {
    std::vector<KeyChoices> keys;
    std::map<std::string, std::size_t> placeOfKey;
    for (Choice& key : choicesOf(*store().keys(featureTypeId))) {
        placeOfKey.emplace(lowerAscii(key.id), keys.size());
        keys.push_back({std::move(key.name), {}});
    }
    const auto values = store().values(featureTypeId);
    const std::size_t keyField = values->requireField(field::kKeyId);
    std::vector<Choice> choices = choicesOf(*values);
    for (std::size_t i = 0; i < choices.size(); ++i) {
        const auto key = placeOfKey.find(lowerAscii(values->text(i, keyField)));
        if (key != placeOfKey.end()) keys[key->second].values.push_back(std::move(choices[i]));
    }
    return keys;
}

// --- what the host hands in ------------------------------------------------------------------------------

void cFeatureCase::SetFeatureCaseUnitGui(std::int16_t unitCode) {
    trap(person_.operations(), "cFeatureCase::SetFeatureCaseUnitGui", [&] {
        if (selectNumber(CmbUnit, unitCode)) rebuildGrid();
    });
}

void cFeatureCase::SetNvxFeatureTypeGui(std::int16_t nvxFeatureType) {
    trap(person_.operations(), "cFeatureCase::SetNvxFeatureTypeGui", [&] {
        if (selectNumber(CmbNvxFeatureType, nvxFeatureType)) rebuildGrid();
    });
}

void cFeatureCase::SetPartTypeGui(const std::string& partTypeId) {
    trap(person_.operations(), "cFeatureCase::SetPartTypeGui", [&] {
        if (selectId(cmbPartType, partTypeId)) rebuildGrid();
    });
}

void cFeatureCase::SetFeatureTypeGui(const std::string& featureTypeId) {
    trap(person_.operations(), "cFeatureCase::SetFeatureTypeGui", [&] {
        if (!mFgcase || featureTypeId.empty()) return;
        std::vector<Choice> types =
            choicesOf(*store().featureTypes(itemDataOf(CmbNvxFeatureType), idOf(cmbPartType), GetFTUnit()));
        const std::string wanted = registryForm(featureTypeId);
        const auto named = [&](const Choice& type) { return equalNoCase(type.id, wanted); };
        const bool none = featureTypeId == FeatureCaseGrid::kNoType;
        if (!none && std::none_of(types.begin(), types.end(), named)) {
            const std::vector<Choice> all = choicesOf(*store().featureTypes(kOpen, "", kOpen));
            const auto found = std::find_if(all.begin(), all.end(), named);
            if (found == all.end()) return;
            types.push_back(*found);
        }
        mFgcase->showTypes(types, featureTypeId);
        rebuildKeys({});
    });
}

void cFeatureCase::SetPartMaterialClassGui(const std::string& materialClassId) {
    trap(person_.operations(), "cFeatureCase::SetPartMaterialClassGui",
         [&] { selectId(CmbPartMaterial, materialClassId); });
}

void cFeatureCase::SetProcessUnitGui(std::int16_t unitCode) {
    trap(person_.operations(), "cFeatureCase::SetProcessUnitGui", [&] { selectNumber(cmbPcUnit, unitCode); });
}

void cFeatureCase::SetValuesGui(const std::vector<std::string>& valueIds) {
    trap(person_.operations(), "cFeatureCase::SetValuesGui", [&] {
        if (mFgcase) mFgcase->chooseValues(valueIds);
    });
    caseChanged.raise();
}

// --- what the others ask ---------------------------------------------------------------------------------

std::string cFeatureCase::GetPartMaterialClassId() {
    return idOf(CmbPartMaterial);
}

std::int16_t cFeatureCase::GetFTUnit() {
    return itemDataOf(CmbUnit);
}

std::int16_t cFeatureCase::GetPcUnit() {
    return itemDataOf(cmbPcUnit);
}

std::string cFeatureCase::GetCurrentFeatureType() {
    return mFgcase ? mFgcase->featureType() : FeatureCaseGrid::kNoType;
}

std::vector<std::string> cFeatureCase::GetCurrentValueIds() {
    return mFgcase ? mFgcase->valueIds() : std::vector<std::string>();
}

std::string cFeatureCase::GetFirstFeatureTypeExactMatchId() {
    std::string id;
    trap(person_.operations(), "cFeatureCase::GetFirstFeatureTypeExactMatchId",
         [&] { id = existingFeatureCase(); });
    return id;
}

std::string cFeatureCase::existingFeatureCase() {
    const std::vector<FeatureCaseMatch> matches =
        store().matches(GetCurrentFeatureType(), GetCurrentValueIds());
    const auto first = std::find_if(matches.begin(), matches.end(),
                                    [](const FeatureCaseMatch& match) { return match.exactMatch; });
    return first == matches.end() ? std::string() : first->featureCaseId;
}

FeatureCaseDescription cFeatureCase::description() {
    FeatureCaseDescription now;
    now.featureTypeId = GetCurrentFeatureType();
    now.valueIds = GetCurrentValueIds();
    now.nvxFeatureType = itemDataOf(CmbNvxFeatureType);
    now.partTypeId = idOf(cmbPartType);
    now.unit = GetFTUnit();
    now.materialClassId = GetPartMaterialClassId();
    now.processUnit = GetPcUnit();
    return now;
}

std::string cFeatureCase::existingOrNewFeatureCase() {
    const std::string id = existingFeatureCase();
    return id.empty() ? creation_.create(description()) : id;
}

void cFeatureCase::Properties() {
    trap(person_.operations(), "cFeatureCase::Properties", [this] {
        const bool none = GetCurrentFeatureType() == FeatureCaseGrid::kNoType;
        const std::string text =
            none ? person_.texts.GetString("No feature type is currently selected") : propertiesText();
        person_.show({text, "", MessageIcon::Information});
    });
}

std::string cFeatureCase::propertiesText() const {
    const auto rows = mFgcase->shownRows();
    std::string text = "Feature Type " + rows.front().second;
    const auto line = [&text](const std::string& name, const std::string& value) {
        text += "\r\n" + name + ": " + value;
    };
    for (std::size_t i = 1; i < rows.size(); ++i) {
        if (!rows[i].second.empty()) line(rows[i].first, rows[i].second);
    }
    text += "\r\n";
    const auto filter = [&](const char* english, const ComboBox& combo) {
        line(person_.texts.GetString(english), combo.selected() == nullptr ? "" : combo.selected()->text);
    };
    filter("Unit", *CmbUnit);
    filter("Norvex Feature Type", *CmbNvxFeatureType);
    filter("Part Type", *cmbPartType);
    filter("Part Material Class", *CmbPartMaterial);
    return text;
}

}  // namespace pellmark
