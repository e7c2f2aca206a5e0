#include "refhost/automation/ClassFactory.h"

#include "automation/Guard.h"

namespace norvex {

HRESULT ClassFactory::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
}

ULONG ClassFactory::AddRef() {
    return ++references_;
}

ULONG ClassFactory::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    HRESULT answer = E_FAIL;
    const HRESULT made = pellmark::guarded("Norvex", [&] { answer = make_()->QueryInterface(iid, object); });
    return FAILED(made) ? made : answer;
}

HRESULT ClassFactory::LockServer(BOOL lock) {
    if (lock != FALSE) {
        pellmark::module::Lock::add();
    } else {
        pellmark::module::Lock::remove();
    }
    return S_OK;
}

}  // namespace norvex
