#include "refhost/automation/AutomationObject.h"

#include <algorithm>

#include "automation/Coercion.h"
#include "automation/Guard.h"
#include "automation/TypeLibrary.h"
#include "refhost/automation/HostConfiguration.h"
#include "refhost/texts/HostError.h"

namespace norvex {

using pellmark::CallError;
using pellmark::VariantArg;

const VARIANT& Arguments::at(std::size_t position) const {
    return parameters_.rgvarg[parameters_.cArgs - 1 - position];
}

std::string Arguments::text(std::size_t position) const {
    return pellmark::toText(at(position));
}

std::int16_t Arguments::int16(std::size_t position) const {
    return pellmark::toInt16(at(position));
}

std::int32_t Arguments::int32(std::size_t position) const {
    return pellmark::toInt32(at(position));
}

std::vector<std::string> Arguments::texts(std::size_t position) const {
    return pellmark::toTexts(at(position));
}

std::u16string Arguments::packedText(std::size_t position) const {
    const VARIANT& value = pellmark::innermost(at(position));
    if (value.vt != VT_BSTR) throw CallError(DISP_E_TYPEMISMATCH, "is not a packed text");
    return std::u16string(pellmark::Bstr::units(value.bstrVal));
}

HRESULT AutomationObject::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IDispatch && iid != interfaceId_) return E_NOINTERFACE;
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
}

ULONG AutomationObject::AddRef() {
    return ++references_;
}

ULONG AutomationObject::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT AutomationObject::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT AutomationObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return pellmark::trapAsResult(name_, [&] { *info = pellmark::loadTypeInfo(interfaceId_).release(); });
}

HRESULT AutomationObject::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
    std::fill(ids, ids + count, DISPID_UNKNOWN);
    const auto found = std::find_if(members_.begin(), members_.end(), [&](const Member& member) {
        return _wcsicmp(member.name, names[0]) == 0;
    });
    if (found == members_.end()) return DISP_E_UNKNOWNNAME;
    ids[0] = found->id;
    return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;  // arguments go by position only
}

HRESULT AutomationObject::Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* parameters,
                                 VARIANT* result, EXCEPINFO* exception, UINT* argument) {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (parameters == nullptr) return E_INVALIDARG;
    if (result != nullptr) VariantInit(result);
    const pellmark::ComPtr<IDispatch> alive(this);  // a member may release the last reference of its caller
    return pellmark::trapAsResult(name_, exception, argument, [&] {
        VariantArg value = invokeTranslated(id, flags, *parameters);
        if (result != nullptr) *result = value.release();
    });
}

void AutomationObject::method(DISPID id, const wchar_t* name, std::size_t arguments, Function function) {
    members_.push_back({id, name, arguments, std::move(function), nullptr});
}

void AutomationObject::property(DISPID id, const wchar_t* name, Function get, Put put) {
    members_.push_back({id, name, 0, std::move(get), std::move(put)});
}

const AutomationObject::Member* AutomationObject::find(DISPID id) const {
    const auto found = std::find_if(members_.begin(), members_.end(),
                                    [id](const Member& member) { return member.id == id; });
    return found == members_.end() ? nullptr : &*found;
}

VariantArg AutomationObject::invokeTranslated(DISPID id, WORD flags, const DISPPARAMS& parameters) {
    try {
        return invoke(id, flags, parameters);
    } catch (const HostError& error) {
        const HostTexts texts = configuration::texts();
        throw error.translated([&texts](const std::string& english) { return texts.of(english); });
    }
}

VariantArg AutomationObject::invoke(DISPID id, WORD flags, const DISPPARAMS& parameters) {
    const Member* member = find(id);
    if (member == nullptr) throw CallError(DISP_E_MEMBERNOTFOUND, "no such member");
    if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
        if (!member->put) throw CallError(DISP_E_MEMBERNOTFOUND, "the member cannot be set");
        if (parameters.cArgs != 1) throw CallError(DISP_E_BADPARAMCOUNT, "one value is set");
        member->put(Arguments(parameters));
        return {};
    }
    if (parameters.cNamedArgs != 0) throw CallError(DISP_E_NONAMEDARGS, "arguments go by position");
    if (parameters.cArgs != member->arguments)
        throw CallError(DISP_E_BADPARAMCOUNT, "other arguments are taken");
    return member->call(Arguments(parameters));
}

}  // namespace norvex
