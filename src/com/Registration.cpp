#include "com/Registration.h"

#include "Pellmark.h"

namespace pellmark {

namespace {

constexpr const wchar_t* kClasses = L"Software\\Classes\\";
constexpr const wchar_t* kDescription = L"Pellmark Process Manager";
constexpr const wchar_t* kProgId = L"Pellmark.Application";
constexpr const wchar_t* kVersionedProgId = L"Pellmark.Application.1";
// the system's own marshaller of interfaces that a type library describes
constexpr const wchar_t* kTypeLibraryMarshaller = L"{00020424-0000-0000-C000-000000000046}";
constexpr const wchar_t* kVersion = L"1.0";

std::wstring textOf(REFGUID id) {
    constexpr int kLength = 39;
    wchar_t text[kLength] = {};
    ::StringFromGUID2(id, text, kLength);
    return text;
}

std::wstring classKey() {
    return L"CLSID\\" + textOf(CLSID_Application);
}
std::wstring libraryKey() {
    return L"TypeLib\\" + textOf(LIBID_Pellmark);
}
std::wstring interfaceKey() {
    return L"Interface\\" + textOf(IID__Application);
}

LSTATUS write(HKEY hive, const RegistrationEntry& entry) {
    HKEY key = nullptr;
    LSTATUS status = ::RegCreateKeyExW(hive, (kClasses + entry.key).c_str(), 0, nullptr, 0, KEY_SET_VALUE,
                                       nullptr, &key, nullptr);
    if (status != ERROR_SUCCESS) return status;
    const auto bytes = static_cast<DWORD>((entry.value.size() + 1) * sizeof(wchar_t));
    status = ::RegSetValueExW(key, entry.name.empty() ? nullptr : entry.name.c_str(), 0, REG_SZ,
                              reinterpret_cast<const BYTE*>(entry.value.c_str()), bytes);
    ::RegCloseKey(key);
    return status;
}

}  // namespace

std::vector<RegistrationEntry> registrationEntries(const std::wstring& dllPath) {
    const std::wstring clsid = textOf(CLSID_Application);
    const std::wstring libid = textOf(LIBID_Pellmark);
    const std::wstring folder = dllPath.substr(0, dllPath.find_last_of(L'\\'));
    const std::wstring library = libraryKey() + L"\\" + kVersion;
    return {
        {kProgId, L"", kDescription},
        {std::wstring(kProgId) + L"\\CLSID", L"", clsid},
        {std::wstring(kProgId) + L"\\CurVer", L"", kVersionedProgId},
        {kVersionedProgId, L"", kDescription},
        {std::wstring(kVersionedProgId) + L"\\CLSID", L"", clsid},
        {classKey(), L"", kDescription},
        {classKey() + L"\\InprocServer32", L"", dllPath},
        {classKey() + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
        {classKey() + L"\\ProgID", L"", kVersionedProgId},
        {classKey() + L"\\VersionIndependentProgID", L"", kProgId},
        {classKey() + L"\\TypeLib", L"", libid},
        {classKey() + L"\\Version", L"", kVersion},
        {classKey() + L"\\Programmable", L"", L""},
        {library, L"", L"Pellmark Process Manager 1.0"},
        {library + L"\\0\\win64", L"", dllPath},
        {library + L"\\FLAGS", L"", L"0"},
        {library + L"\\HELPDIR", L"", folder},
        {interfaceKey(), L"", L"_Application"},
        {interfaceKey() + L"\\ProxyStubClsid32", L"", kTypeLibraryMarshaller},
        {interfaceKey() + L"\\TypeLib", L"", libid},
        {interfaceKey() + L"\\TypeLib", L"Version", kVersion},
    };
}

HRESULT registerServer(HKEY hive, const std::wstring& dllPath) {
    for (const RegistrationEntry& entry : registrationEntries(dllPath)) {
        const LSTATUS status = write(hive, entry);
        if (status != ERROR_SUCCESS) {
            unregisterServer(hive);
            return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
        }
    }
    return S_OK;
}

HRESULT unregisterServer(HKEY hive) {
    LSTATUS failure = ERROR_SUCCESS;
    for (const std::wstring& key :
         {std::wstring(kProgId), std::wstring(kVersionedProgId), classKey(), libraryKey(), interfaceKey()}) {
        const LSTATUS status = ::RegDeleteTreeW(hive, (kClasses + key).c_str());
        if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) failure = status;
    }
    return failure == ERROR_SUCCESS ? S_OK : HRESULT_FROM_WIN32(static_cast<DWORD>(failure));
}

}  // namespace pellmark
