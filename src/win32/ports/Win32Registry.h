#pragma once

#include "ports/Registry.h"

namespace pellmark {

/// The Windows registry through its single-byte functions.
class Win32Registry : public Registry {
  public:
    std::int32_t openKey(Key parent, const std::string& path, std::uint32_t access, Key& opened) override;
    std::int32_t createKey(Key parent, const std::string& path, std::uint32_t access, Key& opened) override;
    std::int32_t closeKey(Key key) override;
    std::int32_t queryValue(Key key, const std::string& name, std::uint32_t& type,
                            std::vector<std::uint8_t>& data) override;
    std::int32_t setValue(Key key, const std::string& name, std::uint32_t type,
                          const std::vector<std::uint8_t>& data) override;
    std::int32_t deleteKey(Key parent, const std::string& path) override;
    std::int32_t deleteValue(Key key, const std::string& name) override;
    std::int32_t enumerateValue(Key key, std::uint32_t index, std::string& name) override;
    std::int32_t enumerateKey(Key key, std::uint32_t index, std::string& name) override;
    std::string expandEnvironment(const std::string& text) override;
};

}  // namespace pellmark
