#pragma once

#include <initializer_list>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "automation/Automation.h"

namespace pellmark {

class DispatchObject;

/// What a member of a host's object answered, and how to read it. Every reading that fails throws
/// errors::kHostInterface with the name of the object and the member in its text.
class DispatchResult {
  public:
    DispatchResult(VariantArg value, std::string member);

    /// Text as UTF-8: numbers in decimal with a point, booleans as "1" and "0", Empty and Null as "".
    std::string text() const;
    bool boolean() const;
    std::int16_t int16() const;
    std::int32_t int32() const;
    /// A window or another address: any integer, or text that spells one.
    std::int64_t int64() const;
    /// The object; Nothing is an error.
    DispatchObject object() const;

    const VariantArg& value() const { return value_; }
    /// "Norvex.KnowledgeBaseService.IsConnected"
    const std::string& member() const { return member_; }
    [[noreturn]] void failBecause(const std::string& reason) const;
    /// Says beside what was meant ("a text") what was answered.
    [[noreturn]] void failAsNo(const std::string& meant) const;

  private:
    VariantArg converted(VARTYPE type, const char* meant) const;

    VariantArg value_;
    std::string member_;
};

/// An object of the host, called late-bound by name. The numbers of its members are asked for once. A
/// member's own failure is thrown as Error with the host's number and description and the member's name as
/// its source; a missing member, a wrong number of arguments or the like as errors::kHostInterface that names
/// the member; an object that is gone with its process with the code that the system has for that.
class DispatchObject {
  public:
    /// `name` stands for the object in error texts. Throws errors::kHostInterface for Nothing.
    DispatchObject(ComPtr<IDispatch> object, std::string name);
    /// Reads the object out of an argument as it came; anything that is no object throws
    /// errors::kHostInterface.
    static DispatchObject from(const VARIANT& value, const std::string& name);

    bool has(std::string_view member);
    /// Calls a method or reads a property; the host may have made it either.
    DispatchResult call(std::string_view member, std::initializer_list<VariantArg> arguments = {});
    void put(std::string_view member, const VariantArg& value);

    const std::string& name() const { return name_; }
    const ComPtr<IDispatch>& pointer() const { return object_; }

  private:
    std::optional<DISPID> find(std::string_view member);
    VariantArg invoke(std::string_view member, WORD flags, DISPPARAMS& parameters);
    std::string qualified(std::string_view member) const;

    ComPtr<IDispatch> object_;
    std::string name_;
    std::map<std::string, std::optional<DISPID>, std::less<>> ids_;
};

}  // namespace pellmark
