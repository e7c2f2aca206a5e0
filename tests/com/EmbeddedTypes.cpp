#include "com/EmbeddedTypes.h"

#include <stdexcept>

namespace pellmark {

namespace {

std::wstring wideOf(const Bstr& text) {
    return toWide(text.utf8());
}

std::wstring nameOfMember(ITypeInfo* type, MEMBERID member) {
    Bstr name;
    type->GetDocumentation(member, name.receive(), nullptr, nullptr, nullptr);
    return wideOf(name);
}

ParameterDescription describeParameter(const ELEMDESC& element, std::wstring name) {
    ParameterDescription parameter;
    parameter.name = std::move(name);
    parameter.type = element.tdesc.vt;
    if (parameter.type == VT_PTR) parameter.pointee = element.tdesc.lptdesc->vt;
    parameter.flags = element.paramdesc.wParamFlags;
    if ((parameter.flags & PARAMFLAG_FHASDEFAULT) != 0) {
        parameter.byDefault = VariantArg::dereferenced(element.paramdesc.pparamdescex->varDefaultValue);
    }
    return parameter;
}

FunctionDescription describeFunction(ITypeInfo* type, const FUNCDESC& function) {
    constexpr UINT kMost = 32;
    BSTR names[kMost] = {};
    UINT count = 0;
    type->GetNames(function.memid, names, kMost, &count);
    std::vector<std::wstring> texts;
    for (UINT i = 0; i < count; ++i) {
        texts.push_back(wideOf(Bstr::adopt(names[i])));
    }
    FunctionDescription description;
    description.name = texts.at(0);
    description.help = helpOf(type, function.memid);
    description.id = function.memid;
    description.kind = function.invkind;
    description.result = function.elemdescFunc.tdesc.vt;
    for (SHORT i = 0; i < function.cParams; ++i) {
        const auto place = static_cast<std::size_t>(i) + 1;
        description.parameters.push_back(describeParameter(
            function.lprgelemdescParam[i], place < texts.size() ? texts[place] : std::wstring()));
    }
    return description;
}

}  // namespace

std::wstring programFolder() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.find_last_of(L'\\'));
}

std::string helpOf(ITypeInfo* type, MEMBERID member) {
    Bstr help;
    type->GetDocumentation(member, nullptr, help.receive(), nullptr, nullptr);
    return help.utf8();
}

EmbeddedTypes::EmbeddedTypes() {
    const std::wstring path = programFolder() + L"\\Pellmark.dll";
    if (FAILED(LoadTypeLibEx(path.c_str(), REGKIND_NONE, library_.receive()))) {
        throw std::runtime_error("the DLL holds no type library");
    }
}

ComPtr<ITypeInfo> EmbeddedTypes::type(const wchar_t* name) const {
    for (UINT i = 0; i < library_->GetTypeInfoCount(); ++i) {
        Bstr found;
        library_->GetDocumentation(static_cast<INT>(i), found.receive(), nullptr, nullptr, nullptr);
        ComPtr<ITypeInfo> type;
        if (wideOf(found) == name && SUCCEEDED(library_->GetTypeInfo(i, type.receive()))) return type;
    }
    throw std::runtime_error("the type library lacks a type");
}

InterfaceDescription EmbeddedTypes::describeInterface() const {
    const ComPtr<ITypeInfo> type = this->type(L"_Application");
    InterfaceDescription description;
    // asked for one behind the other until there are no more; the seven of IUnknown and IDispatch come first
    for (UINT i = 0;; ++i) {
        FUNCDESC* function = nullptr;
        if (FAILED(type->GetFuncDesc(i, &function))) break;
        if (function->memid > 0 && function->memid < 0x60000000) {
            description.functions.push_back(describeFunction(type.get(), *function));
        }
        type->ReleaseFuncDesc(function);
    }
    return description;
}

std::vector<VariableDescription> EmbeddedTypes::describeVariables(const wchar_t* name) const {
    const ComPtr<ITypeInfo> type = this->type(name);
    std::vector<VariableDescription> variables;
    for (UINT i = 0;; ++i) {
        VARDESC* variable = nullptr;
        if (FAILED(type->GetVarDesc(i, &variable))) break;
        VariableDescription description;
        description.name = nameOfMember(type.get(), variable->memid);
        description.help = helpOf(type.get(), variable->memid);
        description.type = variable->elemdescVar.tdesc.vt;
        if (variable->varkind == VAR_CONST) {
            description.value = variable->lpvarValue->lVal;
        } else {
            description.offset = variable->oInst;
        }
        variables.push_back(description);
        type->ReleaseVarDesc(variable);
    }
    return variables;
}

}  // namespace pellmark
