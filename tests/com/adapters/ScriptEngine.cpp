#include "com/adapters/ScriptEngine.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace pellmark::test {

ScriptEngine::ScriptEngine(const std::wstring& file) {
    wscript_->on(L"Echo", [this](const ScriptedObject::Values& values) {
        echoed_.push_back(DispatchResult(values.at(0), "WScript.Echo").text());
        return VariantArg();
    });
    std::ifstream in(std::filesystem::path(file), std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    if (!in) throw std::runtime_error("the script is not there");
    CLSID id{};
    CLSIDFromProgID(L"VBScript", &id);
    if (FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IActiveScript, engine_.receiveVoid())))
        throw std::runtime_error("there is no VBScript engine");
    ComPtr<IActiveScriptParse> parser;
    engine_->QueryInterface(__uuidof(IActiveScriptParse), parser.receiveVoid());
    parser->InitNew();
    engine_->SetScriptSite(this);
    engine_->AddNamedItem(L"WScript", SCRIPTITEM_ISVISIBLE);
    const std::wstring code = toWide(text.str());
    EXPECT_EQ(parser->ParseScriptText(code.c_str(), nullptr, nullptr, nullptr, 0, 0, SCRIPTTEXT_ISVISIBLE,
                                      nullptr, nullptr),
              S_OK);
    EXPECT_EQ(engine_->SetScriptState(SCRIPTSTATE_CONNECTED), S_OK);
}

ScriptEngine::~ScriptEngine() {
    engine_->Close();
}

ComPtr<IDispatch> ScriptEngine::global() {
    ComPtr<IDispatch> object;
    engine_->GetScriptDispatch(nullptr, object.receive());
    return object;
}

HRESULT ScriptEngine::QueryInterface(REFIID iid, void** object) {
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IActiveScriptSite) return E_NOINTERFACE;
    *object = static_cast<IActiveScriptSite*>(this);
    return S_OK;
}

HRESULT ScriptEngine::GetLCID(LCID* locale) {
    *locale = MAKELCID(MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US), SORT_DEFAULT);
    return S_OK;
}

HRESULT ScriptEngine::GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item, ITypeInfo** type) {
    if (item != nullptr) *item = nullptr;
    if (type != nullptr) *type = nullptr;
    if (std::wstring_view(name) != L"WScript" || (mask & SCRIPTINFO_IUNKNOWN) == 0)
        return TYPE_E_ELEMENTNOTFOUND;
    *item = dispatchOf(wscript_).release();
    return S_OK;
}

HRESULT ScriptEngine::OnScriptError(IActiveScriptError* error) {
    EXCEPINFO details{};
    DWORD context = 0;
    ULONG line = 0;
    LONG column = 0;
    error->GetExceptionInfo(&details);
    error->GetSourcePosition(&context, &line, &column);
    ADD_FAILURE() << "line " << line + 1 << ": " << Bstr::toUtf8(details.bstrDescription);
    return S_OK;
}

}  // namespace pellmark::test
