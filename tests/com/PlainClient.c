/* A host in plain C: no C++ run-time library that would swallow an exception on its way. It hands the component a
 * host object that fails in every way it can, calls everything well and badly, and prints what does not answer as
 * it should. */
#define COBJMACROS
#include <windows.h>
#include <oleauto.h>
#include <stdio.h>

#include "Pellmark.h"

static int failures = 0;

static void expect(int condition, const char* what) {
    if (!condition) {
        ++failures;
        printf("wrong: %s\n", what);
    }
}

/* A host object: knows no member, or fails in each of them with the given code. */
typedef struct Host {
    IDispatch dispatch;
    LONG references;
    BOOL knowsMembers;
    HRESULT answer;
} Host;

static HRESULT STDMETHODCALLTYPE hostQueryInterface(IDispatch* self, REFIID iid, void** object) {
    *object = NULL;
    if (!IsEqualIID(iid, &IID_IUnknown) && !IsEqualIID(iid, &IID_IDispatch)) return E_NOINTERFACE;
    *object = self;
    IDispatch_AddRef(self);
    return S_OK;
}
static ULONG STDMETHODCALLTYPE hostAddRef(IDispatch* self) { return (ULONG)++((Host*)self)->references; }
static ULONG STDMETHODCALLTYPE hostRelease(IDispatch* self) { return (ULONG)--((Host*)self)->references; }
static HRESULT STDMETHODCALLTYPE hostGetTypeInfoCount(IDispatch* self, UINT* count) {
    (void)self;
    *count = 0;
    return S_OK;
}
static HRESULT STDMETHODCALLTYPE hostGetTypeInfo(IDispatch* self, UINT index, LCID locale, ITypeInfo** info) {
    (void)self, (void)index, (void)locale;
    *info = NULL;
    return E_NOTIMPL;
}
static HRESULT STDMETHODCALLTYPE hostGetIDsOfNames(IDispatch* self, REFIID iid, LPOLESTR* names, UINT count,
                                                   LCID locale, DISPID* ids) {
    (void)iid, (void)names, (void)count, (void)locale;
    ids[0] = ((Host*)self)->knowsMembers ? 1 : DISPID_UNKNOWN;
    return ((Host*)self)->knowsMembers ? S_OK : DISP_E_UNKNOWNNAME;
}
static HRESULT STDMETHODCALLTYPE hostInvoke(IDispatch* self, DISPID id, REFIID iid, LCID locale, WORD flags,
                                            DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                            UINT* argument) {
    (void)id, (void)iid, (void)locale, (void)flags, (void)arguments, (void)argument;
    if (result) VariantInit(result);
    if (exception) memset(exception, 0, sizeof *exception);
    return ((Host*)self)->answer;
}

static IDispatchVtbl hostTable = {hostQueryInterface,   hostAddRef,      hostRelease,       hostGetTypeInfoCount,
                                  hostGetTypeInfo,      hostGetIDsOfNames, hostInvoke};

static void callEverything(_Application* application, IDispatch* hostObject) {
    IDispatch* owner = NULL;
    SAFEARRAY* values = SafeArrayCreateVector(VT_BSTR, 0, 2);
    BSTR text = SysAllocString(L"{C200E360-38C5-11CE-AE62-08002B2B79EF}");
    BSTR picked = NULL;
    VARIANT result;

    VariantInit(&result);
    _Application_ShowWindowProcessesView(application, &hostObject, &text, &result);
    _Application_ShowWindowProcessCaseView(application, &hostObject, &values, -1, -1, &text, &text, &text, -1, &text,
                                           &text, &result);
    _Application_OpenProcess(application, &hostObject, &owner, &values, -1, -1, &text, &text, &text, -1, &text,
                             &text, &picked);
    expect(SysStringLen(picked) == 0, "a pick that cannot be made is empty");
    SysFreeString(picked);
    picked = NULL;
    _Application_EditFeatureCase(application, &hostObject, &owner, NULL, -1, -1, NULL, NULL, NULL, -1, NULL, NULL,
                                 &result);
    _Application_OpenFeatureCase(application, &hostObject, NULL, NULL, -1, -1, NULL, NULL, NULL, -1, NULL, NULL,
                                 &picked);
    SysFreeString(picked);
    _Application_EditProcess(application, &hostObject, &owner, &values, -1, -1, &text, &text, &text, -1, &text,
                             &text, &result);
    expect(_Application_ShowWindowProcessesView(application, &hostObject, &text, NULL) == E_POINTER,
           "a missing place for the result is named");
    SafeArrayDestroy(values);
    SysFreeString(text);
}

static void callWithoutHost(_Application* application) {
    IDispatch* nothing = NULL;
    BSTR picked = (BSTR)1;
    VARIANT result;
    result.vt = VT_I4;
    expect(_Application_ShowWindowProcessesView(application, &nothing, NULL, &result) == S_OK, "no host is no failure");
    expect(result.vt == VT_EMPTY, "without a host the result is empty");
    expect(_Application_OpenProcess(application, &nothing, NULL, NULL, -1, -1, NULL, NULL, NULL, -1, NULL, NULL,
                                    &picked) == S_OK,
           "no host is no failure for a pick");
    expect(picked == NULL || SysStringLen(picked) == 0, "without a host the pick is empty");
    SysFreeString(picked);
}

