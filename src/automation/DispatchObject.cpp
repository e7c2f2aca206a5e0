#include "automation/DispatchObject.h"

#include <dispex.h>

#include <algorithm>
#include <cstdio>
#include <vector>

#include "automation/ArrayReader.h"
#include "automation/Coercion.h"
#include "automation/Guard.h"
#include "base/Error.h"

namespace pellmark {

namespace {

/// Classic automation errors carry their number in the low word of this range.
constexpr std::uint32_t kClassicErrors = 0x800A0000U;
constexpr LCID kInvariantEnglish = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);

std::int32_t numberOf(HRESULT code) {
    const auto bits = static_cast<std::uint32_t>(code);
    return (bits & 0xFFFF0000U) == kClassicErrors ? static_cast<std::int32_t>(bits & 0xFFFFU) : code;
}

std::string hexOf(HRESULT code) {
    char text[16];
    std::snprintf(text, sizeof(text), "0x%08lX", static_cast<unsigned long>(code));
    return text;
}

/// The texts of an error that a call fills in; freed with it.
struct ErrorDetails : EXCEPINFO {
    ErrorDetails() : EXCEPINFO{} {}
    ErrorDetails(const ErrorDetails&) = delete;
    ErrorDetails& operator=(const ErrorDetails&) = delete;
    ~ErrorDetails() {
        SysFreeString(bstrSource);
        SysFreeString(bstrDescription);
        SysFreeString(bstrHelpFile);
    }
};

[[noreturn]] void throwHostError(ErrorDetails& details, const std::string& member) {
    if (details.pfnDeferredFillIn != nullptr) details.pfnDeferredFillIn(&details);
    // A host that raises without saying what has at least raised.
    const HRESULT code = details.scode != S_OK ? details.scode : DISP_E_EXCEPTION;
    const std::int32_t number = details.wCode != 0 ? details.wCode : numberOf(code);
    // The text is for a person, who knows no members; the source is for whoever reads the trace.
    const std::string raisedBy = Bstr::toUtf8(details.bstrSource);
    std::string source = raisedBy.empty() ? member : member + " (" + raisedBy + ")";
    std::string description = Bstr::toUtf8(details.bstrDescription);
    if (description.empty())
        description = "The host's member " + member + " failed with error " +
                      (details.wCode != 0 ? std::to_string(details.wCode) : hexOf(code)) + ".";
    throw Error(number, std::move(source), description);
}

[[noreturn]] void throwInterfaceError(const std::string& member, const std::string& reason) {
    throw Error(errors::kHostInterface, member, "The host's member " + member + " " + reason);
}

const char* reasonOf(HRESULT code) {
    switch (code) {
        case DISP_E_MEMBERNOTFOUND:
            return "is missing.";
        case DISP_E_BADPARAMCOUNT:
            return "takes another number of arguments.";
        case DISP_E_TYPEMISMATCH:
        case DISP_E_OVERFLOW:
            return "does not take arguments of these types.";
        case DISP_E_PARAMNOTOPTIONAL:
        case DISP_E_PARAMNOTFOUND:
            return "asks for more arguments.";
        default:
            return nullptr;
    }
}

}  // namespace

DispatchResult::DispatchResult(VariantArg value, std::string member)
    : value_(std::move(value)), member_(std::move(member)) {
    if ((value_.type() & VT_BYREF) == 0) return;
    try {
        // what is copied must be sound first
        if (isArray(value_.get())) const ArrayReader sound(value_.get());
    } catch (const CallError& error) {
        failBecause(std::string("answered with an array that ") + error.what() + ".");
    }
    value_ = VariantArg::dereferenced(value_.get());
}

void DispatchResult::failBecause(const std::string& reason) const {
    throwInterfaceError(member_, reason);
}

void DispatchResult::failAsNo(const std::string& meant) const {
    failBecause("did not answer with " + meant + ", but with " + describe(value_.get()) + ".");
}

VariantArg DispatchResult::converted(VARTYPE type, const char* meant) const {
    VariantArg result;
    const bool value = value_.type() != VT_EMPTY && value_.type() != VT_NULL &&
                       value_.type() != VT_DISPATCH && value_.type() != VT_UNKNOWN;
    if (!value || FAILED(VariantChangeTypeEx(result.receive(), const_cast<VARIANT*>(&value_.get()),
                                             kInvariantEnglish, VARIANT_NOUSEROVERRIDE, type))) {
        failAsNo(meant);
    }
    return result;
}

std::string DispatchResult::text() const {
    switch (value_.type()) {
        case VT_BSTR:
            return Bstr::toUtf8(value_.get().bstrVal);
        case VT_EMPTY:
        case VT_NULL:
            return {};
        case VT_BOOL:
            return value_.get().boolVal != VARIANT_FALSE ? "1" : "0";
        default:
            return Bstr::toUtf8(converted(VT_BSTR, "a text").get().bstrVal);
    }
}

bool DispatchResult::boolean() const {
    return converted(VT_BOOL, "True or False").get().boolVal != VARIANT_FALSE;
}

