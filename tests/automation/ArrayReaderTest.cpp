#include "automation/ArrayReader.h"

#include <gtest/gtest.h>

#include "automation/Coercion.h"
#include "automation/Guard.h"

namespace pellmark {
namespace {

/// An array that its test may spoil; it is destroyed as it was made.
class MadeArray {
  public:
    MadeArray(VARTYPE type, ULONG elements, LONG first = 0, UINT dimensions = 1) {
        SAFEARRAYBOUND bounds[2] = {{elements, first}, {elements, first}};
        array_ = SafeArrayCreate(type, dimensions, bounds);
        if (array_ == nullptr) throw std::bad_alloc();
        copy_ = *array_;
    }
    MadeArray(const MadeArray&) = delete;
    MadeArray& operator=(const MadeArray&) = delete;
    ~MadeArray() {
        array_->rgsabound[0] = copy_.rgsabound[0];
        array_->cbElements = copy_.cbElements;
        array_->fFeatures = copy_.fFeatures;
        SafeArrayDestroy(array_);
    }

    SAFEARRAY* operator->() const { return array_; }
    SAFEARRAY* get() const { return array_; }
    VARIANT variant(VARTYPE type) const {
        VARIANT value{};
        value.vt = static_cast<VARTYPE>(VT_ARRAY | type);
        value.parray = array_;
        return value;
    }

