#pragma once

#include <windows.h>

#include <oleauto.h>

#include <map>
#include <string>

#include "automation/Automation.h"

namespace pellmark {

/// An automation object with properties by name, as a script would write it. Counts its references.
class TestObject final : public IDispatch {
  public:
    static ComPtr<TestObject> make() { return ComPtr<TestObject>::adopt(new TestObject); }

    void set(const std::wstring& name, VariantArg value) {
        if (!names_.contains(name)) names_.emplace(name, static_cast<DISPID>(names_.size() + 1));
        values_[names_[name]] = std::move(value);
    }
    ULONG references() const { return references_; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid != IID_IUnknown && iid != IID_IDispatch) return E_NOINTERFACE;
        *object = this;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        const auto found = names_.find(names[0]);
        ids[0] = found == names_.end() ? DISPID_UNKNOWN : found->second;
        return found == names_.end() ? DISP_E_UNKNOWNNAME : S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                     UINT*) override {
        const auto found = values_.find(id);
        if (found == values_.end()) return DISP_E_MEMBERNOTFOUND;
        if (result != nullptr) *result = VariantArg(found->second).release();
        return S_OK;
    }

  private:
    TestObject() = default;
    ~TestObject() = default;

    std::map<std::wstring, DISPID> names_;
    std::map<DISPID, VariantArg> values_;
    ULONG references_ = 1;
};

}  // namespace pellmark
