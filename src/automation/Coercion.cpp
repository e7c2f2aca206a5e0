#include "automation/Coercion.h"

#include <cmath>

#include "automation/ArrayReader.h"
#include "automation/Guard.h"
#include "base/Text.h"

namespace pellmark {

namespace {

// More than any caller means; a script object's length is not taken on trust beyond it.
constexpr std::int32_t kGreatestScriptArray = 1'000'000;

[[noreturn]] void mismatch(const std::string& expected) {
    throw CallError(DISP_E_TYPEMISMATCH, expected);
}

/// A copy without references. A reference to nowhere, which only a faulty caller makes, is a mismatch.
VariantArg valueOf(const VARIANT& argument, const char* expected) {
    const VARIANT& value = innermost(argument);
    if ((value.vt & VT_BYREF) != 0 && value.byref == nullptr) mismatch(expected);
    if (isArray(value)) mismatch(expected);  // not even copied: its data may be gone
    return VariantArg::dereferenced(value);
}

VariantArg changed(const VARIANT& argument, VARTYPE type, const char* expected) {
    VariantArg value = valueOf(argument, expected);
    // an object's default value is not what the caller meant
    if (value.type() == VT_DISPATCH || value.type() == VT_UNKNOWN) mismatch(expected);
    const bool isReal = value.type() == VT_R8 || value.type() == VT_R4;
    if (isReal && !std::isfinite(value.type() == VT_R8 ? value.get().dblVal : double{value.get().fltVal})) {
        throw CallError(DISP_E_OVERFLOW, expected);
    }
    VariantArg result;
    const HRESULT code =
        ::VariantChangeTypeEx(result.receive(), &value.get(), LOCALE_INVARIANT, VARIANT_NOVALUEPROP, type);
    if (code == E_OUTOFMEMORY) throw std::bad_alloc();
    if (code == DISP_E_OVERFLOW) throw CallError(DISP_E_OVERFLOW, expected);
    if (FAILED(code)) mismatch(expected);
    return result;
}

VariantArg getMember(IDispatch* object, std::wstring name) {
    LPOLESTR names = name.data();
    DISPID id = DISPID_UNKNOWN;
    VariantArg value;
    DISPPARAMS none{};
    if (FAILED(object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id)) ||
        FAILED(object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, value.receive(),
                              nullptr, nullptr))) {
        mismatch("must be an array of texts");
    }
    return value;
}

/// An element of what must be an array of texts.
std::string elementText(const VARIANT& element, std::size_t index) {
    try {
        return toText(element);
    } catch (const CallError& error) {
        throw CallError(error.code(), "must be an array of texts; its element " + std::to_string(index) +
                                          " is " + describe(element));
    }
}

std::vector<std::string> scriptArray(IDispatch* object) {
    if (object == nullptr) mismatch("must be an array of texts");
    const std::int32_t count = toInt32(getMember(object, L"length").get());
    if (count < 0 || count > kGreatestScriptArray) throw CallError(DISP_E_OVERFLOW, "has too many elements");
    std::vector<std::string> texts;
    for (std::int32_t i = 0; i < count; ++i)
        texts.push_back(
            elementText(getMember(object, std::to_wstring(i)).get(), static_cast<std::size_t>(i)));
    return texts;
}

/// A value of one of the simple types, without references.
std::string describeSimple(const VARIANT& value) {
    switch (value.vt) {
        case VT_EMPTY:
            return "Empty";
        case VT_NULL:
            return "Null";
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return value.punkVal == nullptr ? "Nothing" : "an object";
        case VT_BOOL:
            return value.boolVal == VARIANT_FALSE ? "False" : "True";
        case VT_DATE:
            return "a date";
        case VT_ERROR:
            return "an error code";
        case VT_RECORD:
            return "a structure";
        default:
            break;
    }
    VariantArg text;
    if (FAILED(::VariantChangeTypeEx(text.receive(), const_cast<VARIANT*>(&value), LOCALE_INVARIANT,
                                     VARIANT_NOVALUEPROP, VT_BSTR))) {
        return "a value of the type " + std::to_string(value.vt);
    }
    constexpr std::size_t kLongest = 40;
    const std::u16string_view whole = Bstr::units(text.get().bstrVal);
    const std::string shown = toUtf8(firstUnits(whole, kLongest)) + (whole.size() > kLongest ? "..." : "");
    return value.vt == VT_BSTR ? "the text '" + shown + "'" : "the number " + shown;
}

}  // namespace

