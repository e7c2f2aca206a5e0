#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "automation/Automation.h"
#include "automation/Module.h"

namespace norvex {

/// The arguments of one call, by position from 0. Reading takes what scripts pass: references to variants,
/// numbers of any type, arrays of variants. What cannot be understood ends the call with the matching
/// automation error.
class Arguments {
  public:
    explicit Arguments(const DISPPARAMS& parameters) : parameters_(parameters) {}

    std::size_t count() const { return parameters_.cArgs; }
    std::string text(std::size_t position) const;
    std::int16_t int16(std::size_t position) const;
    std::int32_t int32(std::size_t position) const;
    /// As it came, for what the other readers do not take.
    const VARIANT& value(std::size_t position) const { return at(position); }
    std::vector<std::string> texts(std::size_t position) const;
    /// The units of a text argument, which must be one.
    std::u16string packedText(std::size_t position) const;

  private:
    const VARIANT& at(std::size_t position) const;

    const DISPPARAMS& parameters_;
};

/// A late-bound automation object: a list of members, each with the number that the type library gives it and
/// a function that carries it out. Lives as long as somebody holds a reference.
class AutomationObject : public IDispatch {
  public:
    using Function = std::function<pellmark::VariantArg(const Arguments&)>;
    using Put = std::function<void(const Arguments&)>;

    AutomationObject(const AutomationObject&) = delete;
    AutomationObject& operator=(const AutomationObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* argument) override;

  protected:
    /// `name` is the source of errors, `interfaceId` the dispatch interface in the type library.
    AutomationObject(const char* name, REFIID interfaceId) : name_(name), interfaceId_(interfaceId) {}
    virtual ~AutomationObject() = default;

    /// Members that take no arguments are also read as properties, and properties are also called.
    void method(DISPID id, const wchar_t* name, std::size_t arguments, Function function);
    void property(DISPID id, const wchar_t* name, Function get, Put put = nullptr);

  private:
    struct Member {
        DISPID id;
        const wchar_t* name;
        std::size_t arguments;
        Function call;
        Put put;
    };

    const Member* find(DISPID id) const;
    pellmark::VariantArg invoke(DISPID id, WORD flags, const DISPPARAMS& parameters);
    /// The same; what fails is told in the language of the moment.
    pellmark::VariantArg invokeTranslated(DISPID id, WORD flags, const DISPPARAMS& parameters);

    const char* name_;
    IID interfaceId_;
    std::vector<Member> members_;
    std::atomic<ULONG> references_{0};
    pellmark::module::Lock lock_;
};

/// A new object as its first owner holds it.
template <class Object, class... Args>
pellmark::ComPtr<IDispatch> makeObject(Args&&... args) {
    return pellmark::ComPtr<IDispatch>(new Object(std::forward<Args>(args)...));
}

}  // namespace norvex
