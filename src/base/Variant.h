#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace pellmark {

/// A reference to an object of the host or of a script; core only keeps and hands it back.
class ObjectReference {
  public:
    virtual ~ObjectReference() = default;
};

using ByteArray = std::vector<std::uint8_t>;

/// A value that may be of several types, as automation passes it. Text is UTF-8.
using Variant = std::variant<std::monostate,                     // empty or missing
                             bool, std::int16_t, std::int32_t,   //
                             float, double,                      //
                             std::string, ByteArray,             //
                             std::shared_ptr<ObjectReference>>;  //

}  // namespace pellmark
