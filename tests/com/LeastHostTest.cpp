#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <utility>

#include "automation/DispatchObject.h"
#include "com/DuringModal.h"
#include "com/LoadedServer.h"
#include "com/adapters/ExpectError.h"
#include "com/adapters/ScriptedObject.h"

namespace pellmark {
namespace {

using test::objectValue;
using test::ScriptedObject;

/// A class of this program under a ProgID, as docs/host-interface.md says: a factory, and one key of the
/// registry.
class OwnClass : public IClassFactory {
  public:
    using Make = std::function<ComPtr<ScriptedObject>()>;

    OwnClass(std::wstring progId, Make make) : key_(L"Software\\Classes\\" + progId), make_(std::move(make)) {
        CoCreateGuid(&id_);
        wchar_t text[39] = {};
        StringFromGUID2(id_, text, static_cast<int>(std::size(text)));
        RegSetKeyValueW(HKEY_LOCAL_MACHINE, (key_ + L"\\CLSID").c_str(), nullptr, REG_SZ, text, sizeof text);
        CoRegisterClassObject(id_, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_);
    }
    OwnClass(const OwnClass&) = delete;
    OwnClass& operator=(const OwnClass&) = delete;
    virtual ~OwnClass() {
        CoRevokeClassObject(cookie_);
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, key_.c_str());
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid != IID_IUnknown && iid != IID_IClassFactory) return E_NOINTERFACE;
        *object = this;
        return S_OK;
    }
    // It lives as long as the test.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID iid, void** object) override {
        return make_()->QueryInterface(iid, object);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

  private:
    std::wstring key_;
    Make make_;
    CLSID id_{};
    DWORD cookie_ = 0;
};

/// Two processes, field by field.
ComPtr<ScriptedObject> twoProcesses() {
    const auto records = ScriptedObject::make();
    const auto at = std::make_shared<int>(0);
    records->on(L"Fields", VariantArg("_Id|_Name|_Unit|_Rule|_Description"));
    records->on(L"EOF", [at](const ScriptedObject::Values&) { return VariantArg(*at == 2); });
    records->on(L"MoveNext", [at](const ScriptedObject::Values&) {
        ++*at;
        return VariantArg();
    });
    records->on(L"Field", [at](const ScriptedObject::Values& values) {
        if (DispatchResult(values.at(0), "").text() != "_Id") return VariantArg("71");
        return VariantArg("{C200E360-38C5-11CE-AE62-08002B2B79E" + std::to_string(*at) + "}");
    });
    return records;
}

/// Nothing but the members that docs/host-interface.md calls the least.
class LeastHostTest : public testing::Test {
  protected:
    LeastHostTest() {
        SetEnvironmentVariableW(L"PELLMARK_LOG", folder_.c_str());
        CreateDirectoryW(folder_.c_str(), nullptr);
        DeleteFileW(log().c_str());
        host_->on(L"MainWindowHandle",
                  VariantArg(static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(window_))));
        host_->on(L"InstallationFolder", VariantArg("C:\\Cam"));
        const auto language = ScriptedObject::make();
        language->on(L"LanguageCode", VariantArg(1));
        host_->on(L"LanguageSettings", objectValue(language));
    }
    ~LeastHostTest() override {
        DestroyWindow(window_);
        SetEnvironmentVariableW(L"PELLMARK_LOG", nullptr);
    }

    static ComPtr<ScriptedObject> makeService() {
        const auto store = ScriptedObject::make();
        store->on(L"Processes", [](const ScriptedObject::Values&) { return objectValue(twoProcesses()); });
        store->on(L"OrphanProcesses",
                  [](const ScriptedObject::Values&) { return objectValue(twoProcesses()); });
        const auto service = ScriptedObject::make();
        service->on(L"IsConnected", VariantArg(true));
        service->on(L"ProcessStore", objectValue(store));
        return service;
    }
    static BOOL CALLBACK seekList(HWND window, LPARAM found) {
        wchar_t name[32] = {};
        GetClassNameW(window, name, static_cast<int>(std::size(name)));
        if (std::wstring(name) != WC_LISTVIEWW || !IsWindowVisible(window)) return TRUE;
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    }
    /// The rows of the list inside the host's window; -1 where none is shown.
    int rowsShown() const {
        HWND list = nullptr;
        EnumChildWindows(window_, &seekList, reinterpret_cast<LPARAM>(&list));
        return list == nullptr ? -1 : static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    }
    std::wstring log() const {
        return folder_ + L"\\Pellmark-com_tests-" + std::to_wstring(GetCurrentProcessId()) + L".log";
    }
    std::string trace() const {
        std::ifstream file(std::filesystem::path(log()), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    Apartment apartment_;
    LoadedServer server_;
    std::wstring folder_ = programFolder() + L"\\log-test";
    HWND window_ = CreateWindowExW(0, L"Static", L"Cam", WS_OVERLAPPEDWINDOW | WS_VISIBLE | WS_CLIPCHILDREN,
                                   0, 0, 900, 700, nullptr, nullptr, nullptr, nullptr);
    ComPtr<ScriptedObject> host_ = ScriptedObject::make();
};

TEST_F(LeastHostTest, ShowsItsProcessesWithAClassOfThisProgramAndNoOther) {
    const OwnClass service(L"Norvex.KnowledgeBaseService", &makeService);
    const ComPtr<_Application> manager = server_.create();
    IDispatch* host = host_.get();
    VARIANT result;
    EXPECT_EQ(manager->ShowWindowProcessesView(&host, nullptr, &result), S_OK);
    EXPECT_EQ(rowsShown(), 2);
    manager->Dispose(&result);
    EXPECT_THAT(trace(), testing::AllOf(testing::HasSubstr("Norvex.TranslationService cannot be created"),
                                        testing::HasSubstr("Norvex.LanguageConverter cannot be created"),
                                        testing::Not(testing::HasSubstr("is missing"))));
}

TEST_F(LeastHostTest, WithoutItsKnowledgeBaseEveryMethodNamesTheMissingClassToItsCaller) {
    const DuringModal confirmed(window_);
    const ComPtr<_Application> application = server_.create();
    DispatchObject manager(ComPtr<IDispatch>(application.get()), "Manager");
    const auto expectMissing = [](const auto& call) {
        test::expectError(errors::kHostInterface, "class Norvex.KnowledgeBaseService cannot be created",
                          call);
    };
    expectMissing([&] { manager.call("ShowWindowProcessesView", {objectValue(host_)}); });
    expectMissing([&] { manager.call("ShowWindowProcessCaseView", {objectValue(host_), "value"}); });
    for (const char* member : {"OpenProcess", "OpenFeatureCase", "EditFeatureCase", "EditProcess"}) {
        SCOPED_TRACE(member);
        expectMissing([&] {
            manager.call(member, {objectValue(host_), VariantArg(ComPtr<IDispatch>()), "value"});
        });
    }
    manager.call("Dispose");
}

}  // namespace
}  // namespace pellmark
