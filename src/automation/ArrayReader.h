#pragma once

#include "win32/WindowsApi.h"

#include <oleauto.h>

#include <cstddef>
#include <span>

#include "automation/Automation.h"

namespace pellmark {

/// An array of automation that somebody else made, read in place. What its descriptor says is checked before
/// an element is touched: the data may have been destroyed, the bounds may be absurd, the elements of another
/// size than their type. Throws CallError with DISP_E_TYPEMISMATCH or DISP_E_OVERFLOW and a text that goes on
/// from the array's name ("must have one dimension"). The array stays locked while it is read.
class ArrayReader {
  public:
    /// More memory than anybody means; a descriptor is not taken on trust beyond it.
    static constexpr std::size_t kMostBytes = std::size_t{1} << 30;

    /// A null array has no elements and the type VT_EMPTY.
    explicit ArrayReader(SAFEARRAY* array);
    /// Of a variant that holds an array or a reference to one.
    explicit ArrayReader(const VARIANT& value);
    ArrayReader(const ArrayReader&) = delete;
    ArrayReader& operator=(const ArrayReader&) = delete;
    ~ArrayReader();

    /// The type of the elements as the array itself has it.
    VARTYPE type() const { return type_; }
    std::size_t size() const { return size_; }

    /// One element as a variant that borrows it and must not be cleared; a variant in the array is given
    /// without references. Throws CallError for a structure, which is read by its fields.
    VARIANT operator[](std::size_t at) const;
    /// The elements' memory, for bulk data.
    std::span<const std::byte> bytes() const { return {data_, size_ * elementSize_}; }

    /// A field of one structure by its name. Throws CallError when there is no such field.
    VariantArg field(std::size_t at, const wchar_t* name) const;

  private:
    void describeElements();
    void lock();

    SAFEARRAY* array_;
    ComPtr<IRecordInfo> structure_;
    VARTYPE type_ = VT_EMPTY;
    std::size_t size_ = 0;
    std::size_t elementSize_ = 0;
    std::byte* data_ = nullptr;
};

inline bool isArray(const VARIANT& value) {
    return (value.vt & VT_ARRAY) != 0;
}

}  // namespace pellmark
