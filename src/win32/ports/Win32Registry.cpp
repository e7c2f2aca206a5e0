#include "win32/ports/Win32Registry.h"

#include <windows.h>

namespace pellmark {

namespace {

/// The predefined hives are 32-bit numbers that the system extends by their sign; other keys are handles.
HKEY systemKey(Registry::Key key) {
    constexpr Registry::Key kFirstHive = 0x80000000U;
    constexpr Registry::Key kLastHive = 0x800000FFU;
    if (key >= kFirstHive && key <= kLastHive) {
        return reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<LONG>(key)));
    }
    return reinterpret_cast<HKEY>(key);
}

Registry::Key portKey(HKEY key) {
    return reinterpret_cast<Registry::Key>(key);
}

}  // namespace

std::int32_t Win32Registry::openKey(Key parent, const std::string& path, std::uint32_t access, Key& opened) {
    HKEY key = nullptr;
    const LONG outcome = ::RegOpenKeyExA(systemKey(parent), path.c_str(), 0, access, &key);
    opened = portKey(key);
    return outcome;
}

std::int32_t Win32Registry::createKey(Key parent, const std::string& path, std::uint32_t access,
                                      Key& opened) {
    HKEY key = nullptr;
    const LONG outcome = ::RegCreateKeyExA(systemKey(parent), path.c_str(), 0, nullptr,
                                           REG_OPTION_NON_VOLATILE, access, nullptr, &key, nullptr);
    opened = portKey(key);
    return outcome;
}

std::int32_t Win32Registry::closeKey(Key key) {
    return ::RegCloseKey(systemKey(key));
}

std::int32_t Win32Registry::queryValue(Key key, const std::string& name, std::uint32_t& type,
                                       std::vector<std::uint8_t>& data) {
    data.clear();
    DWORD foundType = REG_NONE;
    DWORD size = 0;
    LONG outcome = ::RegQueryValueExA(systemKey(key), name.c_str(), nullptr, &foundType, nullptr, &size);
    if (outcome != ERROR_SUCCESS && outcome != ERROR_MORE_DATA) return outcome;
    // Another program may write a longer value between the two calls.
    do {
        data.resize(size);
        outcome = ::RegQueryValueExA(systemKey(key), name.c_str(), nullptr, &foundType, data.data(), &size);
    } while (outcome == ERROR_MORE_DATA && size > data.size());
    data.resize(outcome == ERROR_SUCCESS ? size : 0);
    type = foundType;
    return outcome;
}

std::int32_t Win32Registry::setValue(Key key, const std::string& name, std::uint32_t type,
                                     const std::vector<std::uint8_t>& data) {
    return ::RegSetValueExA(systemKey(key), name.c_str(), 0, type, data.data(),
                            static_cast<DWORD>(data.size()));
}

std::int32_t Win32Registry::deleteKey(Key parent, const std::string& path) {
    return ::RegDeleteKeyA(systemKey(parent), path.c_str());
}

std::int32_t Win32Registry::deleteValue(Key key, const std::string& name) {
    return ::RegDeleteValueA(systemKey(key), name.c_str());
}

std::int32_t Win32Registry::enumerateValue(Key key, std::uint32_t index, std::string& name) {
    DWORD longest = 0;
    const LONG known = ::RegQueryInfoKeyA(systemKey(key), nullptr, nullptr, nullptr, nullptr, nullptr,
                                          nullptr, nullptr, &longest, nullptr, nullptr, nullptr);
    if (known != ERROR_SUCCESS) return known;
    // The length is in units of UTF-16, of which one may take several bytes in the code page (four at most,
    // in one that holds all of Unicode), and without the terminating zero.
    constexpr std::size_t kBytesPerUnit = 4;
    std::string buffer(longest * kBytesPerUnit + 1, '\0');
    auto length = static_cast<DWORD>(buffer.size());
    const LONG outcome =
        ::RegEnumValueA(systemKey(key), index, buffer.data(), &length, nullptr, nullptr, nullptr, nullptr);
    name = outcome == ERROR_SUCCESS ? buffer.substr(0, length) : std::string();
    return outcome;
}

std::int32_t Win32Registry::enumerateKey(Key key, std::uint32_t index, std::string& name) {
    char buffer[255] = {};
    const LONG outcome = ::RegEnumKeyA(systemKey(key), index, buffer, sizeof(buffer));
    name = outcome == ERROR_SUCCESS ? buffer : "";
    return outcome;
}

std::string Win32Registry::expandEnvironment(const std::string& text) {
    std::string buffer(text.size() + 1, '\0');
    while (true) {
        const DWORD needed =
            ::ExpandEnvironmentStringsA(text.c_str(), buffer.data(), static_cast<DWORD>(buffer.size()));
        if (needed == 0) return text;
        if (needed < buffer.size()) break;
        // The single-byte function writes one byte more than it asks for.
        buffer.assign(needed + 2, '\0');
    }
    return buffer.c_str();
}

}  // namespace pellmark
