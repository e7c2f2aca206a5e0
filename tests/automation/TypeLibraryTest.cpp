#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

#include "com/EmbeddedTypes.h"

// These tests read the library out of the finished DLL, as a host's compiler or a script's editor would.
namespace pellmark {
namespace {

class TypeLibraryTest : public testing::Test {
  protected:
    const FunctionDescription& function(const wchar_t* name) const {
        const auto found =
            std::find_if(interface_.functions.begin(), interface_.functions.end(),
                         [name](const FunctionDescription& each) { return each.name == name; });
        if (found == interface_.functions.end()) throw std::runtime_error("no such function");
        return *found;
    }
    std::vector<std::wstring> methods() const {
        std::vector<std::wstring> names;
        for (const FunctionDescription& each : interface_.functions) {
            if (each.kind == INVOKE_FUNC) names.push_back(each.name);
        }
        return names;
    }

    EmbeddedTypes types_;
    InterfaceDescription interface_ = types_.describeInterface();
};

using Names = std::vector<std::wstring>;

constexpr const wchar_t* kCaseMethods[] = {L"ShowWindowProcessCaseView", L"OpenProcess", L"EditFeatureCase",
                                           L"OpenFeatureCase", L"EditProcess"};

Names parameterNames(const FunctionDescription& function) {
    Names names;
    std::transform(function.parameters.begin(), function.parameters.end(), std::back_inserter(names),
                   [](const ParameterDescription& each) { return each.name; });
    return names;
}

TEST_F(TypeLibraryTest, TheMethodsStandInTheirOrder) {
    EXPECT_EQ(methods(), (Names{L"ShowWindowProcessesView", L"ShowWindowProcessCaseView", L"OpenProcess",
                                L"EditFeatureCase", L"OpenFeatureCase", L"EditProcess", L"Dispose"}));
}

TEST_F(TypeLibraryTest, TheParametersHaveTheirNamesAndOrder) {
    EXPECT_EQ(parameterNames(function(L"ShowWindowProcessesView")),
              (Names{L"NvxApplication", L"ProcessGuid"}));
    const Names embedded{L"NvxApplication",           L"ValuesGuids",  L"FeatureCaseUnit",
                         L"NvxFeatureType",           L"PartTypeGuid", L"FeatureTypeGuid",
                         L"ProcessMaterialClassGuid", L"ProcessUnit",  L"ProcessGuid",
                         L"ProcessStepGuid"};
    EXPECT_EQ(parameterNames(function(L"ShowWindowProcessCaseView")), embedded);
    Names owned = embedded;
    owned.insert(owned.begin() + 1, L"OwnerForm");
    for (const wchar_t* name : {L"OpenProcess", L"EditFeatureCase", L"OpenFeatureCase", L"EditProcess"}) {
        EXPECT_EQ(parameterNames(function(name)), owned);
    }
    EXPECT_TRUE(function(L"Dispose").parameters.empty());
}

TEST_F(TypeLibraryTest, ObjectsAndArraysArePassedByReferenceAndMustBeGiven) {
    for (const wchar_t* name : kCaseMethods) {
        for (const ParameterDescription& each : function(name).parameters) {
            if (each.name != L"NvxApplication" && each.name != L"OwnerForm" && each.name != L"ValuesGuids")
                continue;
            EXPECT_EQ(each.type, VT_PTR);
            EXPECT_EQ(each.pointee, each.name == L"ValuesGuids" ? VT_SAFEARRAY : VT_DISPATCH);
            EXPECT_EQ(each.flags, PARAMFLAG_FIN | PARAMFLAG_FOUT);
        }
    }
}

TEST_F(TypeLibraryTest, TextsArePassedByReferenceAndAreEmptyByDefault) {
    for (const wchar_t* name : kCaseMethods) {
        int texts = 0;
        for (const ParameterDescription& each : function(name).parameters) {
            if (each.pointee != VT_BSTR) continue;
            ++texts;
            EXPECT_EQ(each.flags, PARAMFLAG_FIN | PARAMFLAG_FOUT | PARAMFLAG_FOPT | PARAMFLAG_FHASDEFAULT);
            EXPECT_EQ(each.byDefault.type(), VT_BSTR);
            EXPECT_EQ(SysStringLen(each.byDefault.get().bstrVal), 0U);
        }
        EXPECT_EQ(texts, 5) << fromWide(name);
    }
    const ParameterDescription& process = function(L"ShowWindowProcessesView").parameters.at(1);
    EXPECT_EQ(process.pointee, VT_BSTR);
    EXPECT_EQ(process.flags, PARAMFLAG_FIN | PARAMFLAG_FOUT | PARAMFLAG_FOPT | PARAMFLAG_FHASDEFAULT);
}

TEST_F(TypeLibraryTest, NumbersArePassedByValueAndAreMinusOneByDefault) {
    for (const wchar_t* name : kCaseMethods) {
        int numbers = 0;
        for (const ParameterDescription& each : function(name).parameters) {
            if (each.type != VT_I2) continue;
            ++numbers;
            EXPECT_EQ(each.flags, PARAMFLAG_FIN | PARAMFLAG_FOPT | PARAMFLAG_FHASDEFAULT);
            EXPECT_EQ(each.byDefault.type(), VT_I2);
            EXPECT_EQ(each.byDefault.get().iVal, -1);
        }
        EXPECT_EQ(numbers, 3) << fromWide(name);
    }
}

TEST_F(TypeLibraryTest, ThePickingMethodsReturnTextAndTheOthersAVariant) {
    for (const FunctionDescription& each : interface_.functions) {
        if (each.kind != INVOKE_FUNC) continue;
        const bool picks = each.name == L"OpenProcess" || each.name == L"OpenFeatureCase";
        EXPECT_EQ(each.result, picks ? VT_BSTR : VT_VARIANT) << fromWide(each.name);
    }
}

TEST_F(TypeLibraryTest, TheDataMembersCanBeReadAndSet) {
    std::vector<std::pair<std::wstring, INVOKEKIND>> kinds;
    for (const FunctionDescription& each : interface_.functions) {
        if (each.kind != INVOKE_FUNC) kinds.emplace_back(each.name, each.kind);
    }
    EXPECT_EQ(kinds, (std::vector<std::pair<std::wstring, INVOKEKIND>>{
                         {L"CurrentView", INVOKE_PROPERTYGET},
                         {L"CurrentView", INVOKE_PROPERTYPUT},
                         {L"NorvexApplication", INVOKE_PROPERTYGET},
                         {L"NorvexApplication", INVOKE_PROPERTYPUTREF}}));
}

TEST_F(TypeLibraryTest, TheViewsHaveTheirValues) {
    const auto views = types_.describeVariables(L"FRView");
    ASSERT_EQ(views.size(), 2U);
    EXPECT_EQ(views[0].name, L"FRProcesses");
    EXPECT_EQ(views[0].value, 0);
    EXPECT_EQ(views[1].name, L"FRProcesscase");
    EXPECT_EQ(views[1].value, 1);
}

TEST_F(TypeLibraryTest, TheRecordHasItsFieldsInOrderWithTheCompilersLayout) {
    const auto fields = types_.describeVariables(L"pNode");
    const std::vector<std::tuple<std::wstring, VARTYPE, std::size_t>> expected{
        {L"id", VT_BSTR, offsetof(::pNode, id)},
        {L"FeatureCaseId", VT_BSTR, offsetof(::pNode, FeatureCaseId)},
        {L"Name", VT_BSTR, offsetof(::pNode, Name)},
        {L"unit", VT_I2, offsetof(::pNode, unit)},
        {L"Rule", VT_BSTR, offsetof(::pNode, Rule)},
        {L"Description", VT_BSTR, offsetof(::pNode, Description)},
        {L"ExactMatch", VT_BOOL, offsetof(::pNode, ExactMatch)}};
    ASSERT_EQ(fields.size(), expected.size());
    for (std::size_t i = 0; i < fields.size(); ++i) {
        EXPECT_EQ(std::make_tuple(fields[i].name, fields[i].type, std::size_t{fields[i].offset}),
                  expected[i]);
    }
}

TEST_F(TypeLibraryTest, ARecordCanBeMadeFilledAndReadThroughItsDescription) {
    ComPtr<IRecordInfo> info;
    ASSERT_EQ(GetRecordInfoFromTypeInfo(types_.type(L"pNode").get(), info.receive()), S_OK);
    ULONG size = 0;
    info->GetSize(&size);
    EXPECT_EQ(size, sizeof(::pNode));
    auto* const record = static_cast<::pNode*>(info->RecordCreate());
    record->unit = 71;
    record->ExactMatch = VARIANT_TRUE;
    record->Name = Bstr("Drill \xC3\x98 8").release();
    ::pNode copy{};
    ASSERT_EQ(info->RecordCopy(record, &copy), S_OK);
    VariantArg field;
    EXPECT_EQ(info->GetField(&copy, L"unit", field.receive()), S_OK);
    EXPECT_EQ(field.get().iVal, 71);
    EXPECT_EQ(info->GetField(&copy, L"Name", field.receive()), S_OK);
    EXPECT_EQ(Bstr::toUtf8(field.get().bstrVal), "Drill \xC3\x98 8");
    EXPECT_EQ(info->GetField(&copy, L"ExactMatch", field.receive()), S_OK);
    EXPECT_EQ(field.get().boolVal, VARIANT_TRUE);
    EXPECT_EQ(info->RecordClear(&copy), S_OK);
    info->RecordDestroy(record);
}

TEST_F(TypeLibraryTest, EveryMemberHasAHelpText) {
    for (const FunctionDescription& each : interface_.functions) {
        EXPECT_NE(each.help, "") << fromWide(each.name);
    }
    for (const wchar_t* type : {L"FRView", L"pNode"}) {
        EXPECT_NE(helpOf(types_.type(type).get()), "");
        for (const VariableDescription& each : types_.describeVariables(type)) {
            EXPECT_NE(each.help, "") << fromWide(each.name);
        }
    }
    EXPECT_NE(helpOf(types_.type(L"_Application").get()), "");
    EXPECT_NE(helpOf(types_.type(L"Application").get()), "");
}

TEST_F(TypeLibraryTest, TheClassIsCreatableWithItsInterfaceAsTheDefault) {
    const ComPtr<ITypeInfo> type = types_.type(L"Application");
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    EXPECT_NE(attributes->wTypeFlags & TYPEFLAG_FCANCREATE, 0);
    EXPECT_EQ(attributes->guid, CLSID_Application);
    EXPECT_EQ(attributes->cImplTypes, 1);
    type->ReleaseTypeAttr(attributes);
    INT flags = 0;
    type->GetImplTypeFlags(0, &flags);
    EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT);
}

}  // namespace
}  // namespace pellmark
