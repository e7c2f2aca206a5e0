#include "com/adapters/TechnologyAdapter.h"

#include <algorithm>
#include <array>

#include "base/Convert.h"
#include "base/Error.h"
#include "com/adapters/HostRecords.h"

namespace pellmark {

namespace {

/// How the host says what a value is, since a record holds texts alone.
constexpr std::int32_t kNumber = 1;
constexpr std::int32_t kText = 2;

Variant valueFrom(const std::string& type, const std::string& text, const DispatchResult& result) {
    switch (int32Of(type, result)) {
        case 0:
            return {};
        case kNumber:
            try {
                return toDouble(text);
            } catch (const Error&) {
                result.failBecause("answered with \"" + text + "\" where a number belongs.");
            }
        case kText:
            return text;
        default:
            result.failBecause("answered with the unknown type " + type + " of a value.");
    }
}

VariantArg argumentFrom(const Variant& value) {
    if (std::holds_alternative<std::monostate>(value)) return {};
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    return toDouble(value);
}

}  // namespace

class TechnologyAdapter::Parameter : public TechnologyParameter {
  public:
    Parameter(TechnologyAdapter& owner, std::int32_t code) : owner_(owner), code_(code) {}

    std::int32_t clCode() override { return code_; }
    std::int16_t kind() override {
        owner_.needValues();
        return kind_;
    }
    std::int16_t state() override {
        owner_.needValues();
        return state_;
    }
    Variant value() override {
        owner_.needValues();
        return value_;
    }
    void setValue(const Variant& value) override { owner_.setValue(code_, value); }

    void take(std::int16_t kind, std::int16_t state, Variant value) {
        kind_ = kind;
        state_ = state;
        value_ = std::move(value);
    }

  private:
    TechnologyAdapter& owner_;
    std::int32_t code_;
    std::int16_t kind_ = 0;
    std::int16_t state_ = 0;
    Variant value_;
};

TechnologyAdapter::TechnologyAdapter(DispatchObject object) : object_(std::move(object)) {}
TechnologyAdapter::~TechnologyAdapter() = default;

std::int16_t TechnologyAdapter::cuttingCycleId() {
    return object_.call("CuttingCycleId").int16();
}

std::string TechnologyAdapter::operationName() {
    return object_.call("OperationName").text();
}

void TechnologyAdapter::setOperationName(const std::string& name) {
    object_.put("OperationName", name);
    hasValues_ = false;
}

std::int32_t TechnologyAdapter::count() {
    needParameters();
    return static_cast<std::int32_t>(order_.size());
}

TechnologyParameter& TechnologyAdapter::parameter(std::int32_t position) {
    needParameters();
    if (position < 1 || position > static_cast<std::int32_t>(order_.size())) {
        throw Error(errors::kInvalidArgument, object_.name(),
                    "There is no parameter at position " + std::to_string(position) + ".");
    }
    return *order_[static_cast<std::size_t>(position) - 1];
}

TechnologyParameter* TechnologyAdapter::parameterOf(std::int32_t clCode) {
    needParameters();
    const auto found = std::find_if(order_.begin(), order_.end(),
                                    [&](Parameter* parameter) { return parameter->clCode() == clCode; });
    return found == order_.end() ? nullptr : *found;
}

void TechnologyAdapter::forget() {
    hasParameters_ = false;
    hasValues_ = false;
}

void TechnologyAdapter::needParameters() {
    if (!hasParameters_) read();
}

void TechnologyAdapter::needValues() {
    if (!hasValues_) read();
}

void TechnologyAdapter::read() {
    const DispatchResult result = object_.call("Parameters");
    std::vector<Parameter*> order;
    for (const HostRecord& record : readRecords(result, {"ClCode", "Kind", "State", "Type", "Value"})) {
        const std::int32_t code = int32Of(record[0], result);
        auto& parameter = byCode_[code];
        if (!parameter) parameter = std::make_unique<Parameter>(*this, code);
        if (std::find(order.begin(), order.end(), parameter.get()) != order.end())
            result.failBecause("answered with the code " + record[0] + " twice.");
        parameter->take(int16Of(record[1], result), int16Of(record[2], result),
                        valueFrom(record[3], record[4], result));
        order.push_back(parameter.get());
    }
    order_ = std::move(order);
    hasParameters_ = true;
    hasValues_ = true;
}

void TechnologyAdapter::setValue(std::int32_t clCode, const Variant& value) {
    object_.call("SetValue", {clCode, argumentFrom(value)});
    hasValues_ = false;
}

}  // namespace pellmark
