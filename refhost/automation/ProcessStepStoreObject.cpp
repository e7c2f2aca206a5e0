#include "refhost/automation/ProcessStepStoreObject.h"

#include <charconv>

#include "automation/Guard.h"
#include "knowledge/PackedText.h"
#include "refhost/automation/Identifiers.h"
#include "refhost/automation/RecordSetObject.h"

namespace norvex {

using pellmark::VariantArg;

namespace {

int numberFrom(const std::string& text) {
    int number = 0;
    const auto [end, code] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (code != std::errc() || end != text.data() + text.size()) {
        throw pellmark::CallError(DISP_E_TYPEMISMATCH, "The types of cutting cycles are numbers");
    }
    return number;
}

}  // namespace

ProcessStepStoreObject::ProcessStepStoreObject(SharedSession session)
    : AutomationObject("Norvex.ProcessStepStore", kProcessStepStore), session_(std::move(session)) {
    addSteps();
    addValues();
}

void ProcessStepStoreObject::addSteps() {
    method(1, L"Steps", 1, [this](const Arguments& call) {
        return makeObject<RecordSetObject>(store().steps(call.text(0)));
    });
    method(2, L"Step", 1, [this](const Arguments& call) { return step(call); });
    method(3, L"AddStep", 4, [this](const Arguments& call) {
        return store().addStep({"", call.text(0), call.text(1), call.int16(2), call.int16(3)});
    });
    method(4, L"UpdateStep", 5, [this](const Arguments& call) {
        store().updateStep({call.text(0), call.text(1), call.text(2), call.int16(3), call.int16(4)});
        return VariantArg();
    });
    method(5, L"DeleteStep", 1, [this](const Arguments& call) { return store().deleteStep(call.text(0)); });
    method(6, L"NextPriority", 1,
           [this](const Arguments& call) { return store().nextPriority(call.text(0)); });
}

void ProcessStepStoreObject::addValues() {
    method(7, L"Values", 1, [this](const Arguments& call) {
        return makeObject<RecordSetObject>(store().values(call.text(0)));
    });
    method(8, L"AddValue", 3, [this](const Arguments& call) {
        store().addValue({call.text(0), call.int32(1), call.text(2)});
        return VariantArg();
    });
    method(9, L"UpdateValue", 3, [this](const Arguments& call) {
        store().updateValue({call.text(0), call.int32(1), call.text(2)});
        return VariantArg();
    });
    method(11, L"SetValue", 3, [this](const Arguments& call) {
        store().setValue({call.text(0), call.int32(1), call.text(2)});
        return VariantArg();
    });
    method(12, L"DeleteValue", 2, [this](const Arguments& call) {
        store().deleteValue(call.text(0), call.int32(1));
        return VariantArg();
    });
    method(13, L"TechnologySources", 1, [this](const Arguments& call) { return technologySources(call); });
    method(10, L"CuttingCycles", 1, [this](const Arguments& call) { return cuttingCycles(call); });
}

VariantArg ProcessStepStoreObject::step(const Arguments& call) {
    const auto record = store().step(call.text(0));
    pellmark::PackedTextWriter writer;
    writer.add(record.id);
    writer.add(record.name);
    writer.add(record.processId);
    writer.add(std::to_string(record.priority));
    writer.add(std::to_string(record.cuttingCycleId));
    return packedResult(writer.text());
}

VariantArg ProcessStepStoreObject::technologySources(const Arguments& call) {
    pellmark::PackedTextWriter writer;
    for (const auto source : store().technologySources(pellmark::unpackTexts(call.packedText(0))))
        writer.add(std::to_string(static_cast<int>(source)));
    return packedResult(writer.text());
}

VariantArg ProcessStepStoreObject::cuttingCycles(const Arguments& call) {
    std::vector<int> types;
    for (const auto& type : call.texts(0))
        types.push_back(numberFrom(type));
    return makeObject<RecordSetObject>(store().cuttingCycles(types));
}

}  // namespace norvex
