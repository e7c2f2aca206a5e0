#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "base/Variant.h"

namespace pellmark {

/// One technology parameter of a step: plain values without a store behind them.
class TechParam {
  public:
    /// A number or a text, or a reference to an object, which stays the same one.
    const Variant& Value() const { return value_; }
    void setValue(Variant value) { value_ = std::move(value); }
    void setValue(std::shared_ptr<ObjectReference> object) { value_ = std::move(object); }

    /// The text shown for the parameter.
    const std::string& Caption() const { return caption_; }
    void setCaption(std::string caption) { caption_ = std::move(caption); }

    /// A person may not edit the value.
    bool Locked() const { return locked_; }
    void setLocked(bool locked) { locked_ = locked; }

    /// The parameter is not shown to a person.
    bool Hidden() const { return hidden_; }
    void setHidden(bool hidden) { hidden_ = hidden; }

    /// Its identity within the technology, and its key within TechParams.
    std::int32_t ClCode() const { return clCode_; }
    void setClCode(std::int32_t clCode) { clCode_ = clCode; }

    /// The formula or text from which the value is computed.
    const std::string& Expression() const { return expression_; }
    void setExpression(std::string expression) { expression_ = std::move(expression); }

  private:
    Variant value_;
    std::string caption_;
    bool locked_ = false;
    bool hidden_ = false;
    std::int32_t clCode_ = 0;
    std::string expression_;
};

}  // namespace pellmark
