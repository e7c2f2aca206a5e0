#include "win32/table/RowDescription.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "win32/WideText.h"

#include <oleacc.h>

namespace pellmark::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The system's service as far as it is used, and nothing of the rest.
class RecordingService final : public IAccPropServices {
  public:
    std::vector<std::string> calls;
    int references = 0;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
    ULONG STDMETHODCALLTYPE Release() override { return static_cast<ULONG>(--references); }
    HRESULT STDMETHODCALLTYPE SetHwndPropStr(HWND, DWORD object, DWORD child, MSAAPROPID,
                                             LPCWSTR text) override {
        calls.push_back(std::to_string(child) + " " + fromWide(text));
        return object == static_cast<DWORD>(OBJID_CLIENT) ? S_OK : E_INVALIDARG;
    }
    HRESULT STDMETHODCALLTYPE ClearHwndProps(HWND, DWORD, DWORD child, const MSAAPROPID*, int) override {
        calls.push_back(std::to_string(child) + " cleared");
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                            AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                                AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*,
                                                          DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                                 AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override {
        return E_NOTIMPL;
    }
};

TEST(RowDescriptionTest, TheDescriptionStandsAtTheCurrentRowAlone) {
    RecordingService service;
    {
        RowDescription description(nullptr, &service);
        description.show(0, "");
        EXPECT_THAT(service.calls, IsEmpty());
        description.show(4, "attached to no feature case");
        description.show(4, "attached to no feature case");
        description.show(6, "attached to no feature case");
        EXPECT_THAT(service.calls, ElementsAre("5 attached to no feature case", "5 cleared",
                                               "7 attached to no feature case"));
        service.calls.clear();
        description.show(2, "");
        EXPECT_THAT(service.calls, ElementsAre("7 cleared"));
        description.show(3, "x");
        service.calls.clear();
    }
    EXPECT_THAT(service.calls, ElementsAre("4 cleared")) << "nothing stays behind";
    EXPECT_EQ(service.references, 0);
}

TEST(RowDescriptionTest, WithoutTheSystemsServiceNothingHappens) {
    RowDescription description(nullptr);
    description.show(1, "x");
    description.show(-1, "");
}

}  // namespace
}  // namespace pellmark::test
