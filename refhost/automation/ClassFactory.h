#pragma once

#include "automation/Automation.h"
#include "automation/Module.h"

namespace norvex {

/// Makes the objects of one class.
class ClassFactory : public IClassFactory {
  public:
    using Make = pellmark::ComPtr<IDispatch> (*)();

    explicit ClassFactory(Make make) : make_(make) {}
    virtual ~ClassFactory() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

  private:
    Make make_;
    ULONG references_ = 0;
    pellmark::module::Lock lock_;
};

}  // namespace norvex
