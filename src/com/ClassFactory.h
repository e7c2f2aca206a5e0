#pragma once

#include "win32/WindowsApi.h"

#include <unknwn.h>

#include <atomic>
#include <memory>

#include "automation/Module.h"
#include "com/ApplicationCalls.h"

namespace pellmark {

/// Makes automation objects, each with a component of its own.
class ClassFactory final : public IClassFactory {
  public:
    using ComposeComponent = std::unique_ptr<ApplicationCalls> (*)();

    /// Starts with one reference, the caller's.
    explicit ClassFactory(ComposeComponent compose) : compose_(compose) {}
    ClassFactory(const ClassFactory&) = delete;
    ClassFactory& operator=(const ClassFactory&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

  private:
    ~ClassFactory() = default;

    module::Lock moduleLock_;
    std::atomic<ULONG> references_{1};
    ComposeComponent compose_;
};

}  // namespace pellmark
