#include "com/ApplicationObject.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Error.h"
#include "com/ApplicationObjectFixture.h"
#include "com/ErrorText.h"
#include "com/RecordingCalls.h"
#include "com/TestObject.h"

namespace pellmark {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using Texts = std::vector<std::string>;

class ApplicationObjectTest : public ApplicationObjectFixture {};

TEST_F(ApplicationObjectTest, OmittedArgumentsTakeTheirDefaults) {
    ASSERT_EQ(invoke(Member::ShowWindowProcessCaseView, {host(), "value"}), S_OK);
    const CaseDescription& description = onlyCall().description;
    EXPECT_EQ(description.valueIds, (Texts{"value"}));
    EXPECT_EQ(description.unit, -1);
    EXPECT_EQ(description.nvxFeatureType, -1);
    EXPECT_EQ(description.processUnit, -1);
    EXPECT_EQ(description.partTypeId, "");
    EXPECT_EQ(description.processStepGuid, "");
    EXPECT_EQ(result_.type(), VT_EMPTY);
}

TEST_F(ApplicationObjectTest, AnArgumentLeftOutBetweenOthersTakesItsDefault) {
    ASSERT_EQ(invoke(Member::ShowWindowProcessCaseView, {host(), "value", VariantArg::missing(),
                                                         std::int32_t{3}, VariantArg::missing(), "type"}),
              S_OK);
    EXPECT_EQ(onlyCall().description.unit, -1);
    EXPECT_EQ(onlyCall().description.nvxFeatureType, 3);
    EXPECT_EQ(onlyCall().description.partTypeId, "");
    EXPECT_EQ(onlyCall().description.featureTypeId, "type");
}

TEST_F(ApplicationObjectTest, EveryArgumentReachesItsPlace) {
    const ComPtr<TestObject> owner = TestObject::make();
    log_.picked = "{picked}";
    ASSERT_EQ(invoke(Member::OpenProcess,
                     {host(), ComPtr<IDispatch>(owner.get()), "v", std::int16_t{70}, std::int16_t{5}, "part",
                      "feature", "material", std::int16_t{71}, "process", "step"}),
              S_OK);
    const RecordedCall& call = onlyCall();
    EXPECT_EQ(call.method, "OpenProcess");
    EXPECT_EQ(call.host, host_.get());
    EXPECT_EQ(call.owner, owner.get());
    EXPECT_EQ(call.description.unit, 70);
    EXPECT_EQ(call.description.nvxFeatureType, 5);
    EXPECT_EQ(call.description.partTypeId, "part");
    EXPECT_EQ(call.description.featureTypeId, "feature");
    EXPECT_EQ(call.description.materialClassId, "material");
    EXPECT_EQ(call.description.processUnit, 71);
    EXPECT_EQ(call.description.processGuid, "process");
    EXPECT_EQ(call.description.processStepGuid, "step");
    EXPECT_EQ(Bstr::toUtf8(result_.get().bstrVal), "{picked}");
}

TEST_F(ApplicationObjectTest, EachMethodCallsItsOwn) {
    for (const Member member :
         {Member::OpenProcess, Member::EditFeatureCase, Member::OpenFeatureCase, Member::EditProcess}) {
        log_.calls.clear();
        ASSERT_EQ(invoke(member, {host(), nothing(), "v"}), S_OK);
        EXPECT_EQ(onlyCall().method, fromWide(nameOf(member)));
        EXPECT_EQ(onlyCall().owner, nullptr);
        const bool picks = member == Member::OpenProcess || member == Member::OpenFeatureCase;
        EXPECT_EQ(result_.type(), picks ? VT_BSTR : VT_EMPTY);
    }
}

TEST_F(ApplicationObjectTest, ArgumentsCanBeNamed) {
    const DISPID processGuid = 1;
    ASSERT_EQ(invoke(Member::ShowWindowProcessesView, {host(), "process"}, DISPATCH_METHOD, {processGuid}),
              S_OK);
    EXPECT_EQ(onlyCall().description.processGuid, "process");
    EXPECT_EQ(onlyCall().host, host_.get());
    log_.calls.clear();
    ASSERT_EQ(invoke(Member::ShowWindowProcessesView, {"second", host()}, DISPATCH_METHOD, {0, 1}), S_OK);
    EXPECT_EQ(onlyCall().description.processGuid, "second") << "every argument, in any order";
    EXPECT_EQ(onlyCall().host, host_.get());
}

TEST_F(ApplicationObjectTest, AnUnknownNameOrOneGivenTwiceIsRefused) {
    EXPECT_EQ(invoke(Member::ShowWindowProcessesView, {host(), "p"}, DISPATCH_METHOD, {7}),
              DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(badArgument_, 0U);
    EXPECT_EQ(invoke(Member::ShowWindowProcessesView, {host(), "p"}, DISPATCH_METHOD, {0}),
              DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(takeErrorText(), "NvxApplication of ShowWindowProcessesView is given twice");
    EXPECT_TRUE(log_.calls.empty());
}

TEST_F(ApplicationObjectTest, NamesOfMembersAndParametersAreFound) {
    wchar_t member[] = L"openPROCESS";
    wchar_t parameter[] = L"valuesguids";
    LPOLESTR names[] = {member, parameter};
    DISPID ids[2] = {};
    ASSERT_EQ(object_->GetIDsOfNames(IID_NULL, names, 2, LOCALE_USER_DEFAULT, ids), S_OK);
    EXPECT_EQ(ids[0], static_cast<DISPID>(Member::OpenProcess));
    EXPECT_EQ(ids[1], 2);
    wchar_t wrong[] = L"NoSuchThing";
    names[1] = wrong;
    EXPECT_EQ(object_->GetIDsOfNames(IID_NULL, names, 2, LOCALE_USER_DEFAULT, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[0], static_cast<DISPID>(Member::OpenProcess));
    EXPECT_EQ(ids[1], DISPID_UNKNOWN);
}

TEST_F(ApplicationObjectTest, AQuestionForNamesThatCannotBeAnsweredIsRefused) {
    wchar_t member[] = L"OpenProcess";
    LPOLESTR names[] = {member};
    DISPID id = 0;
    EXPECT_EQ(object_->GetIDsOfNames(IID_NULL, nullptr, 1, 0, &id), E_INVALIDARG);
    EXPECT_EQ(object_->GetIDsOfNames(IID_NULL, names, 1, 0, nullptr), E_INVALIDARG);
    EXPECT_EQ(object_->GetIDsOfNames(IID_NULL, names, 0, 0, &id), E_INVALIDARG);
    EXPECT_EQ(object_->GetIDsOfNames(IID_IDispatch, names, 1, 0, &id), DISP_E_UNKNOWNINTERFACE);
}

TEST_F(ApplicationObjectTest, WithoutAHostTheCallIsPassedOnAndNothingElseIsLookedAt) {
    VariantArg null;
    null.get().vt = VT_NULL;
    for (const VariantArg& absent : {nothing(), VariantArg(), null}) {
        log_.calls.clear();
        EXPECT_EQ(invoke(Member::OpenProcess, {absent, std::int32_t{1}, std::int32_t{2}}), S_OK);
        EXPECT_EQ(onlyCall().host, nullptr);
        EXPECT_EQ(result_.type(), VT_BSTR);
        EXPECT_EQ(Bstr::toUtf8(result_.get().bstrVal), "");
    }
}

TEST_F(ApplicationObjectTest, AValueInTheHostsPlaceIsRefusedWithItsText) {
    EXPECT_EQ(invoke(Member::ShowWindowProcessesView, {std::int32_t{5}, "p"}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(badArgument_, 1U);
    EXPECT_EQ(takeErrorText(),
              "NvxApplication of ShowWindowProcessesView must be an object; given was the number 5");
    EXPECT_TRUE(log_.calls.empty());
}

TEST_F(ApplicationObjectTest, AnArgumentThatDoesNotFitIsRefusedWithItsPlaceAndItsName) {
    EXPECT_EQ(invoke(Member::ShowWindowProcessCaseView, {host(), "v", std::int32_t{40000}}), DISP_E_OVERFLOW);
    EXPECT_EQ(badArgument_, 0U);
    EXPECT_EQ(takeErrorText(),
              "FeatureCaseUnit of ShowWindowProcessCaseView must be a number from -32768 to 32767; given was "
              "the number 40000");
    EXPECT_EQ(invoke(Member::OpenProcess, {host(), "owner", "v"}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(badArgument_, 1U);
    EXPECT_EQ(takeErrorText(), "OwnerForm of OpenProcess must be an object; given was the text 'owner'");
}

TEST_F(ApplicationObjectTest, AReferenceThatLeadsNowhereIsRefusedWithItsPlaceAndItsName) {
    VariantArg nowhere;
    nowhere.get().vt = VT_BYREF | VT_VARIANT;
    EXPECT_EQ(invoke(Member::ShowWindowProcessesView, {host(), nowhere}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(badArgument_, 0U);
    EXPECT_EQ(takeErrorText(),
              "ProcessGuid of ShowWindowProcessesView must be a value; given was a reference that leads "
              "nowhere");
    EXPECT_EQ(invoke(Member::ShowWindowProcessesView, {nowhere}), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(takeErrorText(),
              "NvxApplication of ShowWindowProcessesView must be a value; given was a reference that leads "
              "nowhere");
}

TEST_F(ApplicationObjectTest, EveryParameterOfEveryMethodNamesItselfItsMethodWhatItWantsAndWhatWasGiven) {
    for (const Member member :
         {Member::ShowWindowProcessesView, Member::ShowWindowProcessCaseView, Member::OpenProcess,
          Member::OpenFeatureCase, Member::EditFeatureCase, Member::EditProcess}) {
        const auto parameters = parametersOf(member);
        for (std::size_t at = 0; at < parameters.size(); ++at) {
            const std::string name = fromWide(nameOf(parameters[at]));
            const bool isObject = name == "NvxApplication" || name == "OwnerForm";
            std::vector<VariantArg> arguments;
            for (std::size_t i = 0; i < parameters.size(); ++i) {
                const std::string each = fromWide(nameOf(parameters[i]));
                const bool isText = each.ends_with("Guid") || each == "ValuesGuids";
                arguments.push_back(i == 0 ? host() : isText ? VariantArg("x") : VariantArg(std::int32_t{1}));
                if (each == "OwnerForm") arguments.back() = nothing();
            }
            arguments[at] = isObject ? VariantArg("x") : host();
            if (name == "ValuesGuids") arguments[at] = VariantArg(true);
            SCOPED_TRACE(name);
            EXPECT_TRUE(FAILED(invoke(member, arguments)));
            const std::string text = takeErrorText();
            const std::string beginning = name + " of " + fromWide(nameOf(member)) + " must be ";
            EXPECT_EQ(text.substr(0, beginning.size()), beginning);
            const char* const given = isObject                ? "; given was the text 'x'"
                                      : name == "ValuesGuids" ? "; given was True"
                                                              : "; given was an object";
            EXPECT_TRUE(text.ends_with(given)) << text;
            EXPECT_EQ(badArgument_, parameters.size() - 1 - at);
        }
    }
    EXPECT_TRUE(log_.calls.empty());
}

TEST_F(ApplicationObjectTest, AWrongNumberOfArgumentsIsRefused) {
    EXPECT_EQ(invoke(Member::ShowWindowProcessesView, {}), DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(takeErrorText(), "NvxApplication of ShowWindowProcessesView must be given");
    EXPECT_EQ(invoke(Member::ShowWindowProcessCaseView, {host()}), DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(takeErrorText(), "ValuesGuids of ShowWindowProcessCaseView must be given");
    EXPECT_EQ(invoke(Member::ShowWindowProcessesView, {host(), "p", "q"}), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(takeErrorText(), "ShowWindowProcessesView takes at most 2 arguments, not 3");
    EXPECT_EQ(invoke(Member::Dispose, {host()}), DISP_E_BADPARAMCOUNT);
    EXPECT_TRUE(log_.calls.empty());
}

TEST_F(ApplicationObjectTest, AMemberThatIsNotThereIsRefused) {
    EXPECT_EQ(invoke(static_cast<Member>(10), {}), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(Member::OpenProcess, {host()}, DISPATCH_PROPERTYPUT), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(Member::CurrentView, {}, DISPATCH_METHOD), DISP_E_MEMBERNOTFOUND);
}

TEST_F(ApplicationObjectTest, AFailureOfTheComponentReachesALateBoundCallerWithNumberSourceAndText) {
    log_.duringCall = [] {
        throw Error(errors::kHostInterface, "NvxApplication", "The object has no main window");
    };
    EXPECT_EQ(invoke(Member::ShowWindowProcessesView, {host()}), DISP_E_EXCEPTION);
    EXPECT_EQ(static_cast<unsigned long>(exception_.scode), 0x800A0000UL + errors::kHostInterface);
    EXPECT_EQ(exceptionText_, "The object has no main window");
    EXPECT_EQ(exceptionSource_, "NvxApplication");
}

TEST_F(ApplicationObjectTest, AnUnexpectedFailureReachesALateBoundCallerWithItsText) {
    log_.duringCall = [] { throw std::runtime_error("unforeseen"); };
    EXPECT_EQ(invoke(Member::ShowWindowProcessesView, {host()}), DISP_E_EXCEPTION);
    EXPECT_EQ(exception_.scode, E_FAIL);
    EXPECT_EQ(exceptionText_, "unforeseen");
    EXPECT_EQ(exceptionSource_, "Pellmark.Application");
    log_.duringCall = [] { throw std::bad_alloc(); };
    EXPECT_EQ(invoke(Member::ShowWindowProcessesView, {host()}), E_OUTOFMEMORY);
}

TEST_F(ApplicationObjectTest, AFailureWithoutAPlaceForItsTextIsNoCrash) {
    log_.duringCall = [] { throw std::runtime_error("unforeseen"); };
    VARIANT argument = host().release();
    DISPPARAMS parameters{&argument, nullptr, 1, 0};
    EXPECT_EQ(object_->Invoke(static_cast<DISPID>(Member::ShowWindowProcessesView), IID_NULL, 0,
                              DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr),
              DISP_E_EXCEPTION);
    VariantClear(&argument);
    EXPECT_EQ(object_->Invoke(1, IID_NULL, 0, DISPATCH_PROPERTYGET, nullptr, nullptr, nullptr, nullptr),
              E_INVALIDARG);
    EXPECT_EQ(
        object_->Invoke(1, IID_IDispatch, 0, DISPATCH_PROPERTYGET, &parameters, nullptr, nullptr, nullptr),
        DISP_E_UNKNOWNINTERFACE);
}

TEST_F(ApplicationObjectTest, TheCurrentViewIsKeptForTheHost) {
    ASSERT_EQ(invoke(Member::CurrentView, {std::int32_t{1}}, DISPATCH_PROPERTYPUT, {DISPID_PROPERTYPUT}),
              S_OK);
    ASSERT_EQ(invoke(Member::CurrentView, {}, DISPATCH_PROPERTYGET | DISPATCH_METHOD), S_OK);
    EXPECT_EQ(result_.type(), VT_I4);
    EXPECT_EQ(result_.get().lVal, 1);
    ::FRView view = FRProcesses;
    EXPECT_EQ(object_->get_CurrentView(&view), S_OK);
    EXPECT_EQ(view, FRProcesscase);
    EXPECT_EQ(invoke(Member::CurrentView, {"cases"}, DISPATCH_PROPERTYPUT, {DISPID_PROPERTYPUT}),
              DISP_E_TYPEMISMATCH);
    EXPECT_EQ(takeErrorText(), "CurrentView must be a 32-bit number; given was the text 'cases'");
}

TEST_F(ApplicationObjectTest, APropertyIsReadWithoutArgumentsAndSetToOneValue) {
    EXPECT_EQ(invoke(Member::CurrentView, {std::int32_t{1}}, DISPATCH_PROPERTYGET), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(takeErrorText(), "CurrentView takes no arguments");
    EXPECT_EQ(invoke(Member::CurrentView, {}, DISPATCH_PROPERTYPUT), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(takeErrorText(), "CurrentView takes one value");
    EXPECT_EQ(log_.view, FRView::FRProcesses);
}

TEST_F(ApplicationObjectTest, TheHostCanBeSetByReference) {
    ASSERT_EQ(invoke(Member::NorvexApplication, {host()}, DISPATCH_PROPERTYPUTREF, {DISPID_PROPERTYPUT}),
              S_OK);
    ComPtr<IDispatch> kept;
    ASSERT_EQ(object_->get_NorvexApplication(kept.receive()), S_OK);
    EXPECT_EQ(kept.get(), host_.get());
    ASSERT_EQ(object_->putref_NorvexApplication(nullptr), S_OK);
    ASSERT_EQ(object_->get_NorvexApplication(kept.receive()), S_OK);
    EXPECT_FALSE(kept);
}

TEST_F(ApplicationObjectTest, AnEarlyBoundCallReachesTheComponent) {
    IDispatch* host = host_.get();
    const ComPtr<TestObject> owner = TestObject::make();
    IDispatch* ownerForm = owner.get();
    SAFEARRAY* values = SafeArrayCreateVector(VT_BSTR, 0, 1);
    LONG index = 0;
    SafeArrayPutElement(values, &index, Bstr("value").get());
    BSTR part = SysAllocString(L"part");
    BSTR result = nullptr;
    log_.picked = "{case}";
    ASSERT_EQ(object_->OpenFeatureCase(&host, &ownerForm, &values, 70, 2, &part, nullptr, nullptr, -1,
                                       nullptr, nullptr, &result),
              S_OK);
    EXPECT_EQ(onlyCall().method, "OpenFeatureCase");
    EXPECT_EQ(onlyCall().owner, owner.get());
    EXPECT_EQ(onlyCall().description.valueIds, (Texts{"value"}));
    EXPECT_EQ(onlyCall().description.unit, 70);
    EXPECT_EQ(onlyCall().description.partTypeId, "part");
    EXPECT_EQ(Bstr::adopt(result).utf8(), "{case}");
    SysFreeString(part);
    SafeArrayDestroy(values);
}

TEST_F(ApplicationObjectTest, AnEarlyBoundCallWithoutHostOrWithoutAPlaceForTheResultIsNoCrash) {
    VARIANT result;
    EXPECT_EQ(object_->ShowWindowProcessesView(nullptr, nullptr, &result), S_OK);
    EXPECT_EQ(result.vt, VT_EMPTY);
    IDispatch* host = host_.get();
    EXPECT_EQ(object_->ShowWindowProcessesView(&host, nullptr, nullptr), E_POINTER);
    EXPECT_THAT(takeErrorText(), testing::MatchesRegex("The place for the result of .* is missing"));
    EXPECT_EQ(object_->get_CurrentView(nullptr), E_POINTER);
}

TEST_F(ApplicationObjectTest, ACallThatIsRefusedIsTracedForThoseWhoDoNotLookAtErrors) {
    invoke(Member::OpenProcess, {host(), nothing(), VariantArg(), VariantArg("inch")});
    EXPECT_THAT(log_.trace.lines(),
                ElementsAre(HasSubstr("OpenProcess: answered with error 0x80020005: "
                                      "FeatureCaseUnit of OpenProcess must be a number")));
    log_.trace.clear();
    invoke(Member::CurrentView, {VariantArg("x")}, DISPATCH_PROPERTYPUT);
    EXPECT_THAT(log_.trace.lines(), ElementsAre(HasSubstr("CurrentView: answered with error 0x80020005: ")));
    log_.trace.clear();
    invoke(static_cast<Member>(77), {});
    EXPECT_THAT(log_.trace.lines(),
                ElementsAre("Invoke: answered with error 0x80020003: There is no member 77"));
}

TEST_F(ApplicationObjectTest, AnEarlyBoundCallThatFailsIsTraced) {
    log_.duringCall = [] { throw Error(26105, "NvxApplication", "no window"); };
    IDispatch* host = host_.get();
    VARIANT result;
    EXPECT_TRUE(FAILED(object_->ShowWindowProcessesView(&host, nullptr, &result)));
    EXPECT_THAT(log_.trace.lines(), ElementsAre("ShowWindowProcessesView: called",
                                                "ShowWindowProcessesView: answered with error 0x800A65F9: "
                                                "no window"));
}

TEST_F(ApplicationObjectTest, AnEarlyBoundFailureLeavesItsText) {
    log_.duringCall = [] { throw Error(26001, "Norvex.cRegistry", "no such key"); };
    IDispatch* host = host_.get();
    VARIANT result;
    EXPECT_EQ(static_cast<unsigned long>(object_->ShowWindowProcessesView(&host, nullptr, &result)),
              0x800A0000UL + 26001);
    EXPECT_EQ(takeErrorText(), "no such key");
    const ComPtr<ISupportErrorInfo> support = object_.query<ISupportErrorInfo>();
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID__Application), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IUnknown), S_FALSE);
}

TEST_F(ApplicationObjectTest, TheInterfacesOfTheObjectAreOneIdentity) {
    const ComPtr<IUnknown> unknown = object_.query<IUnknown>();
    for (const IID& iid : {IID_IDispatch, IID__Application, IID_ISupportErrorInfo, IID_IProvideClassInfo}) {
        ComPtr<IUnknown> other;
        ASSERT_EQ(object_->QueryInterface(iid, other.receiveVoid()), S_OK);
        ComPtr<IUnknown> back;
        ASSERT_EQ(other->QueryInterface(IID_IUnknown, back.receiveVoid()), S_OK);
        EXPECT_EQ(back.get(), unknown.get());
    }
    ComPtr<IUnknown> other;
    EXPECT_EQ(object_->QueryInterface(IID_IPersist, other.receiveVoid()), E_NOINTERFACE);
    EXPECT_FALSE(other);
    EXPECT_EQ(object_->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

}  // namespace
}  // namespace pellmark
