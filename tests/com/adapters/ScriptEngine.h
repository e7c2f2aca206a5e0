#pragma once

#include <string>
#include <vector>

#include "automation/DispatchObject.h"
#include "com/adapters/ScriptedObject.h"
// needs the system's types before it
#include <activscp.h>

namespace pellmark::test {

/// The system's VBScript engine inside the test program, so that an object of a script can be handed to the
/// component's adapters. A script finds WScript with its Echo.
class ScriptEngine : public IActiveScriptSite {
  public:
    /// Runs the file; a mistake in it ends the test with the engine's words.
    explicit ScriptEngine(const std::wstring& file);
    ScriptEngine(const ScriptEngine&) = delete;
    ScriptEngine& operator=(const ScriptEngine&) = delete;
    virtual ~ScriptEngine();

    /// The script's own object, whose members are its functions.
    ComPtr<IDispatch> global();
    const std::vector<std::string>& echoed() const { return echoed_; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetLCID(LCID* locale) override;
    HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item,
                                          ITypeInfo** type) override;
    HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError* error) override;
    HRESULT STDMETHODCALLTYPE OnEnterScript() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnLeaveScript() override { return S_OK; }

  private:
    ComPtr<IActiveScript> engine_;
    ComPtr<ScriptedObject> wscript_ = ScriptedObject::make();
    std::vector<std::string> echoed_;
};

}  // namespace pellmark::test
