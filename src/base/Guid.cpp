#include "base/Guid.h"

#include <cstring>
#include <random>

namespace pellmark {

namespace {

/// Byte indices in the order in which the text form writes them.
constexpr std::array<std::size_t, 16> kTextOrder{3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
constexpr std::size_t kBareLength = 36;

bool hyphenAt(std::size_t position) {
    return position == 8 || position == 13 || position == 18 || position == 23;
}

int hexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

/// Lets every bit bear on every other.
std::uint64_t mixed(std::uint64_t bits) {
    bits ^= bits >> 32U;
    bits *= 0xD6E8FEB86659FD93ULL;
    bits ^= bits >> 32U;
    return bits;
}

}  // namespace

std::string Guid::text() const {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string out;
    out.reserve(kBareLength + 2);
    out += '{';
    for (const std::size_t position : kTextOrder) {
        if (hyphenAt(out.size() - 1)) out += '-';
        const std::uint8_t byte = bytes[position];
        out += kDigits[byte >> 4U];
        out += kDigits[byte & 0x0FU];
    }
    out += '}';
    return out;
}

std::optional<Guid> Guid::parse(std::string_view text) {
    if (text.size() == kBareLength + 2 && text.front() == '{' && text.back() == '}') {
        text = text.substr(1, kBareLength);
    }
    if (text.size() != kBareLength) return std::nullopt;
    Guid guid;
    std::size_t written = 0;
    for (std::size_t at = 0; at < text.size();) {
        if (hyphenAt(at)) {
            if (text[at++] != '-') return std::nullopt;
            continue;
        }
        const int high = hexValue(text[at]);
        const int low = hexValue(text[at + 1]);
        if (high < 0 || low < 0) return std::nullopt;
        guid.bytes[kTextOrder[written++]] = static_cast<std::uint8_t>(high * 16 + low);
        at += 2;
    }
    return guid;
}

Guid Guid::random() {
    // Straight from the system: a generator seeded with one number of 32 bits would repeat the ids of another
    // run sooner or later, and a forked process those of its parent at once. Not kept for the thread: its end
    // would then have to come before a library with this code could be unloaded.
    std::random_device source;
    Guid guid;
    const std::array<std::uint32_t, 4> parts{source(), source(), source(), source()};
    static_assert(sizeof(parts) == sizeof(guid.bytes));
    std::memcpy(guid.bytes.data(), parts.data(), sizeof(parts));
    guid.bytes[7] = static_cast<std::uint8_t>((guid.bytes[7] & 0x0FU) | 0x40U);
    guid.bytes[8] = static_cast<std::uint8_t>((guid.bytes[8] & 0x3FU) | 0x80U);
    return guid;
}

std::size_t hashOf(const Guid& guid) {
    std::uint64_t low = 0;
    std::uint64_t high = 0;
    std::memcpy(&low, guid.bytes.data(), sizeof(low));
    std::memcpy(&high, guid.bytes.data() + sizeof(low), sizeof(high));
    // The halves are mixed one after the other: were both only multiplied and joined, a change of the last
    // byte could look like one of the eighth.
    return static_cast<std::size_t>(mixed(mixed(low) + high));
}

}  // namespace pellmark
