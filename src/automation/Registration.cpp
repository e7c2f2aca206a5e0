#include "automation/Registration.h"

#include <combaseapi.h>

#include <cwchar>

#include "automation/Guard.h"
#include "automation/Module.h"

namespace pellmark {

namespace {

constexpr const wchar_t* kClasses = L"Software\\Classes\\";
// the system's own marshaller of interfaces that a type library describes
constexpr const wchar_t* kTypeLibraryMarshaller = L"{00020424-0000-0000-C000-000000000046}";
constexpr const wchar_t* kVersion = L"1.0";

std::wstring textOf(REFGUID id) {
    constexpr int kLength = 39;
    wchar_t text[kLength] = {};
    ::StringFromGUID2(id, text, kLength);
    return text;
}

std::wstring keyOf(const RegisteredClass& each) {
    return L"CLSID\\" + textOf(each.id);
}
std::wstring keyOf(const RegisteredInterface& each) {
    return L"Interface\\" + textOf(each.id);
}
std::wstring libraryKey(const Server& server) {
    return L"TypeLib\\" + textOf(server.typeLibrary);
}
std::wstring versionedProgId(const RegisteredClass& each) {
    return std::wstring(each.progId) + L".1";
}

using Entries = std::vector<RegistrationEntry>;

void addClass(Entries& entries, const RegisteredClass& each, const Server& server, const std::wstring& path) {
    const std::wstring progId = each.progId;
    const std::wstring versioned = versionedProgId(each);
    const std::wstring key = keyOf(each);
    entries.insert(entries.end(), {{progId, L"", each.description},
                                   {progId + L"\\CLSID", L"", textOf(each.id)},
                                   {progId + L"\\CurVer", L"", versioned},
                                   {versioned, L"", each.description},
                                   {versioned + L"\\CLSID", L"", textOf(each.id)},
                                   {key, L"", each.description},
                                   {key + L"\\InprocServer32", L"", path},
                                   {key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
                                   {key + L"\\ProgID", L"", versioned},
                                   {key + L"\\VersionIndependentProgID", L"", progId},
                                   {key + L"\\TypeLib", L"", textOf(server.typeLibrary)},
                                   {key + L"\\Version", L"", kVersion},
                                   {key + L"\\Programmable", L"", L""}});
}

void addLibrary(Entries& entries, const Server& server, const std::wstring& path) {
    const std::wstring key = libraryKey(server) + L"\\" + kVersion;
    entries.insert(entries.end(), {{key, L"", server.description},
                                   {key + L"\\0\\win64", L"", path},
                                   {key + L"\\FLAGS", L"", L"0"},
                                   {key + L"\\HELPDIR", L"", path.substr(0, path.find_last_of(L'\\'))}});
}

void addInterface(Entries& entries, const RegisteredInterface& each, const Server& server) {
    const std::wstring key = keyOf(each);
    entries.insert(entries.end(), {{key, L"", each.name},
                                   {key + L"\\ProxyStubClsid32", L"", kTypeLibraryMarshaller},
                                   {key + L"\\TypeLib", L"", textOf(server.typeLibrary)},
                                   {key + L"\\TypeLib", L"Version", kVersion}});
}

LSTATUS write(HKEY hive, const RegistrationEntry& entry) {
    const auto bytes = static_cast<DWORD>((entry.value.size() + 1) * sizeof(wchar_t));
    return ::RegSetKeyValueW(hive, (kClasses + entry.key).c_str(),
                             entry.name.empty() ? nullptr : entry.name.c_str(), REG_SZ, entry.value.c_str(),
                             bytes);
}

}  // namespace

Entries registrationEntries(const Server& server, const std::wstring& dllPath) {
    Entries entries;
    for (const RegisteredClass& each : server.classes)
        addClass(entries, each, server, dllPath);
    addLibrary(entries, server, dllPath);
    for (const RegisteredInterface& each : server.interfaces)
        addInterface(entries, each, server);
    return entries;
}

HRESULT registerServer(const Server& server, HKEY hive, const std::wstring& dllPath) {
    for (const RegistrationEntry& entry : registrationEntries(server, dllPath)) {
        const LSTATUS status = write(hive, entry);
        if (status != ERROR_SUCCESS) {
            unregisterServer(server, hive);
            return HRESULT_FROM_WIN32(static_cast<DWORD>(status));
        }
    }
    return S_OK;
}

HRESULT unregisterServer(const Server& server, HKEY hive) {
    LSTATUS failure = ERROR_SUCCESS;
    const auto remove = [&](const std::wstring& key) {
        const LSTATUS status = ::RegDeleteTreeW(hive, (kClasses + key).c_str());
        if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) failure = status;
    };
    for (const RegisteredClass& each : server.classes) {
        remove(each.progId);
        remove(versionedProgId(each));
        remove(keyOf(each));
    }
    remove(libraryKey(server));
    for (const RegisteredInterface& each : server.interfaces)
        remove(keyOf(each));
    return failure == ERROR_SUCCESS ? S_OK : HRESULT_FROM_WIN32(static_cast<DWORD>(failure));
}

HRESULT installServer(const Server& server, bool install, const wchar_t* commandLine) noexcept {
    HKEY hive = HKEY_LOCAL_MACHINE;
    if (commandLine != nullptr && *commandLine != L'\0') {
        if (::_wcsicmp(commandLine, L"user") != 0) return E_INVALIDARG;
        hive = HKEY_CURRENT_USER;
    }
    HRESULT answer = E_FAIL;
    const HRESULT guard = trapAsResult(server.name, [&] {
        answer = install ? registerServer(server, hive, module::path()) : unregisterServer(server, hive);
    });
    return FAILED(guard) ? guard : answer;
}

}  // namespace pellmark
