#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ports/Registry.h"

namespace pellmark::test {

/// A registry in memory with the real one's rules: names without case, parents made on the way, a key with
/// sub-keys cannot be deleted, an open key allows what it was opened for, a path must not begin with "\".
class MemoryRegistry : public Registry {
  public:
    MemoryRegistry();
    ~MemoryRegistry() override;

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

    /// For tests.
    static constexpr Key kClassesRoot = 0x80000000U;
    std::map<std::string, std::string> environment;  ///< names in upper case
    int openKeys() const { return static_cast<int>(handles_.size()); }
    /// Makes every open and creation below the hive fail with this code; 0 ends that.
    void refuseAccess(std::int32_t outcome) { accessOutcome_ = outcome; }
    /// Makes every writing of a value answer this code and write nothing; nothing ends that.
    void refuseWrites(std::optional<std::int32_t> outcome) { writeOutcome_ = outcome; }
    /// True when the key exists, whatever is refused.
    bool hasKey(Key hive, const std::string& path);
    /// The text of a string value without its terminating zero; nothing when there is no such value.
    std::optional<std::string> text(Key hive, const std::string& path, const std::string& name);
    /// The 32-bit number of a value; nothing when there is no such value.
    std::optional<std::int32_t> number(Key hive, const std::string& path, const std::string& name);
    /// Writes a string value, creating its key.
    void setText(Key hive, const std::string& path, const std::string& name, const std::string& text);
    /// Writes a 32-bit number, creating its key.
    void setNumber(Key hive, const std::string& path, const std::string& name, std::int32_t number);

  private:
    struct Value {
        std::string name;
        std::uint32_t type = 0;
        std::vector<std::uint8_t> data;
    };
    struct Node {
        std::string name;
        std::map<std::string, std::shared_ptr<Node>> children;  ///< by name in lower case
        std::vector<Value> values;
        bool isDeleted = false;
        Value* find(const std::string& valueName);
    };
    struct OpenNode {
        std::shared_ptr<Node> node;
        std::uint32_t access = 0;
    };

    std::shared_ptr<Node> nodeOf(Key key);
    std::shared_ptr<Node> descend(std::shared_ptr<Node> node, const std::string& path, bool create);
    /// The key's node when it was opened for this access; otherwise the outcome says why not.
    std::shared_ptr<Node> opened(Key key, std::uint32_t access, std::int32_t& outcome);
    const Value* findValue(Key hive, const std::string& path, const std::string& name);
    void put(Key hive, const std::string& path, Value value);

    std::map<Key, std::shared_ptr<Node>> hives_;
    std::map<Key, OpenNode> handles_;
    Key nextHandle_ = 0x100;
    std::int32_t accessOutcome_ = kSuccess;
    std::optional<std::int32_t> writeOutcome_;
};

}  // namespace pellmark::test
