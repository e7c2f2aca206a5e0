#include "com/MethodCall.h"

#include <optional>
#include <vector>

#include "automation/Coercion.h"
#include "automation/Guard.h"

namespace pellmark {

namespace {

/// "ProcessGuid of OpenProcess"
std::string nameInCall(Member member, Parameter parameter) {
    return fromWide(nameOf(parameter)) + " of " + fromWide(nameOf(member));
}

/// For each parameter the index of its argument in the call's list.
std::vector<std::optional<UINT>> matchArguments(Member member, const DISPPARAMS& arguments) {
    const std::span<const Parameter> parameters = parametersOf(member);
    const std::string method = fromWide(nameOf(member));
    if (arguments.cArgs > parameters.size() || arguments.cNamedArgs > arguments.cArgs) {
        throw CallError(DISP_E_BADPARAMCOUNT, method + " takes at most " + std::to_string(parameters.size()) +
                                                  " arguments, not " + std::to_string(arguments.cArgs));
    }
    std::vector<std::optional<UINT>> places(parameters.size());
    // the list is in reverse order, the named arguments first
    const UINT positional = arguments.cArgs - arguments.cNamedArgs;
    for (UINT i = 0; i < positional; ++i) {
        places[i] = arguments.cArgs - 1 - i;
    }
    for (UINT i = 0; i < arguments.cNamedArgs; ++i) {
        const DISPID name = arguments.rgdispidNamedArgs[i];
        if (name < 0 || name >= static_cast<DISPID>(parameters.size())) {
            throw CallError(DISP_E_PARAMNOTFOUND, method + " has no parameter of that name", i);
        }
        if (places[static_cast<std::size_t>(name)]) {
            throw CallError(
                DISP_E_BADPARAMCOUNT,
                nameInCall(member, parameters[static_cast<std::size_t>(name)]) + " is given twice", i);
        }
        places[static_cast<std::size_t>(name)] = i;
    }
    return places;
}

void assign(MethodCall& call, Parameter parameter, const VARIANT& value) {
    CaseDescription& description = call.description;
    switch (parameter) {
        case Parameter::NvxApplication:
            call.host = toObject(value);
            break;
        case Parameter::OwnerForm:
            call.owner = toObject(value);
            break;
        case Parameter::ValuesGuids:
            description.valueIds = toTexts(value);
            break;
        case Parameter::FeatureCaseUnit:
            description.unit = toInt16(value);
            break;
        case Parameter::NvxFeatureType:
            description.nvxFeatureType = toInt16(value);
            break;
        case Parameter::PartTypeGuid:
            description.partTypeId = toText(value);
            break;
        case Parameter::FeatureTypeGuid:
            description.featureTypeId = toText(value);
            break;
        case Parameter::ProcessMaterialClassGuid:
            description.materialClassId = toText(value);
            break;
        case Parameter::ProcessUnit:
            description.processUnit = toInt16(value);
            break;
        case Parameter::ProcessGuid:
            description.processGuid = toText(value);
            break;
        case Parameter::ProcessStepGuid:
            description.processStepGuid = toText(value);
            break;
    }
}

}  // namespace

MethodCall readCall(Member member, const DISPPARAMS& arguments) {
    MethodCall call;
    const std::span<const Parameter> parameters = parametersOf(member);
    const std::vector<std::optional<UINT>> places = matchArguments(member, arguments);
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        bool isGiven = places[i].has_value();
        try {
            isGiven = isGiven && !isMissing(arguments.rgvarg[*places[i]]);
            if (isGiven) {
                assign(call, parameters[i], arguments.rgvarg[*places[i]]);
            } else if (i < requiredParametersOf(member)) {
                throw CallError(DISP_E_PARAMNOTOPTIONAL, "must be given");
            }
        } catch (const CallError& error) {
            std::string text = nameInCall(member, parameters[i]) + " " + error.what();
            if (isGiven) text += "; given was " + describe(arguments.rgvarg[*places[i]]);
            throw CallError(error.code(), text, places[i]);
        }
        // without a host nothing will be done, so nothing else is looked at
        if (i == 0 && !call.host) break;
    }
    return call;
}

}  // namespace pellmark
