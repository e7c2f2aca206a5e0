#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/Variant.h"
#include "knowledge/Records.h"
#include "refhost/technology/Catalogue.h"

namespace norvex {

/// Where the value of one parameter comes from.
enum class Origin { Default, Given, Step, File, User, Formula, Table };

/// What people read for it.
const char* originText(Origin origin);

/// One parameter of an operation with its value.
struct Parameter {
    const Definition* definition = nullptr;
    pellmark::Variant value;  ///< a double, a text, or nothing
    Origin origin = Origin::Default;

    std::int32_t code() const { return definition->code; }
    /// 0 for the host's default, 1 for a value that was handed over or read, 2 for one that a person or a
    /// formula has set.
    std::int16_t state() const;
    bool operator==(const Parameter&) const = default;
};

/// The technology of one step: a cutting cycle with its parameters. A plain value; windows work on a copy.
class Operation {
  public:
    /// Without parameters, for reading a file into.
    Operation(std::int16_t cuttingCycleId, std::int16_t unitCode, std::string name);
    /// With every parameter of the cycle, and Norvex's defaults for the unit.
    static Operation withDefaults(std::int16_t cuttingCycleId, std::int16_t unitCode);

    std::int16_t cuttingCycleId() const { return cycle_.id; }
    const CuttingCycle& cycle() const { return cycle_; }
    std::int16_t unit() const { return unit_; }
    const std::string& name() const { return name_; }
    void setName(const std::string& name) { name_ = name; }

    const std::vector<Parameter>& parameters() const { return parameters_; }
    /// Null when the operation does not have it.
    const Parameter* find(std::int32_t code) const;
    /// The value as text, "" for none and for a parameter that is not there.
    std::string text(std::int32_t code) const;
    /// The figure; 0 for none, and for a text that is none.
    double figure(std::int32_t code) const;

    /// Puts a value into a parameter that is there. A figure that arrives as text stays the same text where
    /// writing it as a number would change it. Throws pellmark::Error (kInvalidArgument) for a code that the
    /// operation does not have and for what is no finite number.
    void set(std::int32_t code, const pellmark::Variant& value, Origin origin);
    /// Adds a parameter behind the others; false when it is there already.
    bool add(const Definition& definition, const pellmark::Variant& value, Origin origin);

    /// A person has finished the step wizard: whatever was set is the step's own now.
    void takeAsStep();
    /// What the whole operation counts as: a person's change outweighs a formula, that the table, and that
    /// what the operation was made from.
    pellmark::TechnologySource source() const;

    bool operator==(const Operation& other) const;

  private:
    Parameter* findOwn(std::int32_t code);

    CuttingCycle cycle_;
    std::int16_t unit_;
    std::string name_;
    std::vector<Parameter> parameters_;
};

/// The value that a text means for a parameter: a number where it is one and is written as numbers are, the
/// text itself otherwise.
pellmark::Variant valueOf(const Definition& definition, const std::string& text);

/// A number with a point and as many digits as it takes to read the same number again.
std::string numberText(double number);
/// Nothing where the text is no finite number.
bool readNumber(const std::string& text, double& number);

}  // namespace norvex
