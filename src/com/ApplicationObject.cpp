#include "com/ApplicationObject.h"

#include "automation/Coercion.h"
#include "automation/Guard.h"
#include "automation/TypeLibrary.h"
#include "com/CallTrace.h"

namespace pellmark {

namespace {

constexpr const char* kSource = "Pellmark.Application";

bool isProperty(Member member) {
    return member == Member::CurrentView || member == Member::NorvexApplication;
}

bool returnsText(Member member) {
    return member == Member::OpenProcess || member == Member::OpenFeatureCase;
}

template <class Type>
Type& required(Type* place, Member member) {
    if (place == nullptr)
        throw CallError(E_POINTER, "The place for the result of " + fromWide(nameOf(member)) + " is missing");
    return *place;
}

std::string textAt(const BSTR* place) {
    return place == nullptr ? std::string() : Bstr::toUtf8(*place);
}

}  // namespace

ApplicationObject::ApplicationObject(std::unique_ptr<ApplicationCalls> calls)
    : calls_(std::move(calls)), thread_([this] { end(); }) {}

void ApplicationObject::requireOwningThread() const {
    // windows belong to the thread that made them; a host that passes the bare pointer on is told so
    if (!thread_.isCurrent()) {
        throw CallError(RPC_E_WRONG_THREAD, "The component must be called on the thread that created it");
    }
}

template <class Body>
void ApplicationObject::run(const std::string& operation, Body&& body) {
    requireOwningThread();
    const ComPtr<ApplicationObject> alive(this);
    try {
        body();
    } catch (...) {
        traceRefusal(calls_->operations().trace(), operation);
        throw;
    }
}

template <class Body>
HRESULT ApplicationObject::answer(Member member, Body&& body) noexcept {
    return trapAsResult(kSource, [&] { run(fromWide(nameOf(member)), body); });
}

HRESULT ApplicationObject::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == IID__Application) {
        *object = static_cast<_Application*>(this);
    } else if (iid == IID_ISupportErrorInfo) {
        *object = static_cast<ISupportErrorInfo*>(this);
    } else if (iid == IID_IProvideClassInfo) {
        *object = static_cast<IProvideClassInfo*>(this);
    } else {
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

ULONG ApplicationObject::AddRef() {
    return ++references_;
}

ULONG ApplicationObject::Release() {
    const ULONG left = --references_;
    if (left > 0) return left;
    // until the end the object holds itself: whoever is called back on the way there may take and release
    // references without bringing the count to zero a second time
    references_ = 1;
    if (thread_.isCurrent()) {
        end();
    } else if (!thread_.handOver()) {
        // its windows went with the thread, and the host's objects belong to an apartment that is gone:
        // nothing could be ended properly any more, so it stays, and with it the DLL
        calls_->operations().trace().record("ApplicationObject::Release",
                                            "the thread of the object has ended: it cannot be released");
    }
    return 0;
}

HRESULT ApplicationObject::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT ApplicationObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return trapAsResult(kSource, [&] { *info = loadTypeInfo(IID__Application).release(); });
}

