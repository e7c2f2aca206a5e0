#include "automation/ClassFactory.h"

#include <new>

#include "automation/Guard.h"

namespace pellmark {

HRESULT ClassFactory::give(const char* source, Make make, REFIID iid, void** object) noexcept {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (make == nullptr) return CLASS_E_CLASSNOTAVAILABLE;
    const auto factory = ComPtr<ClassFactory>::adopt(new (std::nothrow) ClassFactory(source, make));
    return factory ? factory->QueryInterface(iid, object) : E_OUTOFMEMORY;
}

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
    const HRESULT made = trapAsResult(source_, [&] { answer = make_()->QueryInterface(iid, object); });
    return FAILED(made) ? made : answer;
}

HRESULT ClassFactory::LockServer(BOOL lock) {
    if (lock != FALSE) {
        module::Lock::add();
    } else {
        module::Lock::remove();
    }
    return S_OK;
}

}  // namespace pellmark
