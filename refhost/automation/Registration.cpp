#include "refhost/automation/Registration.h"

#include <string>

#include "automation/Automation.h"
#include "automation/Module.h"
#include "refhost/automation/Identifiers.h"

namespace norvex {

const CreatableClass kClasses[kCreatableClasses] = {
    {kApplicationClass, L"Norvex.Application", L"Norvex host application"},
    {kKnowledgeBaseServiceClass, L"Norvex.KnowledgeBaseService", L"Norvex machining knowledge base"},
    {kTranslationServiceClass, L"Norvex.TranslationService", L"Norvex texts in the language of the user"},
    {kLanguageConverterClass, L"Norvex.LanguageConverter", L"Norvex language codes and Windows locales"},
    {kTechnologyServiceClass, L"Norvex.TechnologyService", L"Norvex technology of process steps"},
};

namespace {

std::wstring textOf(const GUID& id) {
    wchar_t text[39] = {};
    StringFromGUID2(id, text, static_cast<int>(std::size(text)));
    return text;
}

std::wstring classKey(const CreatableClass& each) {
    return L"Software\\Classes\\CLSID\\" + textOf(each.id);
}

std::wstring progIdKey(const CreatableClass& each) {
    return std::wstring(L"Software\\Classes\\") + each.progId;
}

LSTATUS write(HKEY hive, const std::wstring& key, const wchar_t* name, const std::wstring& value) {
    const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    return RegSetKeyValueW(hive, key.c_str(), name, REG_SZ, value.c_str(), bytes);
}

LSTATUS writeClass(HKEY hive, const CreatableClass& each, const std::wstring& path) {
    LSTATUS failure = write(hive, progIdKey(each), nullptr, each.description);
    if (failure == 0) failure = write(hive, progIdKey(each) + L"\\CLSID", nullptr, textOf(each.id));
    if (failure == 0) failure = write(hive, classKey(each), nullptr, each.description);
    if (failure == 0) failure = write(hive, classKey(each) + L"\\InprocServer32", nullptr, path);
    if (failure == 0)
        failure = write(hive, classKey(each) + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
    if (failure == 0) failure = write(hive, classKey(each) + L"\\ProgID", nullptr, each.progId);
    if (failure == 0) failure = write(hive, classKey(each) + L"\\TypeLib", nullptr, textOf(kTypeLibrary));
    return failure;
}

std::wstring libraryKey() {
    return L"Software\\Classes\\TypeLib\\" + textOf(kTypeLibrary);
}

LSTATUS writeLibrary(HKEY hive, const std::wstring& path) {
    LSTATUS failure = write(hive, libraryKey() + L"\\1.0", nullptr, L"Norvex Reference Host 1.0");
    if (failure == 0) failure = write(hive, libraryKey() + L"\\1.0\\0\\win64", nullptr, path);
    if (failure == 0) failure = write(hive, libraryKey() + L"\\1.0\\FLAGS", nullptr, L"0");
    return failure;
}

}  // namespace

HRESULT registerLibrary(HKEY hive) {
    const std::wstring path = pellmark::module::path();
    LSTATUS failure = writeLibrary(hive, path);
    for (const auto& each : kClasses) {
        if (failure == 0) failure = writeClass(hive, each, path);
    }
    if (failure == 0) return S_OK;
    unregisterLibrary(hive);
    return HRESULT_FROM_WIN32(static_cast<DWORD>(failure));
}

HRESULT unregisterLibrary(HKEY hive) {
    LSTATUS failure = 0;
    const auto remove = [&](const std::wstring& key) {
        const LSTATUS status = RegDeleteTreeW(hive, key.c_str());
        if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) failure = status;
    };
    for (const auto& each : kClasses) {
        remove(classKey(each));
        remove(progIdKey(each));
    }
    remove(libraryKey());
    return failure == 0 ? S_OK : HRESULT_FROM_WIN32(static_cast<DWORD>(failure));
}

}  // namespace norvex
