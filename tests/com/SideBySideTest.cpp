#include <gtest/gtest.h>

#include "com/LoadedServer.h"
#include "support/win32/ActivatedManifest.h"

namespace pellmark {
namespace {

HRESULT createByName(ComPtr<_Application>& object) {
    CLSID id{};
    const HRESULT code = CLSIDFromProgID(L"Pellmark.Application", &id);
    if (FAILED(code)) return code;
    return CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID__Application, object.receiveVoid());
}

TEST(SideBySideTest, TheClassIsFoundThroughTheManifestAlone) {
    const Apartment apartment;
    LoadedServer().unregisterServer();
    ComPtr<_Application> object;
    ASSERT_TRUE(FAILED(createByName(object))) << "the class is registered, so this test would show nothing";
    {
        const test::ActivatedManifest manifest(programFolder() + L"\\Pellmark.manifest");
        EXPECT_EQ(createByName(object), S_OK);
    }
    ASSERT_TRUE(object);
    ::FRView view = FRProcesscase;
    EXPECT_EQ(object->get_CurrentView(&view), S_OK);
}

TEST(SideBySideTest, TheDllCarriesTheShippedManifestAndThatOfTheThemedControls) {
    const LoadedServer server;
    const HMODULE module = GetModuleHandleW(L"Pellmark.dll");
    for (const int id : {1, 2}) {
        const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(id), MAKEINTRESOURCEW(24));
        ASSERT_NE(found, nullptr) << id;
        const std::string text(static_cast<const char*>(LockResource(LoadResource(module, found))),
                               SizeofResource(module, found));
        EXPECT_NE(text.find(id == 1 ? "Pellmark.Application" : "Microsoft.Windows.Common-Controls"),
                  std::string::npos);
    }
}

TEST(SideBySideTest, TheDllSaysItsVersion) {
    const LoadedServer server;
    const HMODULE module = GetModuleHandleW(L"Pellmark.dll");
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(16));
    ASSERT_NE(found, nullptr);
    const std::wstring text(static_cast<const wchar_t*>(LockResource(LoadResource(module, found))),
                            SizeofResource(module, found) / sizeof(wchar_t));
    EXPECT_NE(text.find(L"1.0.0"), std::wstring::npos);
}

}  // namespace
}  // namespace pellmark
