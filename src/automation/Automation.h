#pragma once

#include "win32/WindowsApi.h"
// the lean windows.h leaves these out
#include <oleauto.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "win32/WideText.h"

/// Ownership of automation's three resources: references, texts and variants. Nothing here throws but for
/// lack of memory, and nothing converts silently.
namespace pellmark {

/// A counted reference to an automation object; may be empty.
template <class Interface>
class ComPtr {
  public:
    ComPtr() = default;
    ComPtr(std::nullptr_t) {}
    /// Adds a reference of its own.
    explicit ComPtr(Interface* pointer) : pointer_(pointer) {
        if (pointer_ != nullptr) pointer_->AddRef();
    }
    ComPtr(const ComPtr& other) : ComPtr(other.pointer_) {}
    ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }
    ~ComPtr() {
        if (pointer_ != nullptr) pointer_->Release();
    }

    /// Takes over a reference that the caller owns.
    static ComPtr adopt(Interface* pointer) {
        ComPtr owner;
        owner.pointer_ = pointer;
        return owner;
    }

    Interface* get() const { return pointer_; }
    Interface* operator->() const { return pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }
    /// Gives the reference away.
    [[nodiscard]] Interface* release() { return std::exchange(pointer_, nullptr); }
    /// Drops the reference and offers its place to a call that returns a new one.
    Interface** receive() {
        *this = nullptr;
        return &pointer_;
    }
    void** receiveVoid() { return reinterpret_cast<void**>(receive()); }

    /// The same object's other interface; empty when it has none.
    template <class Other>
    ComPtr<Other> query() const {
        ComPtr<Other> other;
        if (pointer_ != nullptr) pointer_->QueryInterface(__uuidof(Other), other.receiveVoid());
        return other;
    }

  private:
    Interface* pointer_ = nullptr;
};

/// An automation text that is freed with its owner. An empty text and no text are the same, as BSTR has it.
class Bstr {
  public:
    Bstr() = default;
    explicit Bstr(std::string_view utf8) : Bstr(ofUnits(toUtf16(utf8))) {}
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
    Bstr& operator=(Bstr&& other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    ~Bstr() { SysFreeString(text_); }

    static Bstr adopt(BSTR text) {
        Bstr owner;
        owner.text_ = text;
        return owner;
    }

    /// Of UTF-16 as it is, lone surrogates included.
    static Bstr ofUnits(std::u16string_view units) {
        const BSTR text = SysAllocStringLen(reinterpret_cast<const wchar_t*>(units.data()),
                                            static_cast<UINT>(units.size()));
        if (text == nullptr) throw std::bad_alloc();
        return adopt(text);
    }

    BSTR get() const { return text_; }
    [[nodiscard]] BSTR release() { return std::exchange(text_, nullptr); }
    /// Frees the text and offers its place to a call that returns a new one.
    BSTR* receive() {
        SysFreeString(release());
        return &text_;
    }
    std::string utf8() const { return toUtf8(text_); }

    /// UTF-8 of a text that somebody else owns; NULL is the empty text.
    static std::string toUtf8(BSTR text) { return pellmark::toUtf8(units(text)); }
    /// Its UTF-16 without a copy.
    static std::u16string_view units(BSTR text) {
        if (text == nullptr) return {};
        return {reinterpret_cast<const char16_t*>(text), SysStringLen(text)};
    }

  private:
    BSTR text_ = nullptr;
};

/// A variant that is cleared with its owner.
class VariantArg {
  public:
    VariantArg() { VariantInit(&value_); }
    VariantArg(bool value) : VariantArg() {
        value_.vt = VT_BOOL;
        value_.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    }
    VariantArg(std::int16_t value) : VariantArg() {
        value_.vt = VT_I2;
        value_.iVal = value;
    }
    VariantArg(std::int32_t value) : VariantArg() {
        value_.vt = VT_I4;
        value_.lVal = value;
    }
    VariantArg(std::int64_t value) : VariantArg() {
        value_.vt = VT_I8;
        value_.llVal = value;
    }
    VariantArg(double value) : VariantArg() {
        value_.vt = VT_R8;
        value_.dblVal = value;
    }
    VariantArg(std::string_view utf8) : VariantArg(Bstr(utf8)) {}
    VariantArg(const std::string& utf8) : VariantArg(std::string_view(utf8)) {}
    VariantArg(const char* utf8) : VariantArg(std::string_view(utf8)) {}
    template <class Other>
    VariantArg(Other*) = delete;  // a pointer would otherwise become True
    VariantArg(Bstr text) : VariantArg() {
        value_.vt = VT_BSTR;
        value_.bstrVal = text.release();
    }
    /// An empty reference becomes Nothing.
    VariantArg(ComPtr<IDispatch> object) : VariantArg() {
        value_.vt = VT_DISPATCH;
        value_.pdispVal = object.release();
    }
    VariantArg(const VariantArg& other) : VariantArg() {
        if (FAILED(VariantCopy(&value_, const_cast<VARIANT*>(&other.value_)))) throw std::bad_alloc();
    }
    VariantArg(VariantArg&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
    VariantArg& operator=(VariantArg other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    ~VariantArg() { VariantClear(&value_); }

    /// Takes over a variant and leaves the place it came from empty.
    static VariantArg adopt(VARIANT& value) {
        VariantArg owner;
        std::swap(owner.value_, value);
        return owner;
    }
    /// A copy with references (VT_BYREF) resolved, as a script's variables arrive. A reference to nowhere is
    /// Empty.
    static VariantArg dereferenced(const VARIANT& value) {
        VariantArg copy;
        if ((value.vt & VT_BYREF) != 0 && value.byref == nullptr) return copy;
        if (FAILED(VariantCopyInd(&copy.value_, const_cast<VARIANT*>(&value)))) VariantClear(&copy.value_);
        return copy;
    }
    /// The value of an argument that a caller leaves out.
    static VariantArg missing() {
        VariantArg value;
        value.value_.vt = VT_ERROR;
        value.value_.scode = DISP_E_PARAMNOTFOUND;
        return value;
    }

    VARTYPE type() const { return value_.vt; }
    const VARIANT& get() const { return value_; }
    VARIANT& get() { return value_; }
    /// Clears the value and offers its place to a call that returns a new one.
    VARIANT* receive() {
        VariantClear(&value_);
        return &value_;
    }
    [[nodiscard]] VARIANT release() {
        VARIANT given = value_;
        VariantInit(&value_);
        return given;
    }

  private:
    VARIANT value_;
};

}  // namespace pellmark
