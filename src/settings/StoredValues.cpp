#include "settings/StoredValues.h"

#include <utility>
#include <variant>

#include "base/Convert.h"
#include "base/Error.h"

namespace pellmark {

namespace {

template <class Number>
Number inRange(Number number, Number least, Number most) {
    if (number >= least && number <= most) return number;
    throw Error(errors::kOverflow, "Pellmark.StoredValues", "The number is out of range");
}

}  // namespace

StoredValues::StoredValues(cRegistry registry, std::string key, Trace& trace)
    : values_(std::move(registry)), trace_(trace) {
    values_.setClassKey(cRegistry::kCurrentUser);
    values_.setSectionKey(std::move(key));
}

void StoredValues::write(const std::string& name, cRegistry::Type type, const Variant& value) {
    values_.setValueKey(name);
    values_.setValueType(type);
    values_.setValue(value);
}

void StoredValues::writeNumber(const std::string& name, std::int32_t number) {
    write(name, cRegistry::kNumber, number);
}

void StoredValues::writeFlag(const std::string& name, bool set) {
    write(name, cRegistry::kNumber, static_cast<std::int16_t>(set ? -1 : 0));
}

void StoredValues::writeText(const std::string& name, const Variant& value) {
    write(name, cRegistry::kString, value);
}

void StoredValues::writeBytes(const std::string& name, ByteArray bytes) {
    bytes.insert(bytes.end(), 2, 0);  // the accessor leaves the last two out
    write(name, cRegistry::kBinary, bytes);
}

void StoredValues::remove(const std::string& name) {
    if (std::holds_alternative<std::monostate>(read(name))) return;
    values_.setValueKey(name);
    values_.DeleteValue();
}

Variant StoredValues::read(const std::string& name) {
    values_.setValueKey(name);
    values_.setDefault({});
    Variant value = values_.Value();
    // The accessor hands out one byte more than is stored.
    if (auto* bytes = std::get_if<ByteArray>(&value)) bytes->pop_back();
    return value;
}

template <class Value>
std::optional<Value> StoredValues::converted(const std::string& name,
                                             const std::function<Value(const Variant&)>& convert) {
    const Variant stored = read(name);
    if (std::holds_alternative<std::monostate>(stored)) return std::nullopt;
    std::optional<Value> value;
    trap(trace_, values_.SectionKey() + name, [&] { value = convert(stored); });
    return value;
}

std::optional<std::int32_t> StoredValues::number(const std::string& name) {
    return converted<std::int32_t>(name, [](const Variant& value) { return toInt32(value); });
}

std::optional<std::int32_t> StoredValues::number(const std::string& name, std::int32_t least,
                                                 std::int32_t most) {
    return converted<std::int32_t>(
        name, [=](const Variant& value) { return inRange(toInt32(value), least, most); });
}

std::optional<double> StoredValues::number(const std::string& name, double least, double most) {
    return converted<double>(name,
                             [=](const Variant& value) { return inRange(toDouble(value), least, most); });
}

std::optional<bool> StoredValues::flag(const std::string& name) {
    return converted<bool>(name, [](const Variant& value) { return toInt32(value) != 0; });
}

std::optional<std::string> StoredValues::text(const std::string& name) {
    return converted<std::string>(name, [](const Variant& value) { return toText(value); });
}

}  // namespace pellmark
