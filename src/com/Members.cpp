#include "com/Members.h"

#include <algorithm>
#include <array>

namespace pellmark {

namespace {

using enum Parameter;

constexpr std::array kShowProcesses{NvxApplication, ProcessGuid};
constexpr std::array kOwnedCase{NvxApplication, OwnerForm,    ValuesGuids,     FeatureCaseUnit,
                                NvxFeatureType, PartTypeGuid, FeatureTypeGuid, ProcessMaterialClassGuid,
                                ProcessUnit,    ProcessGuid,  ProcessStepGuid};
constexpr std::array kEmbeddedCase{NvxApplication, ValuesGuids,     FeatureCaseUnit,          NvxFeatureType,
                                   PartTypeGuid,   FeatureTypeGuid, ProcessMaterialClassGuid, ProcessUnit,
                                   ProcessGuid,    ProcessStepGuid};

struct Description {
    Member member;
    std::wstring_view name;
    std::span<const Parameter> parameters;
    std::size_t required;
};

constexpr std::array<Description, 9> kMembers{{
    {Member::CurrentView, L"CurrentView", {}, 0},
    {Member::NorvexApplication, L"NorvexApplication", {}, 0},
    {Member::ShowWindowProcessesView, L"ShowWindowProcessesView", kShowProcesses, 1},
    {Member::ShowWindowProcessCaseView, L"ShowWindowProcessCaseView", kEmbeddedCase, 2},
    {Member::OpenProcess, L"OpenProcess", kOwnedCase, 3},
    {Member::EditFeatureCase, L"EditFeatureCase", kOwnedCase, 3},
    {Member::OpenFeatureCase, L"OpenFeatureCase", kOwnedCase, 3},
    {Member::EditProcess, L"EditProcess", kOwnedCase, 3},
    {Member::Dispose, L"Dispose", {}, 0},
}};

// in the order of the enumeration
constexpr std::array<std::wstring_view, 11> kParameterNames{
    L"NvxApplication", L"OwnerForm",    L"ValuesGuids",     L"FeatureCaseUnit",
    L"NvxFeatureType", L"PartTypeGuid", L"FeatureTypeGuid", L"ProcessMaterialClassGuid",
    L"ProcessUnit",    L"ProcessGuid",  L"ProcessStepGuid"};

const Description& describe(Member member) {
    return kMembers.at(static_cast<std::size_t>(member) - 1);
}

bool sameName(std::wstring_view left, std::wstring_view right) {
    return ::CompareStringOrdinal(left.data(), static_cast<int>(left.size()), right.data(),
                                  static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

}  // namespace

std::span<const Parameter> parametersOf(Member member) {
    return describe(member).parameters;
}
std::size_t requiredParametersOf(Member member) {
    return describe(member).required;
}
std::wstring_view nameOf(Member member) {
    return describe(member).name;
}
std::wstring_view nameOf(Parameter parameter) {
    return kParameterNames.at(static_cast<std::size_t>(parameter));
}

std::optional<Member> findMember(std::wstring_view name) {
    for (const Description& description : kMembers) {
        if (sameName(description.name, name)) return description.member;
    }
    return std::nullopt;
}

std::optional<Member> findMember(DISPID id) {
    if (id < 1 || id > static_cast<DISPID>(kMembers.size())) return std::nullopt;
    return static_cast<Member>(id);
}

std::optional<DISPID> findParameter(Member member, std::wstring_view name) {
    const std::span<const Parameter> parameters = parametersOf(member);
    const auto found = std::find_if(parameters.begin(), parameters.end(),
                                    [name](Parameter each) { return sameName(nameOf(each), name); });
    if (found == parameters.end()) return std::nullopt;
    return static_cast<DISPID>(found - parameters.begin());
}

}  // namespace pellmark
