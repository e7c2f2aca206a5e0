#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <vector>

#include "Pellmark.h"
#include "automation/Automation.h"

namespace pellmark {

struct ParameterDescription {
    std::wstring name;
    VARTYPE type = VT_EMPTY;
    VARTYPE pointee = VT_EMPTY;  ///< of a pointer
    USHORT flags = 0;
    VariantArg byDefault;
};

struct FunctionDescription {
    std::wstring name;
    std::string help;
    DISPID id = 0;
    INVOKEKIND kind = INVOKE_FUNC;
    VARTYPE result = VT_EMPTY;  ///< as a client of the dispatch interface sees it
    std::vector<ParameterDescription> parameters;
};

struct VariableDescription {
    std::wstring name;
    std::string help;
    VARTYPE type = VT_EMPTY;
    long value = 0;    ///< of a constant
    ULONG offset = 0;  ///< of a field
};

struct InterfaceDescription {
    std::vector<FunctionDescription> functions;
};

/// The folder of the running test program, without a trailing "\".
std::wstring programFolder();

/// The type library inside the built DLL, loaded from the DLL itself and never registered.
class EmbeddedTypes {
  public:
    EmbeddedTypes();

    ITypeLib* library() const { return library_.get(); }
    ComPtr<ITypeInfo> type(const wchar_t* name) const;
    /// The members of _Application in the order of the interface, without those of IDispatch. Results of
    /// methods are no parameters.
    InterfaceDescription describeInterface() const;
    std::vector<VariableDescription> describeVariables(const wchar_t* type) const;

  private:
    ComPtr<ITypeLib> library_;
};

/// The help text of a type, or of a member of it.
std::string helpOf(ITypeInfo* type, MEMBERID member = MEMBERID_NIL);

}  // namespace pellmark