std::int16_t DispatchResult::int16() const {
    return converted(VT_I2, "a 16-bit number").get().iVal;
}

std::int32_t DispatchResult::int32() const {
    return converted(VT_I4, "a 32-bit number").get().lVal;
}

std::int64_t DispatchResult::int64() const {
    return converted(VT_I8, "a number").get().llVal;
}

DispatchObject DispatchResult::object() const {
    return DispatchObject::from(value_.get(), member_);
}

DispatchObject::DispatchObject(ComPtr<IDispatch> object, std::string name)
    : object_(std::move(object)), name_(std::move(name)) {
    if (!object_) throw Error(errors::kHostInterface, name_, "The host gave no object for " + name_ + ".");
}

DispatchObject DispatchObject::from(const VARIANT& value, const std::string& name) {
    const VariantArg plain = VariantArg::dereferenced(value);
    ComPtr<IDispatch> object;
    if (plain.type() == VT_DISPATCH) object = ComPtr<IDispatch>(plain.get().pdispVal);
    if (plain.type() == VT_UNKNOWN) object = ComPtr<IUnknown>(plain.get().punkVal).query<IDispatch>();
    if (!object) {
        const bool isForeign = plain.type() == VT_UNKNOWN && plain.get().punkVal != nullptr;
        throw Error(errors::kHostInterface, name,
                    "The host gave no object for " + name + ", but " +
                        (isForeign ? "one without automation" : describe(plain.get())) + ".");
    }
    return {std::move(object), name};
}

std::string DispatchObject::qualified(std::string_view member) const {
    return name_ + "." + std::string(member);
}

namespace {

/// A missing member is something else than an object that cannot be asked any more.
bool isOutOfReach(HRESULT code) {
    const HRESULT codes[] = {CO_E_OBJNOTCONNECTED, RPC_E_DISCONNECTED, RPC_E_SERVER_DIED,
                             RPC_E_SERVER_DIED_DNE, HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE)};
    return std::find(std::begin(codes), std::end(codes), code) != std::end(codes);
}

/// Some script engines let the members of their own classes be found through the newer interface alone.
HRESULT findExpanded(const ComPtr<IDispatch>& object, std::string_view member, DISPID& id) {
    const ComPtr<IDispatchEx> expanded = object.query<IDispatchEx>();
    if (!expanded) return E_NOTIMPL;
    return expanded->GetDispID(Bstr(member).get(), fdexNameCaseInsensitive, &id);
}

}  // namespace

std::optional<DISPID> DispatchObject::find(std::string_view member) {
    if (const auto known = ids_.find(member); known != ids_.end()) return known->second;
    std::wstring name = toWide(member);
    LPOLESTR names[] = {name.data()};
    DISPID id = DISPID_UNKNOWN;
    HRESULT result = object_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
    if (result == E_NOTIMPL) result = findExpanded(object_, member, id);
    if (isOutOfReach(result)) {
        throw Error(
            numberOf(result), name_,
            "The host's object " + name_ + " does not answer any more (error " + hexOf(result) + ").");
    }
    std::optional<DISPID> found;
    if (SUCCEEDED(result)) found = id;
    // what a host that is busy refuses now it may answer later
    if (found || result == DISP_E_UNKNOWNNAME) ids_.emplace(member, found);
    return found;
}

bool DispatchObject::has(std::string_view member) {
    return find(member).has_value();
}

VariantArg DispatchObject::invoke(std::string_view member, WORD flags, DISPPARAMS& parameters) {
    const auto id = find(member);
    if (!id) throwInterfaceError(qualified(member), "is missing.");
    VariantArg result;
    ErrorDetails details;
    UINT badArgument = 0;
    VARIANT* answer = (flags & DISPATCH_PROPERTYPUT) != 0 ? nullptr : result.receive();
    const HRESULT code = object_->Invoke(*id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, answer,
                                         &details, &badArgument);
    if (SUCCEEDED(code)) return result;
    if (code == DISP_E_EXCEPTION) throwHostError(details, qualified(member));
    if (const char* reason = reasonOf(code)) throwInterfaceError(qualified(member), reason);
    throw Error(numberOf(code), qualified(member),
                "The host's member " + qualified(member) + " failed with error " + hexOf(code) + ".");
}

DispatchResult DispatchObject::call(std::string_view member, std::initializer_list<VariantArg> arguments) {
    std::vector<VARIANT> backwards(arguments.size());  // shallow: the arguments stay the caller's
    std::transform(arguments.begin(), arguments.end(), backwards.rbegin(),
                   [](const VariantArg& argument) { return argument.get(); });
    DISPPARAMS parameters{backwards.data(), nullptr, static_cast<UINT>(backwards.size()), 0};
    return {invoke(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, parameters), qualified(member)};
}

void DispatchObject::put(std::string_view member, const VariantArg& value) {
    VARIANT argument = value.get();
    DISPID named = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&argument, &named, 1, 1};
    invoke(member, DISPATCH_PROPERTYPUT, parameters);
}

}  // namespace pellmark
