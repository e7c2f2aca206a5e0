#include "refhost/automation/NorvexLibrary.h"

#include <stdexcept>

namespace pellmark::test {

NorvexLibrary::NorvexLibrary() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    manifest_.emplace(folder() + L"\\Norvex.manifest");
}

NorvexLibrary::~NorvexLibrary() {
    manifest_.reset();
    CoUninitialize();
}

ComPtr<IDispatch> NorvexLibrary::create(const wchar_t* progId) const {
    CLSID classId{};
    ComPtr<IDispatch> object;
    if (FAILED(CLSIDFromProgID(progId, &classId)) ||
        FAILED(
            CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.receiveVoid()))) {
        throw std::runtime_error("a class of Norvex.dll cannot be created");
    }
    return object;
}

std::wstring NorvexLibrary::folder() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring whole = path;
    return whole.substr(0, whole.find_last_of(L'\\'));
}

void NorvexLibrary::useKnowledgeBase(const std::string& path) {
    SetEnvironmentVariableW(L"NORVEX_KNOWLEDGE_BASE", toWide(path).c_str());
}

}  // namespace pellmark::test
