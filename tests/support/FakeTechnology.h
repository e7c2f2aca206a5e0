#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "ports/Technology.h"

namespace pellmark::test {

class FakeParameter : public TechnologyParameter {
  public:
    FakeParameter(std::int32_t code, std::int16_t kind, std::int16_t state, Variant value)
        : code_(code), kind_(kind), state_(state), value_(std::move(value)) {}

    std::int32_t clCode() override { return code_; }
    std::int16_t kind() override { return kind_; }
    std::int16_t state() override { return state_; }
    Variant value() override { return value_; }
    /// What the component hands over is not what a person has set: the state stays.
    void setValue(const Variant& value) override { value_ = value; }

    /// As a person does it in the editor or the wizard.
    void type(const Variant& value) {
        value_ = value;
        state_ = kStateSet;
    }

  private:
    std::int32_t code_;
    std::int16_t kind_;
    std::int16_t state_;
    Variant value_;
};

/// A technology in memory, for tests to fill and to look into.
class FakeTechnology : public TechnologyObject {
  public:
    explicit FakeTechnology(std::int16_t cuttingCycleId, std::string name = {})
        : cycle_(cuttingCycleId), name_(std::move(name)) {}
    FakeTechnology(const FakeTechnology& other);
    FakeTechnology& operator=(const FakeTechnology&) = delete;

    std::int16_t cuttingCycleId() override { return cycle_; }
    std::string operationName() override { return name_; }
    void setOperationName(const std::string& name) override { name_ = name; }
    std::int32_t count() override { return static_cast<std::int32_t>(parameters_.size()); }
    /// Throws errors::kInvalidArgument for a position out of range.
    FakeParameter& parameter(std::int32_t position) override;
    FakeParameter* parameterOf(std::int32_t clCode) override;

    /// Adds a parameter behind the others; returns the technology, for chains.
    FakeTechnology& add(std::int32_t clCode, const Variant& value,
                        std::int16_t kind = TechnologyParameter::kKindInput, std::int16_t state = 0);

    /// An editor may let a person choose another cycle than the one that it was opened for.
    void setCuttingCycleId(std::int16_t id) { cycle_ = id; }

  private:
    std::int16_t cycle_;
    std::string name_;
    std::vector<std::unique_ptr<FakeParameter>> parameters_;
};

}  // namespace pellmark::test
