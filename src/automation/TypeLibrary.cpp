#include "automation/TypeLibrary.h"

#include "automation/Guard.h"
#include "automation/Module.h"

namespace pellmark {

ComPtr<ITypeInfo> loadTypeInfo(REFGUID id) {
    ComPtr<ITypeLib> library;
    HRESULT code = ::LoadTypeLibEx(module::path().c_str(), REGKIND_NONE, library.receive());
    ComPtr<ITypeInfo> info;
    if (SUCCEEDED(code)) code = library->GetTypeInfoOfGuid(id, info.receive());
    if (FAILED(code)) throw CallError(code, "The type library in this DLL cannot be loaded");
    return info;
}

}  // namespace pellmark
