#include "automation/ArrayReader.h"

#include <cstring>
#include <limits>

#include "automation/Coercion.h"
#include "automation/Guard.h"

namespace pellmark {

namespace {

// a feature of the system's own that its headers keep to themselves
constexpr USHORT kDataDeleted = 0x1000;

[[noreturn]] void refuse(const char* why) {
    throw CallError(DISP_E_TYPEMISMATCH, why);
}

SAFEARRAY* arrayOf(const VARIANT& value) {
    if (!isArray(value)) refuse("must be an array");
    if ((value.vt & VT_BYREF) == 0) return value.parray;
    return value.pparray == nullptr ? nullptr : *value.pparray;
}

/// 0 for a type that no array has.
std::size_t sizeOf(VARTYPE type) {
    switch (type) {
        case VT_I1:
        case VT_UI1:
            return sizeof(BYTE);
        case VT_I2:
        case VT_UI2:
        case VT_BOOL:
            return sizeof(SHORT);
        case VT_I4:
        case VT_UI4:
        case VT_INT:
        case VT_UINT:
        case VT_R4:
        case VT_ERROR:
            return sizeof(LONG);
        case VT_I8:
        case VT_UI8:
        case VT_R8:
        case VT_CY:
        case VT_DATE:
            return sizeof(LONGLONG);
        case VT_BSTR:
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return sizeof(void*);
        case VT_DECIMAL:
            return sizeof(DECIMAL);
        case VT_VARIANT:
            return sizeof(VARIANT);
        default:
            return 0;
    }
}

}  // namespace

ArrayReader::ArrayReader(const VARIANT& value) : ArrayReader(arrayOf(value)) {}

ArrayReader::ArrayReader(SAFEARRAY* array) : array_(array) {
    if (array_ == nullptr) return;
    if (array_->cDims != 1) refuse("must have one dimension");
    describeElements();
    lock();
}

ArrayReader::~ArrayReader() {
    if (array_ != nullptr) ::SafeArrayUnlock(array_);
}

void ArrayReader::describeElements() {
    if (FAILED(::SafeArrayGetVartype(array_, &type_))) refuse("must have elements of a known type");
    elementSize_ = sizeOf(type_);
    if (type_ == VT_RECORD) {
        ULONG size = 0;
        if (FAILED(::SafeArrayGetRecordInfo(array_, structure_.receive())) || !structure_ ||
            FAILED(structure_->GetSize(&size))) {
            refuse("must have structures that are described");
        }
        elementSize_ = size;
    }
    if (elementSize_ == 0 || elementSize_ != array_->cbElements) refuse("must have elements of a known type");
}

void ArrayReader::lock() {
    const SAFEARRAYBOUND& bound = array_->rgsabound[0];
    const std::int64_t last = std::int64_t{bound.lLbound} + bound.cElements - 1;
    if (bound.cElements > kMostBytes / elementSize_ || last > std::numeric_limits<LONG>::max()) {
        throw CallError(DISP_E_OVERFLOW, "has too many elements");
    }
    // SafeArrayDestroyData leaves the descriptor and its bounds behind, and in a vector the place of the data
    // too
    const bool lost = array_->pvData == nullptr || (array_->fFeatures & kDataDeleted) != 0;
    if (bound.cElements > 0 && lost) refuse("has lost its elements");
    if (FAILED(::SafeArrayLock(array_))) refuse("cannot be read");
    size_ = bound.cElements;
    data_ = static_cast<std::byte*>(array_->pvData);
}

VARIANT ArrayReader::operator[](std::size_t at) const {
    // a structure has whatever size its host says, a variant room for eight bytes
    if (type_ == VT_RECORD) refuse("has structures where values belong");
    const std::byte* const place = data_ + at * elementSize_;
    if (type_ == VT_VARIANT) return innermost(*reinterpret_cast<const VARIANT*>(place));
    VARIANT element{};
    if (type_ == VT_DECIMAL) {
        std::memcpy(&element.decVal, place, elementSize_);
    } else {
        std::memcpy(&element.byref, place, elementSize_);
    }
    element.vt = type_;  // last: a decimal lies over it
    return element;
}

VariantArg ArrayReader::field(std::size_t at, const wchar_t* name) const {
    // by reference and copied here: not every system copies a text that GetField answers with
    VARIANT reference{};
    void* unused = nullptr;
    if (!structure_ ||
        FAILED(structure_->GetFieldNoCopy(data_ + at * elementSize_, name, &reference, &unused))) {
        refuse("has structures of another kind");
    }
    return VariantArg::dereferenced(reference);
}

}  // namespace pellmark
