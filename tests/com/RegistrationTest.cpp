#include "com/Registration.h"

#include <gtest/gtest.h>

#include "com/LoadedServer.h"

namespace pellmark {
namespace {

constexpr const wchar_t* kClassKey = L"Software\\Classes\\CLSID\\{1BA2D325-DDF5-4800-9059-4B1A7F6C9109}";

std::wstring valueAt(HKEY hive, const std::wstring& key, const wchar_t* name) {
    wchar_t text[1024] = {};
    DWORD bytes = sizeof text;
    const LSTATUS status = RegGetValueW(hive, key.c_str(), name, RRF_RT_REG_SZ, nullptr, text, &bytes);
    return status == ERROR_SUCCESS ? text : L"(missing)";
}

/// Registers for everybody and takes it back at the end, whatever the test does.
class RegistrationTest : public testing::Test {
  protected:
    void TearDown() override {
        server_.unregisterServer();
        server_.install(FALSE, L"user");
    }

    Apartment apartment_;
    LoadedServer server_;
    std::wstring dll_ = programFolder() + L"\\Pellmark.dll";
};

TEST_F(RegistrationTest, ARegisteredClassIsFoundByItsNames) {
    ASSERT_EQ(server_.registerServer(), S_OK);
    for (const wchar_t* name : {L"Pellmark.Application", L"Pellmark.Application.1"}) {
        CLSID id{};
        ASSERT_EQ(CLSIDFromProgID(name, &id), S_OK);
        ComPtr<_Application> object;
        EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID__Application, object.receiveVoid()),
                  S_OK);
    }
    CoFreeUnusedLibrariesEx(0, 0);
}

TEST_F(RegistrationTest, ARegisteredClassSaysItsNameWithAndWithoutItsVersion) {
    ASSERT_EQ(server_.registerServer(), S_OK);
    LPOLESTR name = nullptr;
    ASSERT_EQ(ProgIDFromCLSID(CLSID_Application, &name), S_OK);
    EXPECT_STREQ(name, L"Pellmark.Application.1");
    CoTaskMemFree(name);
    EXPECT_EQ(valueAt(HKEY_CLASSES_ROOT, L"Pellmark.Application\\CurVer", nullptr),
              L"Pellmark.Application.1");
    EXPECT_EQ(valueAt(HKEY_LOCAL_MACHINE, std::wstring(kClassKey) + L"\\VersionIndependentProgID", nullptr),
              L"Pellmark.Application");
}

TEST_F(RegistrationTest, ARegisteredTypeLibraryIsFoundByItsId) {
    ASSERT_EQ(server_.registerServer(), S_OK);
    ComPtr<ITypeLib> library;
    EXPECT_EQ(LoadRegTypeLib(LIBID_Pellmark, 1, 0, LOCALE_NEUTRAL, library.receive()), S_OK);
    ComPtr<IRecordInfo> record;
    const GUID pNodeId = {0x99bb9e4d, 0x893c, 0x4178, {0xbd, 0x2b, 0xe0, 0xab, 0xce, 0x16, 0x67, 0x69}};
    EXPECT_EQ(GetRecordInfoFromGuids(LIBID_Pellmark, 1, 0, LOCALE_NEUTRAL, pNodeId, record.receive()), S_OK);
}

TEST_F(RegistrationTest, ACallFromAnotherApartmentIsMarshalledByTheTypeLibrary) {
    ASSERT_EQ(server_.registerServer(), S_OK);
    EXPECT_EQ(valueAt(HKEY_LOCAL_MACHINE, std::wstring(kClassKey) + L"\\InprocServer32", L"ThreadingModel"),
              L"Apartment");
    EXPECT_EQ(
        valueAt(HKEY_LOCAL_MACHINE,
                L"Software\\Classes\\Interface\\{96DAEF04-1753-4A2C-B322-F524D79A9083}\\ProxyStubClsid32",
                nullptr),
        L"{00020424-0000-0000-C000-000000000046}");
}

TEST_F(RegistrationTest, RegistrationForEverybodyNamesTheDllAndIsTakenBackWhole) {
    ASSERT_EQ(server_.registerServer(), S_OK);
    EXPECT_EQ(valueAt(HKEY_LOCAL_MACHINE, std::wstring(kClassKey) + L"\\InprocServer32", nullptr), dll_);
    ASSERT_EQ(server_.unregisterServer(), S_OK);
    for (const RegistrationEntry& entry : registrationEntries(componentServer(), dll_)) {
        EXPECT_EQ(valueAt(HKEY_LOCAL_MACHINE, L"Software\\Classes\\" + entry.key, entry.name.c_str()),
                  L"(missing)");
    }
}

TEST_F(RegistrationTest, RegistrationForTheUserWritesForTheUserAlone) {
    ASSERT_EQ(server_.install(TRUE, L"user"), S_OK);
    for (const RegistrationEntry& entry : registrationEntries(componentServer(), dll_)) {
        const std::wstring key = L"Software\\Classes\\" + entry.key;
        EXPECT_EQ(valueAt(HKEY_CURRENT_USER, key, entry.name.c_str()), entry.value);
        EXPECT_EQ(valueAt(HKEY_LOCAL_MACHINE, key, entry.name.c_str()), L"(missing)");
    }
    ASSERT_EQ(server_.install(FALSE, L"user"), S_OK);
    EXPECT_EQ(valueAt(HKEY_CURRENT_USER, kClassKey, nullptr), L"(missing)");
}

TEST_F(RegistrationTest, TakingBackWhatIsNotThereIsNoFailure) {
    EXPECT_EQ(server_.unregisterServer(), S_OK);
    EXPECT_EQ(server_.install(FALSE, nullptr), S_OK);
}

TEST_F(RegistrationTest, RegisteringTwiceIsHarmless) {
    EXPECT_EQ(server_.registerServer(), S_OK);
    EXPECT_EQ(server_.registerServer(), S_OK);
}

TEST(RegistrationFailureTest, AHiveThatCannotBeWrittenAnswersWithTheSystemsCode) {
    // no open key, so every write fails
    EXPECT_TRUE(
        FAILED(registerServer(componentServer(), reinterpret_cast<HKEY>(0x1234), L"C:\\Pellmark.dll")));
}

}  // namespace
}  // namespace pellmark