std::string describe(const VARIANT& argument) {
    constexpr const char* kNowhere = "a reference that leads nowhere";
    const VARIANT* value = nullptr;
    try {
        value = &innermost(argument);
    } catch (const CallError&) {
        return kNowhere;
    }
    if ((value->vt & VT_BYREF) != 0 && value->byref == nullptr) return kNowhere;
    // its elements may be gone
    if (isArray(*value)) return (value->vt & VT_TYPEMASK) == VT_BSTR ? "an array of texts" : "an array";
    return describeSimple(VariantArg::dereferenced(*value).get());
}

const VARIANT& innermost(const VARIANT& value) {
    // deeper chains than a few are a caller's mistake, or a ring
    constexpr int kDeepest = 8;
    const VARIANT* inner = &value;
    for (int depth = 0; inner->vt == (VT_BYREF | VT_VARIANT); ++depth) {
        if (depth == kDeepest || inner->pvarVal == nullptr) mismatch("must be a value");
        inner = inner->pvarVal;
    }
    return *inner;
}

bool isMissing(const VARIANT& value) {
    const VARIANT& inner = innermost(value);
    return inner.vt == VT_ERROR && inner.scode == DISP_E_PARAMNOTFOUND;
}

ComPtr<IDispatch> toObject(const VARIANT& value) {
    constexpr const char* kExpected = "must be an object";
    const VariantArg object = valueOf(value, kExpected);
    switch (object.type()) {
        case VT_EMPTY:
        case VT_NULL:
            return nullptr;
        case VT_DISPATCH:
            return ComPtr<IDispatch>(object.get().pdispVal);
        case VT_UNKNOWN: {
            const ComPtr<IUnknown> unknown(object.get().punkVal);
            if (!unknown) return nullptr;
            ComPtr<IDispatch> dispatch = unknown.query<IDispatch>();
            if (!dispatch) mismatch("must be an automation object");
            return dispatch;
        }
        default:
            mismatch(kExpected);
    }
}

std::int16_t toInt16(const VARIANT& value) {
    return changed(value, VT_I2, "must be a number from -32768 to 32767").get().iVal;
}

std::int32_t toInt32(const VARIANT& value) {
    return changed(value, VT_I4, "must be a 32-bit number").get().lVal;
}

std::string toText(const VARIANT& value) {
    return Bstr::toUtf8(changed(value, VT_BSTR, "must be a text").get().bstrVal);
}

namespace {

std::vector<std::string> textsOf(const ArrayReader& array) {
    if (array.type() != VT_BSTR && array.type() != VT_VARIANT && array.type() != VT_EMPTY) {
        mismatch("must be an array of texts");
    }
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < array.size(); ++i)
        texts.push_back(elementText(array[i], i));
    return texts;
}

}  // namespace

std::vector<std::string> toTexts(SAFEARRAY* array) {
    return textsOf(ArrayReader(array));
}

std::vector<std::string> toTexts(const VARIANT& value) {
    const VARIANT& inner = innermost(value);
    if (isArray(inner)) return textsOf(ArrayReader(inner));
    const VariantArg single = valueOf(inner, "must be an array of texts");
    switch (single.type()) {
        case VT_EMPTY:
            return {};
        case VT_BSTR:
            return {Bstr::toUtf8(single.get().bstrVal)};
        case VT_DISPATCH:
            return scriptArray(single.get().pdispVal);
        default:
            mismatch("must be an array of texts");
    }
}

}  // namespace pellmark
