#include "refhost/automation/TechnologyObject.h"

#include "automation/Coercion.h"
#include "automation/Guard.h"
#include "knowledge/PackedText.h"
#include "refhost/automation/Identifiers.h"
#include "refhost/automation/RecordSetObject.h"

namespace norvex {

using pellmark::CallError;
using pellmark::Variant;
using pellmark::VariantArg;

namespace {

/// How a value is called in a record, which holds texts alone.
const char* typeOf(const Variant& value) {
    if (std::holds_alternative<double>(value)) return "1";
    return std::holds_alternative<std::string>(value) ? "2" : "0";
}

Variant valueFrom(const VARIANT& argument) {
    const VARIANT& value = pellmark::innermost(argument);
    if (value.vt == VT_EMPTY || value.vt == VT_NULL) return {};
    if (value.vt == VT_BSTR) return pellmark::toText(value);
    VariantArg number;
    if (value.vt == VT_BOOL || value.vt == VT_DATE ||
        FAILED(VariantChangeTypeEx(number.receive(), const_cast<VARIANT*>(&value), LOCALE_INVARIANT, 0,
                                   VT_R8))) {
        throw CallError(DISP_E_TYPEMISMATCH, "A value is a number, a text or nothing");
    }
    return number.get().dblVal;
}

}  // namespace

TechnologyObject::TechnologyObject(Operation operation, char materialClass)
    : AutomationObject("Norvex.Technology", kTechnology),
      operation_(std::move(operation)),
      materialClass_(materialClass) {
    property(1, L"CuttingCycleId", [this](const Arguments&) { return operation_.cuttingCycleId(); });
    property(
        2, L"OperationName", [this](const Arguments&) { return operation_.name(); },
        [this](const Arguments& call) { operation_.setName(call.text(0)); });
    property(3, L"Parameters", [this](const Arguments&) { return parameters(); });
    method(4, L"SetValue", 2, [this](const Arguments& call) {
        setValue(call);
        return VariantArg();
    });
}

TechnologyObject& TechnologyObject::from(const VARIANT& argument) {
    const VARIANT& value = pellmark::innermost(argument);
    const bool isObject = (value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN) && value.punkVal != nullptr;
    pellmark::ComPtr<IDispatch> own;
    if (!isObject || FAILED(value.punkVal->QueryInterface(kTechnology, own.receiveVoid())))
        throw CallError(DISP_E_TYPEMISMATCH, "This is no technology that the service has made");
    return *static_cast<TechnologyObject*>(own.get());
}

VariantArg TechnologyObject::parameters() const {
    pellmark::PackedTextWriter writer;
    for (const Parameter& parameter : operation_.parameters()) {
        writer.add(std::to_string(parameter.code()));
        writer.add(std::to_string(parameter.definition->kind));
        writer.add(std::to_string(parameter.state()));
        writer.add(typeOf(parameter.value));
        writer.add(operation_.text(parameter.code()));
    }
    return packedResult(writer.text());
}

void TechnologyObject::setValue(const Arguments& call) {
    operation_.set(call.int32(0), valueFrom(call.value(1)), Origin::Given);
}

}  // namespace norvex
