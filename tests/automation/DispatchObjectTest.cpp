#include "automation/DispatchObject.h"

#include <gtest/gtest.h>

#include "com/adapters/ExpectError.h"
#include "com/adapters/ScriptedObject.h"

namespace pellmark {
namespace {

using test::expectError;
using test::objectValue;
using test::ScriptedObject;

class DispatchObjectTest : public testing::Test {
  protected:
    DispatchResult answer(const VariantArg& value) {
        script_->on(L"Answer", value);
        return object().call("Answer");
    }
    DispatchObject& object() {
        if (!object_) object_ = std::make_unique<DispatchObject>(test::dispatchOf(script_), "Host");
        return *object_;
    }

    ComPtr<ScriptedObject> script_ = ScriptedObject::make();
    std::unique_ptr<DispatchObject> object_;
};

TEST_F(DispatchObjectTest, ArgumentsArriveInTheirOrder) {
    std::string seen;
    script_->on(L"Join", [&](const ScriptedObject::Values& values) {
        for (const auto& value : values)
            seen += DispatchResult(value, "").text() + ",";
        return VariantArg();
    });
    object().call("Join", {"a", std::int16_t{7}, true, "d"});
    EXPECT_EQ(seen, "a,7,1,d,");
}

TEST_F(DispatchObjectTest, AMemberMayBeAMethodOrAProperty) {
    answer(VariantArg("x"));
    EXPECT_EQ(script_->lastFlags(), DISPATCH_METHOD | DISPATCH_PROPERTYGET);
}

TEST_F(DispatchObjectTest, TheNumberOfAMemberIsAskedForOnce) {
    script_->on(L"Count", VariantArg(3));
    for (int time = 0; time < 5; ++time)
        object().call("Count");
    EXPECT_EQ(script_->nameLookups(), 1);
}

TEST_F(DispatchObjectTest, AMissingMemberIsAskedForOnceToo) {
    EXPECT_FALSE(object().has("Page"));
    EXPECT_FALSE(object().has("Page"));
    EXPECT_EQ(script_->nameLookups(), 1);
}

TEST_F(DispatchObjectTest, AMemberThatABusyHostRefusedIsAskedForAgain) {
    script_->on(L"Count", VariantArg(3));
    script_->refuseTheNextName(RPC_E_CALL_REJECTED);
    EXPECT_FALSE(object().has("Count"));
    EXPECT_EQ(object().call("Count").int16(), 3);
}

TEST_F(DispatchObjectTest, AMissingMemberIsNamedInTheError) {
    expectError(errors::kHostInterface, "Host.CurrentUnit is missing", [&] { object().call("CurrentUnit"); });
}

TEST_F(DispatchObjectTest, AMemberThatVanishedIsNamedInTheError) {
    script_->failing(L"Gone", DISP_E_MEMBERNOTFOUND);
    expectError(errors::kHostInterface, "Host.Gone is missing", [&] { object().call("Gone"); });
}

TEST_F(DispatchObjectTest, AnErrorOfTheHostKeepsItsNumberAndTextAndNamesTheMember) {
    EXCEPINFO details{};
    details.scode = static_cast<SCODE>(0x800A0000U + 26101U);
    details.bstrSource = Bstr("Knowledge").release();
    details.bstrDescription = Bstr(
                                  "The process \xE2\x80\x9C"
                                  "Bore\xE2\x80\x9D is gone.")
                                  .release();
    script_->failing(L"Process", DISP_E_EXCEPTION, details);
    try {
        object().call("Process");
        FAIL() << "no error was thrown";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), errors::kNotFound);
        EXPECT_EQ(error.source(), "Host.Process (Knowledge)");
        EXPECT_EQ(error.description(),
                  "The process \xE2\x80\x9C"
                  "Bore\xE2\x80\x9D is gone.");
    }
}

TEST_F(DispatchObjectTest, AnErrorWithAClassicCodeAloneKeepsIt) {
    EXCEPINFO details{};
    details.wCode = 70;
    script_->failing(L"Process", DISP_E_EXCEPTION, details);
    expectError(errors::kPermissionDenied, "Host.Process", [&] { object().call("Process"); });
}

