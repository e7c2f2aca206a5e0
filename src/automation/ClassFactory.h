#pragma once

#include "win32/WindowsApi.h"

#include <unknwn.h>

#include <atomic>

#include "automation/Automation.h"
#include "automation/Module.h"

namespace pellmark {

/// Makes the objects of one class.
class ClassFactory final : public IClassFactory {
  public:
    using Make = ComPtr<IDispatch> (*)();

    /// Answers DllGetClassObject with a factory over `make`, or with CLASS_E_CLASSNOTAVAILABLE for null.
    /// `source` names the DLL in error texts.
    static HRESULT give(const char* source, Make make, REFIID iid, void** object) noexcept;

    ClassFactory(const ClassFactory&) = delete;
    ClassFactory& operator=(const ClassFactory&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

  private:
    /// Starts with one reference, the caller's.
    ClassFactory(const char* source, Make make) : source_(source), make_(make) {}
    ~ClassFactory() = default;

    module::Lock moduleLock_;
    std::atomic<ULONG> references_{1};
    const char* source_;
    Make make_;
};

}  // namespace pellmark
