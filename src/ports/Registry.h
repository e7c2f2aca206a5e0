#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace pellmark {

/// The registry functions that the component calls, in their single-byte forms: names and text data are in
/// the system's ANSI code page (see CodePage). Results are system error codes, 0 for success.
class Registry {
  public:
    using Key = std::uintptr_t;  ///< an open key; the predefined hives are their well-known numbers
    static constexpr Key kCurrentUser = 0x80000001U;
    static constexpr Key kLocalMachine = 0x80000002U;
    static constexpr std::int32_t kSuccess = 0;
    static constexpr std::int32_t kFileNotFound = 2;
    static constexpr std::int32_t kMoreData = 234;
    static constexpr std::int32_t kNoMoreItems = 259;

    virtual ~Registry() = default;

    virtual std::int32_t openKey(Key parent, const std::string& path, std::uint32_t access, Key& opened) = 0;
    virtual std::int32_t createKey(Key parent, const std::string& path, std::uint32_t access,
                                   Key& opened) = 0;
    virtual std::int32_t closeKey(Key key) = 0;
    virtual std::int32_t queryValue(Key key, const std::string& name, std::uint32_t& type,
                                    std::vector<std::uint8_t>& data) = 0;
    virtual std::int32_t setValue(Key key, const std::string& name, std::uint32_t type,
                                  const std::vector<std::uint8_t>& data) = 0;
    virtual std::int32_t deleteKey(Key parent, const std::string& path) = 0;
    virtual std::int32_t deleteValue(Key key, const std::string& name) = 0;
    /// Names by index from 0; kNoMoreItems behind the last.
    virtual std::int32_t enumerateValue(Key key, std::uint32_t index, std::string& name) = 0;
    virtual std::int32_t enumerateKey(Key key, std::uint32_t index, std::string& name) = 0;
    /// Replaces %NAME% references by the environment's values.
    virtual std::string expandEnvironment(const std::string& text) = 0;
};

}  // namespace pellmark
