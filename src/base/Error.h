#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace pellmark {

/// The one exception of the component: number, source and description, as automation clients see them.
/// The description is UTF-8 and says what to do where a person can do something.
class Error : public std::runtime_error {
  public:
    Error(std::int32_t number, std::string source, const std::string& description)
        : std::runtime_error(description), number_(number), source_(std::move(source)) {}

    std::int32_t number() const { return number_; }
    const std::string& source() const { return source_; }
    std::string description() const { return what(); }

  private:
    std::int32_t number_;
    std::string source_;
};

/// Error numbers that callers test for. Those below 1000 are the classic automation run-time numbers.
namespace errors {
inline constexpr std::int32_t kInvalidArgument = 5;
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kBadFileName = 52;
inline constexpr std::int32_t kFileNotFound = 53;
inline constexpr std::int32_t kDeviceError = 57;
inline constexpr std::int32_t kDiskFull = 61;
inline constexpr std::int32_t kPermissionDenied = 70;
inline constexpr std::int32_t kPathNotFound = 76;
inline constexpr std::int32_t kPrinter = 482;
inline constexpr std::int32_t kRegistry = 26001;
inline constexpr std::int32_t kNotFound = 26101;       ///< a record with that id does not exist (any more)
inline constexpr std::int32_t kValueTooLong = 26102;   ///< a text longer than its field
inline constexpr std::int32_t kNotUnique = 26103;      ///< a record with that key exists already
inline constexpr std::int32_t kKnowledgeBase = 26104;  ///< the knowledge base cannot be opened or used
inline constexpr std::int32_t kHostInterface =
    26105;  ///< the host's object lacks a member or answers wrongly
}  // namespace errors

}  // namespace pellmark