HRESULT ApplicationObject::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
    const std::optional<Member> member = findMember(names[0]);
    ids[0] = member ? static_cast<DISPID>(*member) : DISPID_UNKNOWN;
    bool allFound = member.has_value();
    for (UINT i = 1; i < count; ++i) {
        const std::optional<DISPID> parameter = member ? findParameter(*member, names[i]) : std::nullopt;
        ids[i] = parameter.value_or(DISPID_UNKNOWN);
        allFound = allFound && parameter.has_value();
    }
    return allFound ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT ApplicationObject::Invoke(DISPID id, REFIID iid, LCID, WORD flags, DISPPARAMS* arguments,
                                  VARIANT* result, EXCEPINFO* exception, UINT* argument) {
    if (iid != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (arguments == nullptr) return E_INVALIDARG;
    if (result != nullptr) ::VariantInit(result);
    return trapAsResult(kSource, exception, argument, [&] {
        const std::optional<Member> member = findMember(id);
        run(member ? fromWide(nameOf(*member)) : "Invoke", [&] {
            if (!member) throw CallError(DISP_E_MEMBERNOTFOUND, "There is no member " + std::to_string(id));
            VariantArg value = invoke(*member, flags, *arguments);
            if (result != nullptr) *result = value.release();
        });
    });
}

VariantArg ApplicationObject::invoke(Member member, WORD flags, const DISPPARAMS& arguments) {
    if (!isProperty(member)) {
        if ((flags & DISPATCH_METHOD) != 0) return invokeMethod(member, arguments);
        throw CallError(DISP_E_MEMBERNOTFOUND, fromWide(nameOf(member)) + " is a method");
    }
    if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0) {
        putProperty(member, arguments);
        return {};
    }
    if ((flags & DISPATCH_PROPERTYGET) == 0) {
        throw CallError(DISP_E_MEMBERNOTFOUND, fromWide(nameOf(member)) + " is a property");
    }
    if (arguments.cArgs != 0) {
        throw CallError(DISP_E_BADPARAMCOUNT, fromWide(nameOf(member)) + " takes no arguments");
    }
    return getProperty(member);
}

VariantArg ApplicationObject::invokeMethod(Member member, const DISPPARAMS& arguments) {
    const MethodCall call = pellmark::readCall(member, arguments);
    const std::string text = perform(member, call);
    return returnsText(member) ? VariantArg(text) : VariantArg();
}

VariantArg ApplicationObject::getProperty(Member member) const {
    if (member == Member::CurrentView) return static_cast<std::int32_t>(calls_->currentView());
    return norvexApplication_;
}

void ApplicationObject::putProperty(Member member, const DISPPARAMS& arguments) {
    if (arguments.cArgs != 1) {
        throw CallError(DISP_E_BADPARAMCOUNT, fromWide(nameOf(member)) + " takes one value");
    }
    try {
        if (member == Member::CurrentView) {
            calls_->setCurrentView(static_cast<FRView>(toInt32(arguments.rgvarg[0])));
        } else {
            const ComPtr<IDispatch> application = toObject(arguments.rgvarg[0]);
            if (!disposeRequested_) norvexApplication_ = application;
        }
    } catch (const CallError& error) {
        throw CallError(
            error.code(),
            fromWide(nameOf(member)) + " " + error.what() + "; given was " + describe(arguments.rgvarg[0]),
            0);
    }
}

std::string ApplicationObject::perform(Member member, const MethodCall& call) {
    Trace& trace = calls_->operations().trace();
    if (disposeRequested_) {
        trace.record(fromWide(nameOf(member)), "does nothing after Dispose");
        return {};
    }
    traceCall(trace, member, call);
    if (member == Member::Dispose) {
        requestDispose();
        return {};
    }
    if (call.host) norvexApplication_ = call.host;
    return performOn(*calls_, member, call);
}

std::string ApplicationObject::performOn(ApplicationCalls& calls, Member member, const MethodCall& call) {
    switch (member) {
        case Member::ShowWindowProcessesView:
            calls.showProcesses(call.host, call.description.processGuid);
            return {};
        case Member::ShowWindowProcessCaseView:
            calls.showProcessCase(call.host, call.description);
            return {};
        case Member::OpenProcess:
            return calls.openProcess(call.host, call.owner, call.description);
        case Member::EditFeatureCase:
            calls.editFeatureCase(call.host, call.owner, call.description);
            return {};
        case Member::OpenFeatureCase:
            return calls.openFeatureCase(call.host, call.owner, call.description);
        case Member::EditProcess:
            calls.editProcess(call.host, call.owner, call.description);
            return {};
        case Member::CurrentView:
        case Member::NorvexApplication:
        case Member::Dispose:
            break;
    }
    return {};
}

void ApplicationObject::requestDispose() {
    disposeRequested_ = true;
    calls_->operations().whenIdle([self = ComPtr<ApplicationObject>(this)] { self->dispose(); });
}

