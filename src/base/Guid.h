#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace pellmark {

/// A GUID as 16 bytes in the memory layout of the platform's GUID structure: the first three groups
/// little-endian, the rest in the order written. The text form is the registry form,
/// "{C200E360-38C5-11CE-AE62-08002B2B79EF}", upper case.
struct Guid {
    std::array<std::uint8_t, 16> bytes{};

    bool operator==(const Guid&) const = default;

    /// Registry form with braces, upper case.
    std::string text() const;

    /// Accepts upper and lower case, with or without braces; nothing when it is not a GUID.
    static std::optional<Guid> parse(std::string_view text);

    /// A random (version 4) GUID.
    static Guid random();
};

/// Spreads the bits of a GUID; good for GUIDs that differ in one byte only.
std::size_t hashOf(const Guid& guid);

}  // namespace pellmark
