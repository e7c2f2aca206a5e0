#include "steps/StepTechnology.h"

#include <algorithm>
#include <optional>

#include "base/Convert.h"
#include "base/Error.h"

namespace pellmark {

namespace {

constexpr std::int32_t kAlwaysText[] = {432, 1764, 1767};

std::optional<double> asNumber(const std::string& text) {
    try {
        return toDouble(text);
    } catch (const Error&) {
        return std::nullopt;
    }
}

}  // namespace

bool isAlwaysText(std::int32_t clCode) {
    return std::find(std::begin(kAlwaysText), std::end(kAlwaysText), clCode) != std::end(kAlwaysText);
}

bool isEmpty(const Variant& value) {
    return std::holds_alternative<std::monostate>(value);
}

std::string withoutQuotes(std::string text) {
    std::erase(text, '"');
    return text;
}

TechParams storedValues(RecordSet& values) {
    const std::size_t code = values.requireField(field::kClFileCode);
    const std::size_t value = values.requireField(field::kValue);
    TechParams params;
    for (std::size_t i = 0; i < values.count(); ++i) {
        // The first of two values with one code is the one that counts.
        if (const auto param = params.Add("", toInt32(values.text(i, code))))
            param->setValue(Variant(values.text(i, value)));
    }
    return params;
}

namespace {

bool belongsToStep(TechnologyParameter& parameter) {
    const std::int16_t kind = parameter.kind();
    return kind == TechnologyParameter::kKindInput || kind == TechnologyParameter::kKindKept ||
           parameter.state() == TechnologyParameter::kStateSet;
}

}  // namespace

TechParams valuesNow(TechnologyObject& technology) {
    TechParams params;
    const std::int32_t count = technology.count();
    for (std::int32_t position = 1; position <= count; ++position) {
        TechnologyParameter& parameter = technology.parameter(position);
        if (!belongsToStep(parameter)) continue;
        if (const auto param = params.Add("", parameter.clCode())) param->setValue(parameter.value());
    }
    return params;
}

void handOver(TechnologyParameter& parameter, const std::string& text) {
    const bool isText =
        isAlwaysText(parameter.clCode()) || std::holds_alternative<std::string>(parameter.value());
    const auto number = isText ? std::nullopt : asNumber(text);
    parameter.setValue(number ? Variant(*number) : Variant(text));
}

void handOver(TechnologyObject& technology, const TechParams& values, Quotes quotes) {
    for (const auto& value : values) {
        TechnologyParameter* const parameter = technology.parameterOf(value->ClCode());
        if (parameter == nullptr) continue;
        const std::string text = toText(value->Value());
        handOver(*parameter, quotes == Quotes::Remove ? withoutQuotes(text) : text);
    }
}

ValueChanges changesBetween(const TechParams& before, const TechParams& after, const TechParams& stored,
                            const std::string& stepId) {
    ValueChanges changes;
    for (const auto& now : after) {
        if (isEmpty(now->Value())) continue;
        const TechParam* const then = before.find(now->ClCode());
        const std::string text = toText(now->Value());
        const bool same = then != nullptr && !isEmpty(then->Value()) && toText(then->Value()) == text;
        if (!same) changes.set.push_back({stepId, now->ClCode(), text});
    }
    for (const auto& then : before) {
        const TechParam* const now = after.find(then->ClCode());
        const bool gone = now == nullptr || isEmpty(now->Value());
        if (gone && !isEmpty(then->Value()) && stored.find(then->ClCode()) != nullptr)
            changes.removed.push_back(then->ClCode());
    }
    return changes;
}

namespace {

/// "" where there is none.
std::string storedText(const TechParams& values, std::int32_t clCode) {
    const TechParam* const value = values.find(clCode);
    return value == nullptr ? std::string() : toText(value->Value());
}

}  // namespace

bool overwriteOthers(const ValueChanges& changes, const TechParams& stored, const TechParams& now) {
    const auto isTheirs = [&](std::int32_t clCode, const std::string& wanted) {
        const std::string theirs = storedText(now, clCode);
        return theirs != storedText(stored, clCode) && theirs != wanted;
    };
    return std::any_of(
               changes.set.begin(), changes.set.end(),
               [&](const StepValueRecord& value) { return isTheirs(value.clFileCode, value.value); }) ||
           std::any_of(changes.removed.begin(), changes.removed.end(),
                       [&](std::int32_t clCode) { return isTheirs(clCode, ""); });
}

}  // namespace pellmark
