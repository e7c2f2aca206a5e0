#include "automation/Coercion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "automation/Guard.h"
#include "com/TestObject.h"
#include "com/adapters/ScriptedObject.h"

namespace pellmark {
namespace {

/// The code of the CallError that a body throws; S_OK when it throws none.
template <class Body>
HRESULT codeOf(Body&& body) {
    try {
        body();
        return S_OK;
    } catch (const CallError& error) {
        return error.code();
    }
}

/// The text of the CallError that a body throws; "" when it throws none.
template <class Body>
std::string refusalOf(Body&& body) {
    try {
        body();
        return "";
    } catch (const CallError& error) {
        return error.what();
    }
}

VARIANT referenceTo(VARIANT& value) {
    VARIANT reference;
    VariantInit(&reference);
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &value;
    return reference;
}

/// An object that has no automation.
VariantArg foreignObject() {
    ComPtr<ICreateErrorInfo> object;
    CreateErrorInfo(object.receive());
    VariantArg holder;
    holder.get().vt = VT_UNKNOWN;
    holder.get().punkVal = object.query<IUnknown>().release();
    return holder;
}

VariantArg arrayOfTexts(std::initializer_list<const char*> texts, LONG first = 0) {
    VariantArg holder;
    SAFEARRAYBOUND bound{static_cast<ULONG>(texts.size()), first};
    holder.get().vt = VT_ARRAY | VT_BSTR;
    holder.get().parray = SafeArrayCreate(VT_BSTR, 1, &bound);
    LONG index = first;
    for (const char* text : texts) {
        SafeArrayPutElement(holder.get().parray, &index, Bstr(text).get());
        ++index;
    }
    return holder;
}

using test::scriptArray;
using Texts = std::vector<std::string>;

TEST(CoercionTest, ANumberOfAnyTypeIsTaken) {
    EXPECT_EQ(toInt16(VariantArg(std::int16_t{70}).get()), 70);
    EXPECT_EQ(toInt16(VariantArg(std::int32_t{-1}).get()), -1);
    EXPECT_EQ(toInt16(VariantArg(std::int64_t{71}).get()), 71);
    EXPECT_EQ(toInt16(VariantArg(70.0).get()), 70);
    EXPECT_EQ(toInt16(VariantArg("70").get()), 70);
    EXPECT_EQ(toInt16(VariantArg(true).get()), -1);
}

TEST(CoercionTest, ANumberBehindAVariableIsTaken) {
    VariantArg variable(std::int32_t{71});
    VARIANT reference = referenceTo(variable.get());
    EXPECT_EQ(toInt16(reference), 71);
    EXPECT_EQ(toInt16(referenceTo(reference)), 71);
}

TEST(CoercionTest, TheLimitsOfANumberAreKept) {
    EXPECT_EQ(toInt16(VariantArg(std::int32_t{32767}).get()), 32767);
    EXPECT_EQ(toInt16(VariantArg(std::int32_t{-32768}).get()), -32768);
    EXPECT_EQ(codeOf([] { toInt16(VariantArg(std::int32_t{32768}).get()); }), DISP_E_OVERFLOW);
    EXPECT_EQ(codeOf([] { toInt16(VariantArg(-32769.0).get()); }), DISP_E_OVERFLOW);
    EXPECT_EQ(codeOf([] { toInt16(VariantArg(1e300).get()); }), DISP_E_OVERFLOW);
    EXPECT_EQ(codeOf([] { toInt16(VariantArg(std::numeric_limits<double>::quiet_NaN()).get()); }),
              DISP_E_OVERFLOW);
    VariantArg single;
    single.get().vt = VT_R4;
    single.get().fltVal = std::numeric_limits<float>::infinity();
    EXPECT_EQ(codeOf([&] { toInt32(single.get()); }), DISP_E_OVERFLOW);
    EXPECT_EQ(toInt32(VariantArg(2147483647.0).get()), 2147483647);
    EXPECT_EQ(codeOf([] { toInt32(VariantArg(2147483648.0).get()); }), DISP_E_OVERFLOW);
}

TEST(CoercionTest, WhatIsNoNumberIsAMismatch) {
    EXPECT_EQ(codeOf([] { toInt16(VariantArg("inch").get()); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(codeOf([] { toInt16(VariantArg(ComPtr<IDispatch>()).get()); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(codeOf([] { toInt16(arrayOfTexts({"1"}).get()); }), DISP_E_TYPEMISMATCH);
}

TEST(CoercionTest, AReferenceToNowhereIsAMismatch) {
    VARIANT reference;
    VariantInit(&reference);
    for (const VARTYPE type : {VT_VARIANT, VT_I2, VT_BSTR, VT_DISPATCH}) {
        reference.vt = static_cast<VARTYPE>(VT_BYREF | type);
        reference.byref = nullptr;
        EXPECT_EQ(codeOf([&] { toInt16(reference); }), DISP_E_TYPEMISMATCH);
        EXPECT_EQ(codeOf([&] { toObject(reference); }), DISP_E_TYPEMISMATCH);
        EXPECT_EQ(codeOf([&] { toTexts(reference); }), DISP_E_TYPEMISMATCH);
    }
}

TEST(CoercionTest, AReferenceToItselfIsAMismatch) {
    VARIANT ring;
    VariantInit(&ring);
    ring.vt = VT_BYREF | VT_VARIANT;
    ring.pvarVal = &ring;
    EXPECT_EQ(codeOf([&] { toText(ring); }), DISP_E_TYPEMISMATCH);
}

TEST(CoercionTest, AnObjectIsTakenFromEitherInterfaceAndFromAVariable) {
    const ComPtr<TestObject> object = TestObject::make();
    VariantArg variable{ComPtr<IDispatch>(object.get())};
    EXPECT_EQ(toObject(variable.get()).get(), object.get());
    EXPECT_EQ(toObject(referenceTo(variable.get())).get(), object.get());
    variable.get().vt = VT_UNKNOWN;
    EXPECT_EQ(toObject(variable.get()).get(), object.get());
}

TEST(CoercionTest, NothingEmptyAndNullAreNoObject) {
    VariantArg null;
    null.get().vt = VT_NULL;
    EXPECT_FALSE(toObject(VariantArg().get()));
    EXPECT_FALSE(toObject(null.get()));
    EXPECT_FALSE(toObject(VariantArg(ComPtr<IDispatch>()).get()));
}

TEST(CoercionTest, AValueInAnObjectsPlaceIsAMismatch) {
    EXPECT_EQ(codeOf([] { toObject(VariantArg(std::int32_t{5}).get()); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(codeOf([] { toObject(VariantArg("host").get()); }), DISP_E_TYPEMISMATCH);
}

TEST(CoercionTest, AnObjectWithoutAutomationIsAMismatchThatSaysSo) {
    EXPECT_EQ(codeOf([] { toObject(foreignObject().get()); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(refusalOf([] { toObject(foreignObject().get()); }), "must be an automation object");
}

TEST(CoercionTest, ReadingAnObjectLeavesItsReferencesAsTheyWere) {
    const ComPtr<TestObject> object = TestObject::make();
    VariantArg variable{ComPtr<IDispatch>(object.get())};
    const ULONG before = object->references();
    toObject(referenceTo(variable.get()));
    codeOf([&] { toText(variable.get()); });
    codeOf([&] { toInt16(variable.get()); });
    EXPECT_EQ(object->references(), before);
}

TEST(CoercionTest, TextsAreTakenFromArraysOfVariantsAndOfTexts) {
    EXPECT_EQ(toTexts(scriptArray({"a", "\xC3\xA9"}).get()), (Texts{"a", "\xC3\xA9"}));
    EXPECT_EQ(toTexts(arrayOfTexts({"a", "b"}).get()), (Texts{"a", "b"}));
    EXPECT_EQ(toTexts(arrayOfTexts({"a", "b"}, 1).get()), (Texts{"a", "b"}));
    EXPECT_EQ(toTexts(scriptArray({}).get()), Texts{});
}

TEST(CoercionTest, TextsAreTakenFromArraysByReference) {
    VariantArg variable = scriptArray({"a", "b"});
    EXPECT_EQ(toTexts(referenceTo(variable.get())), (Texts{"a", "b"}));
    VARIANT reference;
    VariantInit(&reference);
    reference.vt = VT_BYREF | VT_ARRAY | VT_VARIANT;
    reference.pparray = &variable.get().parray;
    EXPECT_EQ(toTexts(reference), (Texts{"a", "b"}));
}

TEST(CoercionTest, ElementsMayBeVariablesThemselves) {
    VariantArg variable("inner");
    VariantArg array = scriptArray({VariantArg()});
    VARIANT* element = nullptr;
    SafeArrayAccessData(array.get().parray, reinterpret_cast<void**>(&element));
    *element = referenceTo(variable.get());
    SafeArrayUnaccessData(array.get().parray);
    EXPECT_EQ(toTexts(array.get()), (Texts{"inner"}));
}

TEST(CoercionTest, ASingleTextIsAnArrayOfOneAndEmptyAnArrayOfNone) {
    EXPECT_EQ(toTexts(VariantArg("one").get()), (Texts{"one"}));
    EXPECT_EQ(toTexts(VariantArg("").get()), (Texts{""}));
    EXPECT_EQ(toTexts(VariantArg().get()), Texts{});
}

TEST(CoercionTest, AnObjectWithALengthAndNumberedMembersIsAnArray) {
    const ComPtr<TestObject> object = TestObject::make();
    object->set(L"length", std::int32_t{2});
    object->set(L"0", "first");
    object->set(L"1", "second");
    EXPECT_EQ(toTexts(VariantArg(ComPtr<IDispatch>(object.get())).get()), (Texts{"first", "second"}));
    object->set(L"length", -1.0);
    EXPECT_EQ(codeOf([&] { toTexts(VariantArg(ComPtr<IDispatch>(object.get())).get()); }), DISP_E_OVERFLOW);
}

TEST(CoercionTest, AnObjectThatIsNoArrayOrTooLongAOneIsRefused) {
    const ComPtr<TestObject> object = TestObject::make();
    const VariantArg array{ComPtr<IDispatch>(object.get())};
    const auto refusal = [&] { return refusalOf([&] { toTexts(array.get()); }); };
    EXPECT_EQ(refusal(), "must be an array of texts") << "it has no length";
    object->set(L"length", std::int32_t{2});
    object->set(L"0", "first");
    EXPECT_EQ(refusal(), "must be an array of texts") << "it has a gap";
    object->set(L"length", std::int32_t{2'000'000'000});
    EXPECT_EQ(refusal(), "has too many elements") << "nobody means so many";
    EXPECT_EQ(codeOf([&] { toTexts(array.get()); }), DISP_E_OVERFLOW);
}

TEST(CoercionTest, WhatIsNoArrayOfTextsIsAMismatch) {
    EXPECT_EQ(codeOf([] { toTexts(VariantArg(std::int32_t{1}).get()); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(refusalOf([] { toTexts(VariantArg(std::int32_t{1}).get()); }), "must be an array of texts");
    EXPECT_EQ(refusalOf([] { toTexts(VariantArg(ComPtr<IDispatch>()).get()); }), "must be an array of texts");
    EXPECT_EQ(codeOf([] { toTexts(scriptArray({ComPtr<IDispatch>()}).get()); }), DISP_E_TYPEMISMATCH);
    VariantArg numbers;
    numbers.get().vt = VT_ARRAY | VT_I4;
    numbers.get().parray = SafeArrayCreateVector(VT_I4, 0, 1);
    EXPECT_EQ(refusalOf([&] { toTexts(numbers.get()); }), "must be an array of texts");
}

TEST(CoercionTest, WhatWasGivenIsDescribedInWords) {
    const ComPtr<TestObject> object = TestObject::make();
    VariantArg null;
    null.get().vt = VT_NULL;
    VariantArg date;
    date.get().vt = VT_DATE;
    VARIANT ring;
    VariantInit(&ring);
    ring.vt = VT_BYREF | VT_VARIANT;
    ring.pvarVal = &ring;
    VARIANT nowhere;
    VariantInit(&nowhere);
    nowhere.vt = VT_BYREF | VT_I4;
    nowhere.plVal = nullptr;
    VariantArg variable("inner");
    LONG number = 7;
    VARIANT counter;
    VariantInit(&counter);
    counter.vt = VT_BYREF | VT_I4;
    counter.plVal = &number;
    EXPECT_EQ(describe(VariantArg("abc").get()), "the text 'abc'");
    EXPECT_EQ(describe(VariantArg(std::string(100, 'x')).get()),
              "the text '" + std::string(40, 'x') + "...'");
    EXPECT_EQ(describe(VariantArg(std::int32_t{70000}).get()), "the number 70000");
    EXPECT_EQ(describe(VariantArg(1.5).get()), "the number 1.5");
    EXPECT_EQ(describe(counter), "the number 7");
    EXPECT_EQ(describe(VariantArg(false).get()), "False");
    EXPECT_EQ(describe(VariantArg(true).get()), "True");
    EXPECT_EQ(describe(VariantArg::missing().get()), "an error code");
    EXPECT_EQ(describe(foreignObject().get()), "an object");
    EXPECT_EQ(describe(VariantArg().get()), "Empty");
    EXPECT_EQ(describe(null.get()), "Null");
    EXPECT_EQ(describe(date.get()), "a date");
    EXPECT_EQ(describe(VariantArg(ComPtr<IDispatch>(object.get())).get()), "an object");
    EXPECT_EQ(describe(VariantArg(ComPtr<IDispatch>()).get()), "Nothing");
    EXPECT_EQ(describe(arrayOfTexts({"a"}).get()), "an array of texts");
    EXPECT_EQ(describe(scriptArray({"a"}).get()), "an array");
    EXPECT_EQ(describe(referenceTo(variable.get())), "the text 'inner'");
    EXPECT_EQ(describe(ring), "a reference that leads nowhere");
    EXPECT_EQ(describe(nowhere), "a reference that leads nowhere");
}

TEST(CoercionTest, ATextIsNotCutWithinACharacter) {
    const std::string spanner = "\xF0\x9F\x94\xA7";  // two units of UTF-16
    EXPECT_EQ(describe(VariantArg(std::string(39, 'x') + spanner + "xx").get()),
              "the text '" + std::string(39, 'x') + "...'");
    EXPECT_EQ(describe(VariantArg(std::string(38, 'x') + spanner + "xx").get()),
              "the text '" + std::string(38, 'x') + spanner + "...'");
}

TEST(CoercionTest, AnElementThatIsNoTextIsNamedByItsPlace) {
    const ComPtr<TestObject> object = TestObject::make();
    const VariantArg array = scriptArray({"a", ComPtr<IDispatch>(object.get())});
    EXPECT_EQ(codeOf([&] { toTexts(array.get()); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(refusalOf([&] { toTexts(array.get()); }),
              "must be an array of texts; its element 1 is an object");
}

TEST(CoercionTest, AnArrayOfTwoDimensionsIsAMismatch) {
    SAFEARRAYBOUND bounds[2] = {{1, 0}, {1, 0}};
    VariantArg square;
    square.get().vt = VT_ARRAY | VT_VARIANT;
    square.get().parray = SafeArrayCreate(VT_VARIANT, 2, bounds);
    EXPECT_EQ(codeOf([&] { toTexts(square.get()); }), DISP_E_TYPEMISMATCH);
}

TEST(CoercionTest, OnlyTheCodeOfAnOmittedArgumentMeansOmitted) {
    VariantArg failure = VariantArg::missing();
    EXPECT_TRUE(isMissing(failure.get()));
    EXPECT_TRUE(isMissing(referenceTo(failure.get())));
    failure.get().scode = E_FAIL;
    EXPECT_FALSE(isMissing(failure.get()));
    EXPECT_FALSE(isMissing(VariantArg().get()));
}

}  // namespace
}  // namespace pellmark
