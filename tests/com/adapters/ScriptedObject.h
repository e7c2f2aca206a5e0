#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "automation/Automation.h"

namespace pellmark::test {

/// An automation object whose members are lambdas: what a script would write, and an eye on what crosses the
/// boundary. Lives on the heap, counted.
class ScriptedObject : public IDispatch {
  public:
    using Values = std::vector<VariantArg>;
    using Member = std::function<VariantArg(const Values&)>;

    static ComPtr<ScriptedObject> make() { return ComPtr<ScriptedObject>(new ScriptedObject); }

    ScriptedObject& on(const std::wstring& name, Member member) {
        members_.emplace_back(name, std::move(member));
        return *this;
    }
    ScriptedObject& on(const std::wstring& name, const VariantArg& value) {
        return on(name, [value](const Values&) { return value; });
    }
    /// The member fails with this result code; DISP_E_EXCEPTION brings the details along.
    ScriptedObject& failing(const std::wstring& name, HRESULT code, EXCEPINFO details = {}) {
        failures_[name] = {code, details};
        return on(name, VariantArg());
    }
    /// The next question for a name is refused.
    void refuseTheNextName(HRESULT code) { refusal_ = code; }
    /// From now on nothing can be asked any more, as after the end of the object's process.
    void goneWith(HRESULT code) { goneWith_ = code; }

    int calls(const std::wstring& name) const {
        const auto found = calls_.find(name);
        return found == calls_.end() ? 0 : found->second;
    }
    int allCalls() const {
        int sum = 0;
        for (const auto& [name, count] : calls_)
            sum += count;
        return sum;
    }
    int nameLookups() const { return nameLookups_; }
    ULONG references() const { return references_; }
    WORD lastFlags() const { return lastFlags_; }

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
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        ++nameLookups_;
        if (goneWith_ != S_OK) return goneWith_;
        if (const HRESULT refusal = std::exchange(refusal_, S_OK); refusal != S_OK) return refusal;
        for (std::size_t at = 0; at < members_.size(); ++at) {
            if (_wcsicmp(members_[at].first.c_str(), names[0]) != 0) continue;
            ids[0] = static_cast<DISPID>(at);
            return S_OK;
        }
        ids[0] = DISPID_UNKNOWN;
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT*) override {
        const auto& [name, member] = members_.at(static_cast<std::size_t>(id));
        ++calls_[name];
        lastFlags_ = flags;
        if (const auto failure = failures_.find(name); failure != failures_.end()) {
            if (exception != nullptr) *exception = failure->second.second;
            return failure->second.first;
        }
        Values values;
        for (UINT at = parameters->cArgs; at > 0; --at) {
            values.push_back(VariantArg::dereferenced(parameters->rgvarg[at - 1]));
        }
        VariantArg answer = member(values);
        if (result != nullptr) *result = answer.release();
        return S_OK;
    }

  private:
    ScriptedObject() = default;
    virtual ~ScriptedObject() = default;

    std::vector<std::pair<std::wstring, Member>> members_;
    std::map<std::wstring, std::pair<HRESULT, EXCEPINFO>> failures_;
    std::map<std::wstring, int> calls_;
    int nameLookups_ = 0;
    HRESULT goneWith_ = S_OK;
    HRESULT refusal_ = S_OK;
    WORD lastFlags_ = 0;
    ULONG references_ = 0;
};

inline ComPtr<IDispatch> dispatchOf(const ComPtr<ScriptedObject>& object) {
    return ComPtr<IDispatch>(object.get());
}

/// A value as an object answers it.
inline VariantArg objectValue(const ComPtr<ScriptedObject>& object) {
    return dispatchOf(object);
}

/// An array of variants, as a script's Array(...) makes it.
inline VariantArg scriptArray(const std::vector<VariantArg>& values) {
    VariantArg array;
    array.get().vt = VT_ARRAY | VT_VARIANT;
    array.get().parray = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(values.size()));
    for (LONG at = 0; at < static_cast<LONG>(values.size()); ++at) {
        VariantArg copy(values[static_cast<std::size_t>(at)]);
        SafeArrayPutElement(array.get().parray, &at, &copy.get());
    }
    return array;
}

}  // namespace pellmark::test
