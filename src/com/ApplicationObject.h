#pragma once

#include "win32/WindowsApi.h"

#include <oaidl.h>
#include <ocidl.h>

#include <atomic>
#include <memory>
#include <string>

#include "Pellmark.h"
#include "automation/Automation.h"
#include "automation/Module.h"
#include "com/ApplicationCalls.h"
#include "com/MethodCall.h"
#include "com/OwningThread.h"

namespace pellmark {

/// The automation object: early-bound and late-bound calls become calls on the component. One per component;
/// it belongs to the thread that made it. It ends the component only while nothing of it is on the stack, and
/// only on that thread, wherever and whenever the last reference is released.
class ApplicationObject final : public _Application, public ISupportErrorInfo, public IProvideClassInfo {
  public:
    /// Starts with one reference, the caller's.
    explicit ApplicationObject(std::unique_ptr<ApplicationCalls> calls);
    ApplicationObject(const ApplicationObject&) = delete;
    ApplicationObject& operator=(const ApplicationObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* arguments,
                                     VARIANT* result, EXCEPINFO* exception, UINT* argument) override;

    HRESULT STDMETHODCALLTYPE get_CurrentView(::FRView* view) override;
    HRESULT STDMETHODCALLTYPE put_CurrentView(::FRView view) override;
    HRESULT STDMETHODCALLTYPE get_NorvexApplication(IDispatch** application) override;
    HRESULT STDMETHODCALLTYPE putref_NorvexApplication(IDispatch* application) override;
    HRESULT STDMETHODCALLTYPE ShowWindowProcessesView(IDispatch** host, BSTR* processGuid,
                                                      VARIANT* result) override;
    HRESULT STDMETHODCALLTYPE ShowWindowProcessCaseView(IDispatch** host, SAFEARRAY** valuesGuids,
                                                        short featureCaseUnit, short nvxFeatureType,
                                                        BSTR* partTypeGuid, BSTR* featureTypeGuid,
                                                        BSTR* processMaterialClassGuid, short processUnit,
                                                        BSTR* processGuid, BSTR* processStepGuid,
                                                        VARIANT* result) override;
    HRESULT STDMETHODCALLTYPE OpenProcess(IDispatch** host, IDispatch** owner, SAFEARRAY** valuesGuids,
                                          short featureCaseUnit, short nvxFeatureType, BSTR* partTypeGuid,
                                          BSTR* featureTypeGuid, BSTR* processMaterialClassGuid,
                                          short processUnit, BSTR* processGuid, BSTR* processStepGuid,
                                          BSTR* result) override;
    HRESULT STDMETHODCALLTYPE EditFeatureCase(IDispatch** host, IDispatch** owner, SAFEARRAY** valuesGuids,
                                              short featureCaseUnit, short nvxFeatureType, BSTR* partTypeGuid,
                                              BSTR* featureTypeGuid, BSTR* processMaterialClassGuid,
                                              short processUnit, BSTR* processGuid, BSTR* processStepGuid,
                                              VARIANT* result) override;
    HRESULT STDMETHODCALLTYPE OpenFeatureCase(IDispatch** host, IDispatch** owner, SAFEARRAY** valuesGuids,
                                              short featureCaseUnit, short nvxFeatureType, BSTR* partTypeGuid,
                                              BSTR* featureTypeGuid, BSTR* processMaterialClassGuid,
                                              short processUnit, BSTR* processGuid, BSTR* processStepGuid,
                                              BSTR* result) override;
    HRESULT STDMETHODCALLTYPE EditProcess(IDispatch** host, IDispatch** owner, SAFEARRAY** valuesGuids,
                                          short featureCaseUnit, short nvxFeatureType, BSTR* partTypeGuid,
                                          BSTR* featureTypeGuid, BSTR* processMaterialClassGuid,
                                          short processUnit, BSTR* processGuid, BSTR* processStepGuid,
                                          VARIANT* result) override;
    HRESULT STDMETHODCALLTYPE Dispose(VARIANT* result) override;

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;
    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override;

  private:
    /// The arguments of an early-bound call as they came; null references are taken as omitted.
    struct EarlyBound {
        IDispatch** host;
        IDispatch** owner;
        SAFEARRAY** valuesGuids;
        short featureCaseUnit;
        short nvxFeatureType;
        BSTR* partTypeGuid;
        BSTR* featureTypeGuid;
        BSTR* processMaterialClassGuid;
        short processUnit;
        BSTR* processGuid;
        BSTR* processStepGuid;
    };
    ~ApplicationObject() = default;

    /// Runs a method or property: on the owning thread alone, and with a reference of the object's own, since
    /// the caller may let go of its last one meanwhile. A failure is traced and thrown on.
    template <class Body>
    void run(const std::string& operation, Body&& body);
    /// The same, early-bound.
    template <class Body>
    HRESULT answer(Member member, Body&& body) noexcept;
    void requireOwningThread() const;

    VariantArg invoke(Member member, WORD flags, const DISPPARAMS& arguments);
    VariantArg invokeMethod(Member member, const DISPPARAMS& arguments);
    VariantArg getProperty(Member member) const;
    void putProperty(Member member, const DISPPARAMS& arguments);
    HRESULT callEarlyBound(Member member, const EarlyBound& arguments, VARIANT* result) noexcept;
    HRESULT callEarlyBound(Member member, const EarlyBound& arguments, BSTR* result) noexcept;
    static MethodCall readCall(Member member, const EarlyBound& arguments);
    /// The picked identifier; "" for the methods that return nothing.
    std::string perform(Member member, const MethodCall& call);
    std::string performOn(ApplicationCalls& calls, Member member, const MethodCall& call);
    /// Lets the component go when nothing of it runs any more; from now on calls do nothing.
    void requestDispose();
    void dispose() noexcept;
    /// The same, and the object with it. The object then holds the one reference that is left.
    void end() noexcept;

    module::Lock moduleLock_;
    std::atomic<ULONG> references_{1};
    std::unique_ptr<ApplicationCalls> calls_;
    ComPtr<IDispatch> norvexApplication_;
    bool disposeRequested_ = false;
    bool disposed_ = false;
    OwningThread thread_;
};

}  // namespace pellmark
