#include "refhost/automation/TypeLibrary.h"

#include "automation/Guard.h"
#include "automation/Module.h"

namespace norvex {

HRESULT loadTypeInfo(REFIID interfaceId, ITypeInfo** info) {
    HRESULT code = E_FAIL;
    const HRESULT guard = pellmark::guarded("Norvex", [&] {
        pellmark::ComPtr<ITypeLib> library;
        code = LoadTypeLibEx(pellmark::module::path().c_str(), REGKIND_NONE, library.receive());
        if (SUCCEEDED(code)) code = library->GetTypeInfoOfGuid(interfaceId, info);
    });
    return FAILED(guard) ? guard : code;
}

}  // namespace norvex
