#include "refhost/automation/FeatureCaseStoreObject.h"

#include "knowledge/PackedText.h"
#include "refhost/automation/Identifiers.h"
#include "refhost/automation/RecordSetObject.h"

namespace norvex {

using pellmark::FeatureCaseDescription;
using pellmark::PackedTextWriter;
using pellmark::VariantArg;

FeatureCaseStoreObject::FeatureCaseStoreObject(SharedSession session)
    : AutomationObject("Norvex.FeatureCaseStore", kFeatureCaseStore), session_(std::move(session)) {
    addCases();
    addModel();
}

void FeatureCaseStoreObject::addCases() {
    method(1, L"ProcessesOfValues", 8, [this](const Arguments& call) { return processesOfValues(call); });
    method(2, L"CreateFeatureCase", 6, [this](const Arguments& call) {
        const FeatureCaseDescription description{call.text(0),  {},           call.int16(1), call.text(2),
                                                 call.int16(3), call.text(4), call.int16(5)};
        return store().createFeatureCase(description);
    });
    method(3, L"AddValue", 2, [this](const Arguments& call) {
        store().addValue(call.text(0), call.text(1));
        return VariantArg();
    });
    method(4, L"Matches", 2, [this](const Arguments& call) { return matches(call); });
}

void FeatureCaseStoreObject::addModel() {
    property(5, L"NvxFeatureTypes",
             [this](const Arguments&) { return makeObject<RecordSetObject>(store().nvxFeatureTypes()); });
    property(6, L"PartTypes",
             [this](const Arguments&) { return makeObject<RecordSetObject>(store().partTypes()); });
    property(7, L"MaterialClasses",
             [this](const Arguments&) { return makeObject<RecordSetObject>(store().materialClasses()); });
    method(8, L"FeatureTypes", 3, [this](const Arguments& call) {
        return makeObject<RecordSetObject>(store().featureTypes(call.int16(0), call.text(1), call.int16(2)));
    });
    method(9, L"Keys", 1,
           [this](const Arguments& call) { return makeObject<RecordSetObject>(store().keys(call.text(0))); });
    method(10, L"Values", 1, [this](const Arguments& call) {
        return makeObject<RecordSetObject>(store().values(call.text(0)));
    });
}

VariantArg FeatureCaseStoreObject::processesOfValues(const Arguments& call) {
    const FeatureCaseDescription description{call.text(0),  call.texts(1), call.int16(2), call.text(3),
                                             call.int16(4), call.text(5),  call.int16(6)};
    PackedTextWriter writer;
    for (const auto& node : store().processesOfValues(description, call.int32(7))) {
        writer.add(node.id);
        writer.add(node.FeatureCaseId);
        writer.add(node.Name);
        writer.add(std::to_string(node.unit));
        writer.add(node.Rule);
        writer.add(node.Description);
        writer.add(node.ExactMatch ? "1" : "0");
    }
    return packedResult(writer.text());
}

VariantArg FeatureCaseStoreObject::matches(const Arguments& call) {
    PackedTextWriter writer;
    for (const auto& match : store().matches(call.text(0), call.texts(1))) {
        writer.add(match.featureCaseId);
        writer.add(match.featureTypeId);
        writer.add(match.exactMatch ? "1" : "0");
    }
    return packedResult(writer.text());
}

}  // namespace norvex