TEST_F(DispatchObjectTest, ALateDescriptionIsFilledIn) {
    EXCEPINFO details{};
    details.pfnDeferredFillIn = [](EXCEPINFO* late) -> HRESULT {
        late->scode = static_cast<SCODE>(0x800A0000U + 26104U);
        late->bstrDescription = Bstr("locked").release();
        return S_OK;
    };
    script_->failing(L"Connect", DISP_E_EXCEPTION, details);
    expectError(errors::kKnowledgeBase, "locked", [&] { object().call("Connect"); });
}

TEST_F(DispatchObjectTest, AFailureWithoutDetailsNamesTheMemberAndTheCode) {
    script_->failing(L"Process", E_OUTOFMEMORY);
    expectError(E_OUTOFMEMORY, "Host.Process failed with error 0x8007000E",
                [&] { object().call("Process"); });
}

TEST_F(DispatchObjectTest, AnExceptionThatSaysNothingNamesTheMemberAndThatItWasOne) {
    script_->failing(L"Process", DISP_E_EXCEPTION);
    expectError(DISP_E_EXCEPTION, "Host.Process failed with error 0x80020009",
                [&] { object().call("Process"); });
}

TEST_F(DispatchObjectTest, AClassicCodeWithoutATextIsNamedAsItIs) {
    EXCEPINFO details{};
    details.wCode = 70;
    script_->failing(L"Process", DISP_E_EXCEPTION, details);
    expectError(errors::kPermissionDenied, "Host.Process failed with error 70.",
                [&] { object().call("Process"); });
}

TEST_F(DispatchObjectTest, AnObjectThatIsGoneLacksNoMemberAndIsAskedAgain) {
    script_->on(L"Count", VariantArg(3));
    script_->goneWith(RPC_E_DISCONNECTED);
    expectError(RPC_E_DISCONNECTED, "Host does not answer any more (error 0x80010108)",
                [&] { object().call("Count"); });
    script_->goneWith(S_OK);
    EXPECT_EQ(object().call("Count").int32(), 3);
}

TEST_F(DispatchObjectTest, AWrongNumberOfArgumentsIsAFaultOfTheInterface) {
    script_->failing(L"Process", DISP_E_BADPARAMCOUNT);
    expectError(errors::kHostInterface, "Host.Process takes another number",
                [&] { object().call("Process"); });
}

TEST_F(DispatchObjectTest, ArgumentsThatAMemberDoesNotTakeAreAFaultOfTheInterface) {
    script_->failing(L"Page", DISP_E_TYPEMISMATCH).failing(L"Values", DISP_E_OVERFLOW);
    script_->failing(L"Process", DISP_E_PARAMNOTOPTIONAL).failing(L"Step", DISP_E_PARAMNOTFOUND);
    for (const char* member : {"Page", "Values"})
        expectError(errors::kHostInterface, "does not take arguments of these types",
                    [&] { object().call(member, {"x"}); });
    for (const char* member : {"Process", "Step"})
        expectError(errors::kHostInterface, "asks for more arguments", [&] { object().call(member); });
}

TEST_F(DispatchObjectTest, AnObjectWithoutAutomationIsNoObjectAndIsSaidToBeThat) {
    ComPtr<ICreateErrorInfo> foreign;
    ASSERT_EQ(CreateErrorInfo(foreign.receive()), S_OK);
    VariantArg value;
    value.get().vt = VT_UNKNOWN;
    value.get().punkVal = foreign.query<IUnknown>().release();
    expectError(errors::kHostInterface, "gave no object for Host, but one without automation.",
                [&] { DispatchObject::from(value.get(), "Host"); });
    VariantArg nothing;
    nothing.get().vt = VT_UNKNOWN;
    expectError(errors::kHostInterface, "gave no object for Host, but Nothing.",
                [&] { DispatchObject::from(nothing.get(), "Host"); });
}

