#include "support/FakeTechnology.h"

#include <algorithm>

#include "base/Error.h"

namespace pellmark::test {

FakeTechnology::FakeTechnology(const FakeTechnology& other)
    : TechnologyObject(other), cycle_(other.cycle_), name_(other.name_) {
    for (const auto& parameter : other.parameters_)
        parameters_.push_back(std::make_unique<FakeParameter>(*parameter));
}

FakeParameter& FakeTechnology::parameter(std::int32_t position) {
    if (position < 1 || position > count()) {
        throw Error(errors::kInvalidArgument, "Technology",
                    "There is no parameter at position " + std::to_string(position) + ".");
    }
    return *parameters_[static_cast<std::size_t>(position) - 1];
}

FakeParameter* FakeTechnology::parameterOf(std::int32_t clCode) {
    const auto found = std::find_if(parameters_.begin(), parameters_.end(),
                                    [&](const auto& parameter) { return parameter->clCode() == clCode; });
    return found == parameters_.end() ? nullptr : found->get();
}

FakeTechnology& FakeTechnology::add(std::int32_t clCode, const Variant& value, std::int16_t kind,
                                    std::int16_t state) {
    parameters_.push_back(std::make_unique<FakeParameter>(clCode, kind, state, value));
    return *this;
}

}  // namespace pellmark::test