  private:
    SAFEARRAY* array_;
    SAFEARRAY copy_;
};

/// The text with which an array is refused; "" when it is taken.
std::string refusalOf(SAFEARRAY* array) {
    try {
        const ArrayReader reader(array);
        return "";
    } catch (const CallError& error) {
        return error.what();
    }
}

TEST(ArrayReaderTest, ElementsAreBorrowedAsVariants) {
    const MadeArray numbers(VT_I2, 2, 5);
    LONG at = 6;
    SHORT number = 71;
    SafeArrayPutElement(numbers.get(), &at, &number);
    const ArrayReader reader(numbers.get());
    ASSERT_EQ(reader.size(), 2U);
    EXPECT_EQ(reader.type(), VT_I2);
    EXPECT_EQ(reader[1].vt, VT_I2);
    EXPECT_EQ(reader[1].iVal, 71);
    EXPECT_EQ(reader.bytes().size(), 4U);
}

TEST(ArrayReaderTest, EveryPlainTypeIsRead) {
    for (const VARTYPE type :
         {VT_I1,    VT_UI1, VT_I2,  VT_UI2, VT_BOOL, VT_I4,   VT_UI4,  VT_INT,      VT_UINT,    VT_R4,
          VT_ERROR, VT_I8,  VT_UI8, VT_R8,  VT_CY,   VT_DATE, VT_BSTR, VT_DISPATCH, VT_UNKNOWN, VT_DECIMAL}) {
        const MadeArray array(type, 1);
        const ArrayReader reader(array.get());
        EXPECT_EQ(reader[0].vt, type);
        EXPECT_EQ(reader[0].llVal, 0) << type;
    }
}

TEST(ArrayReaderTest, AnElementIsReadWholeHoweverWideItsTypeIs) {
    const MadeArray decimals(VT_DECIMAL, 2);
    VarDecFromR8(-123.45, &static_cast<DECIMAL*>(decimals->pvData)[1]);
    EXPECT_EQ(describe(ArrayReader(decimals.get())[1]), "the number -123.45");
    const MadeArray wide(VT_I8, 2);
    static_cast<LONGLONG*>(wide->pvData)[1] = -5'000'000'000;
    EXPECT_EQ(describe(ArrayReader(wide.get())[1]), "the number -5000000000");
}

TEST(ArrayReaderTest, StructuresThatNobodyHasDescribedAreRefused) {
    SAFEARRAY* bare = nullptr;
    ASSERT_EQ(SafeArrayAllocDescriptorEx(VT_RECORD, 1, &bare), S_OK);
    bare->cbElements = sizeof(LONGLONG);
    EXPECT_EQ(refusalOf(bare), "must have structures that are described");
    SafeArrayDestroyDescriptor(bare);
}

TEST(ArrayReaderTest, AVariantInTheArrayIsGivenWithoutItsReferences) {
    const MadeArray array(VT_VARIANT, 1);
    VariantArg variable("inner");
    auto& element = static_cast<VARIANT*>(array->pvData)[0];
    element.vt = VT_BYREF | VT_VARIANT;
    element.pvarVal = &variable.get();
    EXPECT_EQ(ArrayReader(array.get())[0].bstrVal, variable.get().bstrVal);
}

TEST(ArrayReaderTest, ANullArrayHasNoElements) {
    EXPECT_EQ(ArrayReader(static_cast<SAFEARRAY*>(nullptr)).size(), 0U);
    VARIANT value{};
    value.vt = VT_ARRAY | VT_BSTR;
    EXPECT_EQ(ArrayReader(value).size(), 0U);
    value.vt = VT_BYREF | VT_ARRAY | VT_BSTR;
    EXPECT_EQ(ArrayReader(value).size(), 0U);
}

TEST(ArrayReaderTest, WhatIsNoArrayIsRefused) {
    EXPECT_THROW(ArrayReader(VariantArg("text").get()), CallError);
}

TEST(ArrayReaderTest, AnArrayWhoseDataWasDestroyedIsRefused) {
    for (const VARTYPE type : {VT_VARIANT, VT_BSTR, VT_UI1}) {
        const MadeArray array(type, 3);
        ASSERT_EQ(SafeArrayDestroyData(array.get()), S_OK);
        EXPECT_EQ(refusalOf(array.get()), "has lost its elements");
    }
}

TEST(ArrayReaderTest, AVectorWhoseDataWasDestroyedIsRefused) {
    for (const VARTYPE type : {VT_VARIANT, VT_BSTR, VT_UI1}) {
        SAFEARRAY* const vector = SafeArrayCreateVector(type, 0, 3);
        ASSERT_EQ(SafeArrayDestroyData(vector), S_OK);
        EXPECT_EQ(refusalOf(vector), "has lost its elements");
        SafeArrayDestroy(vector);
    }
}

TEST(ArrayReaderTest, OneElementAtTheGreatestIndexIsOneElement) {
    const MadeArray array(VT_BSTR, 1, 0x7FFFFFFF);
    EXPECT_EQ(ArrayReader(array.get()).size(), 1U);
}

TEST(ArrayReaderTest, BoundsThatNobodyMeansAreRefused) {
    const MadeArray array(VT_BSTR, 1);
    array->rgsabound[0] = {0x80000000U, 0};  // the greatest upper bound that there is
    EXPECT_EQ(refusalOf(array.get()), "has too many elements");
    array->rgsabound[0] = {0xFFFFFFFFU, 0};
    EXPECT_EQ(refusalOf(array.get()), "has too many elements");
    array->rgsabound[0] = {2, 0x7FFFFFFF};  // its second element has no index
    EXPECT_EQ(refusalOf(array.get()), "has too many elements");
}

TEST(ArrayReaderTest, AnotherNumberOfDimensionsIsRefused) {
    const MadeArray square(VT_BSTR, 1, 0, 2);
    EXPECT_EQ(refusalOf(square.get()), "must have one dimension");
    const MadeArray none(VT_BSTR, 1);
    none->cDims = 0;
    EXPECT_EQ(refusalOf(none.get()), "must have one dimension");
    none->cDims = 1;
}

TEST(ArrayReaderTest, ElementsThatAreNotWhatTheirTypeSaysAreRefused) {
    const MadeArray array(VT_BSTR, 1);
    array->cbElements = 2;
    EXPECT_EQ(refusalOf(array.get()), "must have elements of a known type");
    array->cbElements = 0;
    EXPECT_EQ(refusalOf(array.get()), "must have elements of a known type");
}

TEST(ArrayReaderTest, ElementsWithoutATypeAreRefused) {
    const MadeArray array(VT_UI1, 1);
    array->fFeatures &= static_cast<USHORT>(~FADF_HAVEVARTYPE);
    EXPECT_EQ(refusalOf(array.get()), "must have elements of a known type");
}

TEST(ArrayReaderTest, AnArrayIsKeptInPlaceWhileItIsReadAndFreeAfterwards) {
    const MadeArray array(VT_I2, 1);
    {
        const ArrayReader reader(array.get());
        EXPECT_EQ(SafeArrayDestroyData(array.get()), DISP_E_ARRAYISLOCKED);
    }
    EXPECT_EQ(array->cLocks, 0U);
}

TEST(ArrayReaderTest, ASpoiledArrayInAnArgumentIsAMismatchWhateverTheArgument) {
    const MadeArray array(VT_BSTR, 3);
    ASSERT_EQ(SafeArrayDestroyData(array.get()), S_OK);
    VARIANT reference{};
    SAFEARRAY* place = array.get();
    reference.vt = VT_BYREF | VT_ARRAY | VT_BSTR;
    reference.pparray = &place;
    for (const VARIANT& value : {array.variant(VT_BSTR), array.variant(VT_VARIANT), reference}) {
        EXPECT_THROW(toTexts(value), CallError);
        EXPECT_THROW(toText(value), CallError);
        EXPECT_THROW(toInt16(value), CallError);
        EXPECT_THROW(toObject(value), CallError);
    }
    EXPECT_THROW(toTexts(array.get()), CallError);
}

TEST(ArrayReaderTest, ASpoiledArrayInsideAnArrayIsAMismatch) {
    const MadeArray inner(VT_BSTR, 3);
    ASSERT_EQ(SafeArrayDestroyData(inner.get()), S_OK);
    const MadeArray outer(VT_VARIANT, 1);
    auto& element = static_cast<VARIANT*>(outer->pvData)[0];
    element = inner.variant(VT_BSTR);
    EXPECT_THROW(toTexts(outer.get()), CallError);
    element.vt = VT_EMPTY;
}

}  // namespace
}  // namespace pellmark
