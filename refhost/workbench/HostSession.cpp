#include "refhost/workbench/HostSession.h"

#include "base/Error.h"
#include "base/Text.h"
#include "com/adapters/KnowledgeBaseAdapter.h"

namespace norvex {

using pellmark::ComPtr;
using pellmark::DispatchObject;
using pellmark::VariantArg;

DispatchObject createObject(const char* progId) {
    CLSID classId{};
    ComPtr<IDispatch> object;
    HRESULT code = CLSIDFromProgID(pellmark::toWide(progId).c_str(), &classId);
    if (SUCCEEDED(code)) {
        code = CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.receiveVoid());
    }
    if (FAILED(code)) {
        throw pellmark::Error(code, progId,
                              std::string("The class ") + progId +
                                  " cannot be created. Its DLL and manifest must lie beside Workbench.exe.");
    }
    return {std::move(object), progId};
}

HostSession::HostSession(HWND mainWindow) : application_(createObject("Norvex.Application")) {
    application_.put("MainWindowHandle",
                     static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(mainWindow)));
}

void HostSession::open(const std::string& file) {
    knowledgeBase_.reset();
    service_.reset();
    isReadOnly_ = false;
    if (!file.empty()) application_.put("KnowledgeBaseFile", file);
    auto service = std::make_unique<DispatchObject>(createObject("Norvex.KnowledgeBaseService"));
    service->call("Connect");
    isReadOnly_ = service->call("IsReadOnly").boolean();
    knowledgeBase_ = std::make_unique<pellmark::KnowledgeBaseAdapter>(
        DispatchObject(service->pointer(), "Norvex.KnowledgeBaseService"));
    service_ = std::move(service);
}

std::string HostSession::knowledgeBaseFile() {
    return application_.call("KnowledgeBaseFile").text();
}

std::vector<std::string> HostSession::users() {
    if (!service_) return {};
    return pellmark::split(service_->call("Users").text(), '|');
}

std::string HostSession::user() {
    return application_.call("CurrentUser").text();
}

void HostSession::setUser(const std::string& name) {
    application_.put("CurrentUser", name);
}

std::int16_t HostSession::language() {
    return application_.call("LanguageSettings").object().call("LanguageCode").int16();
}

void HostSession::setLanguage(std::int16_t code) {
    application_.call("LanguageSettings").object().put("LanguageCode", code);
}

std::int16_t HostSession::unit() {
    return application_.call("CurrentUnit").int16();
}

void HostSession::setUnit(std::int16_t code) {
    application_.put("CurrentUnit", code);
}

}  // namespace norvex