TEST_F(DispatchObjectTest, NothingIsNoObject) {
    expectError(errors::kHostInterface, "gave no object", [] { DispatchObject(nullptr, "Host"); });
    expectError(errors::kHostInterface, "gave no object",
                [&] { answer(VariantArg(ComPtr<IDispatch>())).object(); });
}

TEST_F(DispatchObjectTest, AValueIsNoObject) {
    for (const auto& value : {VariantArg(), VariantArg("text"), VariantArg(7), VariantArg::missing()}) {
        expectError(errors::kHostInterface, "gave no object",
                    [&] { DispatchObject::from(value.get(), "Host"); });
    }
}

TEST_F(DispatchObjectTest, WhatWasAnsweredIsSaidBesideWhatWasMeant) {
    expectError(errors::kHostInterface, "16-bit number, but with the text 'ten'.",
                [&] { answer(VariantArg("ten")).int16(); });
    expectError(errors::kHostInterface, "True or False, but with an object.",
                [] { DispatchResult(objectValue(ScriptedObject::make()), "").boolean(); });
    expectError(errors::kHostInterface, "a number, but with Empty.",
                [] { DispatchResult(VariantArg(), "").int64(); });
    expectError(errors::kHostInterface, "gave no object for Host, but the number 7.",
                [] { DispatchObject::from(VariantArg(7).get(), "Host"); });
}

TEST_F(DispatchObjectTest, AnObjectIsNoValue) {
    const auto result = answer(objectValue(ScriptedObject::make()));
    expectError(errors::kHostInterface, "Host.Answer did not answer with a text", [&] { result.text(); });
    expectError(errors::kHostInterface, "16-bit number", [&] { result.int16(); });
    expectError(errors::kHostInterface, "True or False", [&] { result.boolean(); });
}

TEST_F(DispatchObjectTest, EmptyIsNoNumberAndNoBooleanButAnEmptyText) {
    const auto result = answer(VariantArg());
    EXPECT_EQ(result.text(), "");
    expectError(errors::kHostInterface, "did not answer with", [&] { result.int32(); });
    expectError(errors::kHostInterface, "did not answer with", [&] { result.boolean(); });
}

TEST_F(DispatchObjectTest, NumbersOfEveryKindAreUnderstood) {
    EXPECT_EQ(answer(VariantArg(71.0)).int16(), 71);
    EXPECT_EQ(DispatchResult(VariantArg("71"), "").int16(), 71);
    EXPECT_EQ(DispatchResult(VariantArg(std::int64_t{-2}), "").int64(), -2);
}

TEST_F(DispatchObjectTest, TrueAndFalseHaveTheTextsOfFlags) {
    EXPECT_EQ(DispatchResult(VariantArg(true), "").text(), "1");
    EXPECT_EQ(DispatchResult(VariantArg(false), "").text(), "0");
}

TEST_F(DispatchObjectTest, ANumberTooLargeForItsTypeIsRefused) {
    const auto result = answer(VariantArg(70000));
    expectError(errors::kHostInterface, "16-bit number", [&] { result.int16(); });
}

TEST_F(DispatchObjectTest, FractionsHaveAPointInEveryLocale) {
    EXPECT_EQ(answer(VariantArg(0.5)).text(), "0.5");
}

TEST_F(DispatchObjectTest, AReferenceToAVariantIsFollowed) {
    VariantArg inner("behind");
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &inner.get();
    VariantArg outer;
    outer.get() = reference;
    EXPECT_EQ(DispatchResult(outer, "").text(), "behind");
}

TEST_F(DispatchObjectTest, APropertyIsPutByName) {
    std::string kept;
    script_->on(L"ResourceFile", [&](const ScriptedObject::Values& values) {
        kept = DispatchResult(values.at(0), "").text();
        return VariantArg();
    });
    object().put("ResourceFile", "C:\\x.csv");
    EXPECT_EQ(kept, "C:\\x.csv");
    EXPECT_EQ(script_->lastFlags(), DISPATCH_PROPERTYPUT);
}

}  // namespace
}  // namespace pellmark
