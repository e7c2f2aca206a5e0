#include "refhost/technology/Operation.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

#include "base/Convert.h"
#include "ports/Technology.h"
#include "refhost/technology/Codes.h"
#include "refhost/texts/HostError.h"

namespace norvex {

using pellmark::TechnologySource;
using pellmark::Variant;

namespace {

constexpr const char* kSource = "Technology";

[[noreturn]] void refuse(Sentence why) {
    throw HostError(pellmark::errors::kInvalidArgument, kSource, std::move(why));
}

Variant checked(const Definition& definition, const Variant& value) {
    if (std::holds_alternative<std::monostate>(value)) return {};
    if (const auto* text = std::get_if<std::string>(&value)) return valueOf(definition, *text);
    const double number = pellmark::toDouble(value);
    if (!std::isfinite(number))
        refuse(Sentence("%1 must be a finite number.", {Sentence(definition.caption)}));
    if (definition.isText()) return pellmark::toText(value);
    return number;
}

}  // namespace

const char* originText(Origin origin) {
    switch (origin) {
        case Origin::Default:
            return "Default";
        case Origin::Given:
        case Origin::Step:
            return "Step";
        case Origin::File:
            return "File";
        case Origin::User:
            return "User";
        case Origin::Formula:
            return "Computed";
        default:
            return "Table";
    }
}

std::int16_t Parameter::state() const {
    switch (origin) {
        case Origin::Default:
            return 0;
        case Origin::Given:
        case Origin::File:
            return 1;
        default:
            // What follows from the others is never the step's own.
            return definition->kind == kKindShown ? std::int16_t{0}
                                                  : pellmark::TechnologyParameter::kStateSet;
    }
}

Operation::Operation(std::int16_t cuttingCycleId, std::int16_t unitCode, std::string name)
    : cycle_(cycleOf(cuttingCycleId)), unit_(unitCode), name_(std::move(name)) {}

Operation Operation::withDefaults(std::int16_t cuttingCycleId, std::int16_t unitCode) {
    Operation operation(cuttingCycleId, unitCode, cycleOf(cuttingCycleId).name);
    const Family family = operation.cycle_.family;
    for (const Definition& definition : definitions()) {
        if ((definition.families & family) == 0) continue;
        Variant value;
        const double metric = defaultFigure(definition.code, family);
        if (definition.code == code::kOperationName) {
            value = operation.name_;
        } else if (definition.isText()) {
            const std::string text = defaultText(definition.code, family);
            if (!text.empty()) value = text;
        } else if (!std::isnan(metric)) {
            value = inUnit(metric, definition.quantity, unitCode);
        }
        operation.parameters_.push_back({&definition, value, Origin::Default});
    }
    return operation;
}

const Parameter* Operation::find(std::int32_t code) const {
    const auto found = std::find_if(parameters_.begin(), parameters_.end(),
                                    [code](const Parameter& parameter) { return parameter.code() == code; });
    return found == parameters_.end() ? nullptr : &*found;
}

Parameter* Operation::findOwn(std::int32_t code) {
    return const_cast<Parameter*>(std::as_const(*this).find(code));
}

std::string Operation::text(std::int32_t code) const {
    const Parameter* parameter = find(code);
    if (parameter == nullptr) return {};
    if (const auto* number = std::get_if<double>(&parameter->value)) return numberText(*number);
    return pellmark::toText(parameter->value);
}

double Operation::figure(std::int32_t code) const {
    double number = 0;
    const Parameter* parameter = find(code);
    if (parameter == nullptr) return 0;
    if (const auto* stored = std::get_if<double>(&parameter->value)) return *stored;
    const auto* text = std::get_if<std::string>(&parameter->value);
    return text != nullptr && readNumber(*text, number) ? number : 0;
}

void Operation::set(std::int32_t code, const Variant& value, Origin origin) {
    Parameter* parameter = findOwn(code);
    if (parameter == nullptr) {
        refuse(
            Sentence("%1 has no parameter with the code %2.", {Sentence(cycle_.name), std::to_string(code)}));
    }
    parameter->value = checked(*parameter->definition, value);
    parameter->origin = origin;
}

bool Operation::add(const Definition& definition, const Variant& value, Origin origin) {
    if (find(definition.code) != nullptr) return false;
    parameters_.push_back({&definition, checked(definition, value), origin});
    return true;
}

void Operation::takeAsStep() {
    for (Parameter& parameter : parameters_) {
        if (parameter.origin != Origin::Default) parameter.origin = Origin::Step;
    }
}

TechnologySource Operation::source() const {
    const auto has = [this](Origin origin) {
        return std::any_of(parameters_.begin(), parameters_.end(),
                           [origin](const Parameter& parameter) { return parameter.origin == origin; });
    };
    if (has(Origin::User)) return TechnologySource::User;
    if (has(Origin::Formula)) return TechnologySource::CalcoraComputed;
    if (has(Origin::Table)) return TechnologySource::SfdbCalculated;
    if (has(Origin::File)) return TechnologySource::File;
    if (has(Origin::Given) || has(Origin::Step)) return TechnologySource::DbStep;
    return TechnologySource::DbDefaults;
}

bool Operation::operator==(const Operation& other) const {
    return cuttingCycleId() == other.cuttingCycleId() && unit_ == other.unit_ && name_ == other.name_ &&
           parameters_ == other.parameters_;
}

Variant valueOf(const Definition& definition, const std::string& text) {
    double number = 0;
    if (!definition.isText() && readNumber(text, number) && pellmark::toText(number) == text) return number;
    return text;
}

std::string numberText(double number) {
    std::string text = pellmark::toText(number);
    double again = 0;
    if (readNumber(text, again) && again == number) return text;
    char digits[64];
    text.assign(digits,
                std::to_chars(digits, digits + sizeof(digits), number, std::chars_format::general, 17).ptr);
    std::replace(text.begin(), text.end(), 'e', 'E');
    return text;
}

bool readNumber(const std::string& text, double& number) {
    if (text.find_first_not_of("0123456789.eE+-") != std::string::npos) return false;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end && std::isfinite(number);
}

}  // namespace norvex