void ApplicationObject::dispose() noexcept {
    if (std::exchange(disposed_, true)) return;
    disposeRequested_ = true;
    trap(calls_->operations(), "ApplicationObject::dispose", [this] { calls_->dispose(); });
    norvexApplication_ = nullptr;
}

void ApplicationObject::end() noexcept {
    const Operations operations = calls_->operations();  // the component's own goes with it
    trap(operations, "ApplicationObject::end", [&] {
        operations.whenIdle([this, operations] {
            dispose();
            // after what the component has put off in its turn
            operations.whenIdle([this] {
                if (--references_ > 0) return;  // somebody on the way took a reference and keeps it
                references_ = 1;
                delete this;
            });
        });
    });
}

MethodCall ApplicationObject::readCall(Member member, const EarlyBound& arguments) {
    MethodCall call;
    if (arguments.host == nullptr || *arguments.host == nullptr) return call;
    call.host = ComPtr<IDispatch>(*arguments.host);
    if (arguments.owner != nullptr) call.owner = ComPtr<IDispatch>(*arguments.owner);
    CaseDescription& description = call.description;
    try {
        if (arguments.valuesGuids != nullptr) description.valueIds = toTexts(*arguments.valuesGuids);
    } catch (const CallError& error) {
        throw CallError(error.code(), "ValuesGuids of " + fromWide(nameOf(member)) + " " + error.what());
    }
    description.unit = arguments.featureCaseUnit;
    description.nvxFeatureType = arguments.nvxFeatureType;
    description.partTypeId = textAt(arguments.partTypeGuid);
    description.featureTypeId = textAt(arguments.featureTypeGuid);
    description.materialClassId = textAt(arguments.processMaterialClassGuid);
    description.processUnit = arguments.processUnit;
    description.processGuid = textAt(arguments.processGuid);
    description.processStepGuid = textAt(arguments.processStepGuid);
    return call;
}

HRESULT ApplicationObject::callEarlyBound(Member member, const EarlyBound& arguments,
                                          VARIANT* result) noexcept {
    return answer(member, [&] {
        ::VariantInit(&required(result, member));
        perform(member, readCall(member, arguments));
    });
}

HRESULT ApplicationObject::callEarlyBound(Member member, const EarlyBound& arguments, BSTR* result) noexcept {
    return answer(member, [&] {
        required(result, member) = nullptr;
        *result = Bstr(perform(member, readCall(member, arguments))).release();
    });
}

HRESULT ApplicationObject::get_CurrentView(::FRView* view) {
    return answer(Member::CurrentView, [&] {
        required(view, Member::CurrentView) = static_cast<::FRView>(calls_->currentView());
    });
}

HRESULT ApplicationObject::put_CurrentView(::FRView view) {
    return answer(Member::CurrentView, [&] { calls_->setCurrentView(static_cast<FRView>(view)); });
}

HRESULT ApplicationObject::get_NorvexApplication(IDispatch** application) {
    return answer(Member::NorvexApplication, [&] {
        required(application, Member::NorvexApplication) = ComPtr<IDispatch>(norvexApplication_).release();
    });
}

HRESULT ApplicationObject::putref_NorvexApplication(IDispatch* application) {
    return answer(Member::NorvexApplication, [&] {
        if (!disposeRequested_) norvexApplication_ = ComPtr<IDispatch>(application);
    });
}

HRESULT ApplicationObject::ShowWindowProcessesView(IDispatch** host, BSTR* processGuid, VARIANT* result) {
    EarlyBound arguments{};
    arguments.host = host;
    arguments.processGuid = processGuid;
    return callEarlyBound(Member::ShowWindowProcessesView, arguments, result);
}

