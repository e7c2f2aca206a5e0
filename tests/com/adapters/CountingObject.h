#pragma once

#include "automation/Automation.h"

namespace pellmark::test {

/// Stands in front of another automation object and counts the calls that cross to it and to every object it
/// gives out.
class CountingObject : public IDispatch {
  public:
    static ComPtr<IDispatch> wrap(ComPtr<IDispatch> inner, int& calls) {
        return ComPtr<IDispatch>(new CountingObject(std::move(inner), calls));
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        *object = nullptr;
        if (iid != IID_IUnknown && iid != IID_IDispatch) return E_NOINTERFACE;
        *object = static_cast<IDispatch*>(this);
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
        return inner_->GetTypeInfoCount(count);
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
        return inner_->GetTypeInfo(index, locale, info);
    }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override {
        ++calls_;
        return inner_->GetIDsOfNames(iid, names, count, locale, ids);
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* argument) override {
        ++calls_;
        const HRESULT code = inner_->Invoke(id, iid, locale, flags, parameters, result, exception, argument);
        if (SUCCEEDED(code) && result != nullptr && result->vt == VT_DISPATCH &&
            result->pdispVal != nullptr) {
            result->pdispVal = wrap(ComPtr<IDispatch>::adopt(result->pdispVal), calls_).release();
        }
        return code;
    }

  private:
    CountingObject(ComPtr<IDispatch> inner, int& calls) : inner_(std::move(inner)), calls_(calls) {}
    virtual ~CountingObject() = default;

    ComPtr<IDispatch> inner_;
    int& calls_;
    ULONG references_ = 0;
};

}  // namespace pellmark::test