static void invokeBadly(_Application* application) {
    VARIANT arguments[14];
    DISPPARAMS parameters = {arguments, NULL, 0, 0};
    DISPID unnamed = DISPID_PROPERTYPUT;
    DISPID id;
    UINT count;
    int type;

    for (count = 0; count < 14; ++count) {
        VariantInit(&arguments[count]);
    }
    /* every member with every number of arguments of every plain type, and with references to nowhere */
    for (id = -2; id < 12; ++id) {
        for (count = 0; count < 14; ++count) {
            for (type = VT_EMPTY; type <= VT_UINT; ++type) {
                UINT i;
                if (type == 15 || (id > 2 && id < 9 && (type == VT_DISPATCH || type == VT_UNKNOWN))) continue;
                for (i = 0; i < 14; ++i) {
                    memset(&arguments[i], 0, sizeof arguments[i]);
                    arguments[i].vt = (VARTYPE)type;
                }
                parameters.cArgs = count;
                IDispatch_Invoke((IDispatch*)application, id, &IID_NULL, 0, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                                 &parameters, NULL, NULL, NULL);
                for (i = 0; i < 14; ++i) {
                    arguments[i].vt = (VARTYPE)(VT_BYREF | type);
                }
                IDispatch_Invoke((IDispatch*)application, id, &IID_NULL, 0, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                                 &parameters, NULL, NULL, NULL);
            }
        }
    }
    memset(arguments, 0, sizeof arguments);
    arguments[0].vt = VT_I4;
    arguments[0].lVal = 5;
    parameters.cArgs = 1;
    expect(IDispatch_Invoke((IDispatch*)application, 3, &IID_NULL, 0, DISPATCH_METHOD, &parameters, NULL, NULL,
                            NULL) == DISP_E_TYPEMISMATCH,
           "a number in the host's place is a mismatch");
    parameters.rgdispidNamedArgs = &unnamed;
    parameters.cNamedArgs = 1;
    IDispatch_Invoke((IDispatch*)application, 2, &IID_NULL, 0, DISPATCH_PROPERTYPUT, &parameters, NULL, NULL, NULL);
}

static void useApplication(_Application* application) {
    Host stranger = {{&hostTable}, 1, FALSE, S_OK};
    Host failing = {{&hostTable}, 1, TRUE, E_FAIL};
    Host crashing = {{&hostTable}, 1, TRUE, DISP_E_EXCEPTION};
    IDispatch* object = &stranger.dispatch;
    VARIANT result;
    IErrorInfo* info = NULL;

    callWithoutHost(application);
    expect(FAILED(_Application_ShowWindowProcessesView(application, &object, NULL, &result)),
           "an object of another kind is refused");
    expect(GetErrorInfo(0, &info) == S_OK, "and the refusal has a text");
    if (info) IErrorInfo_Release(info);
    callEverything(application, &stranger.dispatch);
    callEverything(application, &failing.dispatch);
    callEverything(application, &crashing.dispatch);
    invokeBadly(application);
    expect(_Application_Dispose(application, &result) == S_OK, "Dispose");
    expect(_Application_Dispose(application, &result) == S_OK, "Dispose again");
    callEverything(application, &failing.dispatch);
    expect(stranger.references == 1 && failing.references == 1 && crashing.references == 1,
           "every reference to a host is given back");
}

/* A message box that the calls bring up is answered at once. */
static DWORD WINAPI answerBoxes(void* stop) {
    while (WaitForSingleObject((HANDLE)stop, 20) == WAIT_TIMEOUT) {
        HWND box = FindWindowW(L"#32770", NULL);
        if (box) PostMessageW(box, WM_COMMAND, IDOK, 0);
    }
    return 0;
}

int main(void) {
    typedef HRESULT(STDAPICALLTYPE * GetClassObject)(REFCLSID, REFIID, void**);
    HMODULE module;
    GetClassObject getClassObject;
    IClassFactory* factory = NULL;
    _Application* application = NULL;
    HANDLE stop = CreateEventW(NULL, TRUE, FALSE, NULL);
    HANDLE answering;

    OleInitialize(NULL);
    module = LoadLibraryW(L"Pellmark.dll");
    if (!module) return 2;
    getClassObject = (GetClassObject)GetProcAddress(module, "DllGetClassObject");
    if (!getClassObject || FAILED(getClassObject(&CLSID_Application, &IID_IClassFactory, (void**)&factory))) return 3;
    if (FAILED(IClassFactory_CreateInstance(factory, NULL, &IID__Application, (void**)&application))) return 4;
    answering = CreateThread(NULL, 0, answerBoxes, stop, 0, NULL);
    useApplication(application);
    expect(_Application_Release(application) == 0, "the last reference");
    IClassFactory_Release(factory);
    SetEvent(stop);
    WaitForSingleObject(answering, INFINITE);
    FreeLibrary(module);
    OleUninitialize();
    if (failures == 0) printf("all calls answered\n");
    return failures == 0 ? 0 : 1;
}