HRESULT ApplicationObject::ShowWindowProcessCaseView(IDispatch** host, SAFEARRAY** valuesGuids,
                                                     short featureCaseUnit, short nvxFeatureType,
                                                     BSTR* partTypeGuid, BSTR* featureTypeGuid,
                                                     BSTR* processMaterialClassGuid, short processUnit,
                                                     BSTR* processGuid, BSTR* processStepGuid,
                                                     VARIANT* result) {
    return callEarlyBound(
        Member::ShowWindowProcessCaseView,
        {host, nullptr, valuesGuids, featureCaseUnit, nvxFeatureType, partTypeGuid, featureTypeGuid,
         processMaterialClassGuid, processUnit, processGuid, processStepGuid},
        result);
}

HRESULT ApplicationObject::OpenProcess(IDispatch** host, IDispatch** owner, SAFEARRAY** valuesGuids,
                                       short featureCaseUnit, short nvxFeatureType, BSTR* partTypeGuid,
                                       BSTR* featureTypeGuid, BSTR* processMaterialClassGuid,
                                       short processUnit, BSTR* processGuid, BSTR* processStepGuid,
                                       BSTR* result) {
    return callEarlyBound(
        Member::OpenProcess,
        {host, owner, valuesGuids, featureCaseUnit, nvxFeatureType, partTypeGuid, featureTypeGuid,
         processMaterialClassGuid, processUnit, processGuid, processStepGuid},
        result);
}

HRESULT ApplicationObject::EditFeatureCase(IDispatch** host, IDispatch** owner, SAFEARRAY** valuesGuids,
                                           short featureCaseUnit, short nvxFeatureType, BSTR* partTypeGuid,
                                           BSTR* featureTypeGuid, BSTR* processMaterialClassGuid,
                                           short processUnit, BSTR* processGuid, BSTR* processStepGuid,
                                           VARIANT* result) {
    return callEarlyBound(
        Member::EditFeatureCase,
        {host, owner, valuesGuids, featureCaseUnit, nvxFeatureType, partTypeGuid, featureTypeGuid,
         processMaterialClassGuid, processUnit, processGuid, processStepGuid},
        result);
}

HRESULT ApplicationObject::OpenFeatureCase(IDispatch** host, IDispatch** owner, SAFEARRAY** valuesGuids,
                                           short featureCaseUnit, short nvxFeatureType, BSTR* partTypeGuid,
                                           BSTR* featureTypeGuid, BSTR* processMaterialClassGuid,
                                           short processUnit, BSTR* processGuid, BSTR* processStepGuid,
                                           BSTR* result) {
    return callEarlyBound(
        Member::OpenFeatureCase,
        {host, owner, valuesGuids, featureCaseUnit, nvxFeatureType, partTypeGuid, featureTypeGuid,
         processMaterialClassGuid, processUnit, processGuid, processStepGuid},
        result);
}

HRESULT ApplicationObject::EditProcess(IDispatch** host, IDispatch** owner, SAFEARRAY** valuesGuids,
                                       short featureCaseUnit, short nvxFeatureType, BSTR* partTypeGuid,
                                       BSTR* featureTypeGuid, BSTR* processMaterialClassGuid,
                                       short processUnit, BSTR* processGuid, BSTR* processStepGuid,
                                       VARIANT* result) {
    return callEarlyBound(
        Member::EditProcess,
        {host, owner, valuesGuids, featureCaseUnit, nvxFeatureType, partTypeGuid, featureTypeGuid,
         processMaterialClassGuid, processUnit, processGuid, processStepGuid},
        result);
}

HRESULT ApplicationObject::Dispose(VARIANT* result) {
    return callEarlyBound(Member::Dispose, EarlyBound{}, result);
}

HRESULT ApplicationObject::InterfaceSupportsErrorInfo(REFIID iid) {
    return iid == IID__Application || iid == IID_IDispatch ? S_OK : S_FALSE;
}

HRESULT ApplicationObject::GetClassInfo(ITypeInfo** info) {
    if (info == nullptr) return E_POINTER;
    *info = nullptr;
    return trapAsResult(kSource, [&] { *info = loadTypeInfo(CLSID_Application).release(); });
}

}  // namespace pellmark
