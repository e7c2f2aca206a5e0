#pragma once

#include "win32/WindowsApi.h"

#include <oaidl.h>

#include <optional>
#include <span>
#include <string_view>

/// Names, ids and parameters of the automation object's members, as the type library has them. They stand
/// here as well so that a script's call needs no type library; a test holds the two together.
namespace pellmark {

enum class Member : DISPID {
    CurrentView = 1,
    NorvexApplication = 2,
    ShowWindowProcessesView = 3,
    ShowWindowProcessCaseView = 4,
    OpenProcess = 5,
    EditFeatureCase = 6,
    OpenFeatureCase = 7,
    EditProcess = 8,
    Dispose = 9,
};

enum class Parameter {
    NvxApplication,
    OwnerForm,
    ValuesGuids,
    FeatureCaseUnit,
    NvxFeatureType,
    PartTypeGuid,
    FeatureTypeGuid,
    ProcessMaterialClassGuid,
    ProcessUnit,
    ProcessGuid,
    ProcessStepGuid,
};

/// The parameters of a method, in order; empty for properties and Dispose.
std::span<const Parameter> parametersOf(Member member);

/// How many of a method's parameters must be given; they come first.
std::size_t requiredParametersOf(Member member);

std::wstring_view nameOf(Member member);
std::wstring_view nameOf(Parameter parameter);

/// Names are compared without case.
std::optional<Member> findMember(std::wstring_view name);
std::optional<Member> findMember(DISPID id);
/// The parameter's position in the member's list.
std::optional<DISPID> findParameter(Member member, std::wstring_view name);

}  // namespace pellmark
