#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "base/Trace.h"
#include "settings/cRegistry.h"

namespace pellmark {

/// The values under one key of the current user, each written and read as what it is meant to be. What
/// another program stored as something else is traced and counts as missing. Writing throws the registry's
/// errors.
class StoredValues {
  public:
    /// Works on a registry accessor of its own. The trace must outlive this object.
    StoredValues(cRegistry registry, std::string key, Trace& trace);

    bool keyExists() const { return values_.KeyExists(); }

    void writeNumber(const std::string& name, std::int32_t number);
    void writeFlag(const std::string& name, bool set);
    /// Numbers as their text.
    void writeText(const std::string& name, const Variant& value);
    void writeBytes(const std::string& name, ByteArray bytes);

    /// Does nothing when there is no such value.
    void remove(const std::string& name);

    /// As it is stored; empty when there is no such value.
    Variant read(const std::string& name);
    std::optional<std::int32_t> number(const std::string& name);
    /// A number outside these bounds counts as missing, too.
    std::optional<std::int32_t> number(const std::string& name, std::int32_t least, std::int32_t most);
    std::optional<double> number(const std::string& name, double least, double most);
    std::optional<bool> flag(const std::string& name);
    std::optional<std::string> text(const std::string& name);

  private:
    void write(const std::string& name, cRegistry::Type type, const Variant& value);
    template <class Value>
    std::optional<Value> converted(const std::string& name,
                                   const std::function<Value(const Variant&)>& convert);

    cRegistry values_;
    Trace& trace_;
};

}  // namespace pellmark
