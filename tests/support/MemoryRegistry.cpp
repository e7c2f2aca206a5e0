#include "support/MemoryRegistry.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/Text.h"

namespace pellmark::test {

namespace {

constexpr std::int32_t kAccessDenied = 5;
constexpr std::int32_t kInvalidHandle = 6;
constexpr std::int32_t kBadPathname = 161;
constexpr std::int32_t kKeyDeleted = 1018;

constexpr std::uint32_t kQuery = 0x01;
constexpr std::uint32_t kSet = 0x02;
constexpr std::uint32_t kCreateSubKey = 0x04;
constexpr std::uint32_t kEnumerate = 0x08;
constexpr std::uint32_t kEverything = 0x3F;

constexpr std::uint32_t kString = 1;
constexpr std::uint32_t kNumber = 4;

}  // namespace

MemoryRegistry::Value* MemoryRegistry::Node::find(const std::string& valueName) {
    const auto found = std::find_if(values.begin(), values.end(),
                                    [&](const Value& value) { return equalNoCase(value.name, valueName); });
    return found == values.end() ? nullptr : &*found;
}

MemoryRegistry::MemoryRegistry() {
    for (const Key hive : {kClassesRoot, kCurrentUser, kLocalMachine})
        hives_[hive] = std::make_shared<Node>();
}

MemoryRegistry::~MemoryRegistry() = default;

std::shared_ptr<MemoryRegistry::Node> MemoryRegistry::nodeOf(Key key) {
    if (const auto hive = hives_.find(key); hive != hives_.end()) return hive->second;
    const auto handle = handles_.find(key);
    return handle == handles_.end() ? nullptr : handle->second.node;
}

std::shared_ptr<MemoryRegistry::Node> MemoryRegistry::descend(std::shared_ptr<Node> node,
                                                              const std::string& path, bool create) {
    for (const std::string& name : split(path, '\\')) {
        if (name.empty()) continue;  // a "\" at the end, or two of them, names nothing
        auto& children = node->children;
        const auto found = children.find(lowerAscii(name));
        if (found != children.end()) {
            node = found->second;
        } else if (create) {
            auto child = std::make_shared<Node>();
            child->name = name;
            children[lowerAscii(name)] = child;
            node = std::move(child);
        } else {
            return nullptr;
        }
    }
    return node;
}

std::int32_t MemoryRegistry::openKey(Key parent, const std::string& path, std::uint32_t access, Key& opened) {
    if (accessOutcome_ != kSuccess) return accessOutcome_;
    const auto from = nodeOf(parent);
    if (from == nullptr) return kInvalidHandle;
    if (from->isDeleted) return kKeyDeleted;
    if (!path.empty() && path.front() == '\\') return kBadPathname;
    const auto node = descend(from, path, false);
    if (node == nullptr) return kFileNotFound;
    opened = nextHandle_++;
    handles_[opened] = {node, access};
    return kSuccess;
}

std::int32_t MemoryRegistry::createKey(Key parent, const std::string& path, std::uint32_t access,
                                       Key& opened) {
    if (accessOutcome_ != kSuccess) return accessOutcome_;
    const auto from = nodeOf(parent);
    if (from == nullptr) return kInvalidHandle;
    if (from->isDeleted) return kKeyDeleted;
    if (!path.empty() && path.front() == '\\') return kBadPathname;
    const auto handle = handles_.find(parent);
    const bool mayCreate = handle == handles_.end() || (handle->second.access & kCreateSubKey) != 0;
    if (!mayCreate && descend(from, path, false) == nullptr) return kAccessDenied;
    opened = nextHandle_++;
    handles_[opened] = {descend(from, path, true), access};
    return kSuccess;
}

std::int32_t MemoryRegistry::closeKey(Key key) {
    if (hives_.count(key) != 0) return kSuccess;
    return handles_.erase(key) == 1 ? kSuccess : kInvalidHandle;
}

std::shared_ptr<MemoryRegistry::Node> MemoryRegistry::opened(Key key, std::uint32_t access,
                                                             std::int32_t& outcome) {
    auto node = nodeOf(key);
    const auto handle = handles_.find(key);
    const std::uint32_t granted = handle == handles_.end() ? kEverything : handle->second.access;
    outcome = kSuccess;
    if (node == nullptr) {
        outcome = kInvalidHandle;
    } else if (node->isDeleted) {
        outcome = kKeyDeleted;
    } else if ((granted & access) != access) {
        outcome = kAccessDenied;
    }
    return outcome == kSuccess ? node : nullptr;
}

std::int32_t MemoryRegistry::queryValue(Key key, const std::string& name, std::uint32_t& type,
                                        std::vector<std::uint8_t>& data) {
    std::int32_t outcome = kSuccess;
    const auto node = opened(key, kQuery, outcome);
    if (node == nullptr) return outcome;
    const Value* const value = node->find(name);
    if (value == nullptr) return kFileNotFound;
    type = value->type;
    data = value->data;
    return kSuccess;
}

std::int32_t MemoryRegistry::setValue(Key key, const std::string& name, std::uint32_t type,
                                      const std::vector<std::uint8_t>& data) {
    std::int32_t outcome = kSuccess;
    const auto node = opened(key, kSet, outcome);
    if (node == nullptr) return outcome;
    if (writeOutcome_) return *writeOutcome_;
    if (Value* const value = node->find(name)) {
        value->type = type;
        value->data = data;
    } else {
        node->values.push_back({name, type, data});
    }
    return kSuccess;
}

std::int32_t MemoryRegistry::deleteKey(Key parent, const std::string& path) {
    if (accessOutcome_ != kSuccess) return accessOutcome_;
    const auto from = nodeOf(parent);
    if (from == nullptr) return kInvalidHandle;
    const std::string trimmed = path.substr(0, path.find_last_not_of('\\') + 1);
    const std::size_t slash = trimmed.rfind('\\');
    const std::string parentPath = slash == std::string::npos ? "" : trimmed.substr(0, slash);
    const std::string name = lowerAscii(slash == std::string::npos ? trimmed : trimmed.substr(slash + 1));
    const auto above = descend(from, parentPath, false);
    if (above == nullptr || above->children.count(name) == 0) return kFileNotFound;
    const auto node = above->children[name];
    if (!node->children.empty()) return kAccessDenied;
    node->isDeleted = true;  // handles may still be open on it
    above->children.erase(name);
    return kSuccess;
}

std::int32_t MemoryRegistry::deleteValue(Key key, const std::string& name) {
    std::int32_t outcome = kSuccess;
    const auto node = opened(key, kSet, outcome);
    if (node == nullptr) return outcome;
    const Value* const value = node->find(name);
    if (value == nullptr) return kFileNotFound;
    node->values.erase(node->values.begin() + (value - node->values.data()));
    return kSuccess;
}

std::int32_t MemoryRegistry::enumerateValue(Key key, std::uint32_t index, std::string& name) {
    std::int32_t outcome = kSuccess;
    const auto node = opened(key, kQuery, outcome);
    if (node == nullptr) return outcome;
    if (index >= node->values.size()) return kNoMoreItems;
    name = node->values[index].name;
    return kSuccess;
}

std::int32_t MemoryRegistry::enumerateKey(Key key, std::uint32_t index, std::string& name) {
    std::int32_t outcome = kSuccess;
    const auto node = opened(key, kEnumerate, outcome);
    if (node == nullptr) return outcome;
    if (index >= node->children.size()) return kNoMoreItems;
    name = std::next(node->children.begin(), index)->second->name;
    return kSuccess;
}

std::string MemoryRegistry::expandEnvironment(const std::string& text) {
    std::string out;
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = text[at] == '%' ? text.find('%', at + 1) : std::string::npos;
        if (end == std::string::npos) {
            out += text[at++];
            continue;
        }
        std::string name = text.substr(at + 1, end - at - 1);
        std::transform(name.begin(), name.end(), name.begin(),
                       [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
        const auto variable = environment.find(name);
        if (variable != environment.end()) {
            out += variable->second;
            at = end + 1;
        } else {
            out += text.substr(at, end - at);  // the second "%" may begin the next reference
            at = end;
            if (text.find('%', at + 1) == std::string::npos) out += text[at++];
        }
    }
    return out;
}

bool MemoryRegistry::hasKey(Key hive, const std::string& path) {
    return descend(nodeOf(hive), path, false) != nullptr;
}

const MemoryRegistry::Value* MemoryRegistry::findValue(Key hive, const std::string& path,
                                                       const std::string& name) {
    const auto node = descend(nodeOf(hive), path, false);
    return node == nullptr ? nullptr : node->find(name);
}

std::optional<std::string> MemoryRegistry::text(Key hive, const std::string& path, const std::string& name) {
    const Value* const value = findValue(hive, path, name);
    if (value == nullptr || value->data.empty()) return std::nullopt;
    return std::string(value->data.begin(), value->data.end() - 1);
}

std::optional<std::int32_t> MemoryRegistry::number(Key hive, const std::string& path,
                                                   const std::string& name) {
    const Value* const value = findValue(hive, path, name);
    if (value == nullptr || value->type != kNumber || value->data.size() != 4) return std::nullopt;
    std::uint32_t bits = 0;
    for (std::size_t i = 4; i-- > 0;)
        bits = bits << 8U | value->data[i];
    return static_cast<std::int32_t>(bits);
}

void MemoryRegistry::setText(Key hive, const std::string& path, const std::string& name,
                             const std::string& text) {
    std::vector<std::uint8_t> data(text.begin(), text.end());
    data.push_back(0);
    put(hive, path, {name, kString, std::move(data)});
}

void MemoryRegistry::setNumber(Key hive, const std::string& path, const std::string& name,
                               std::int32_t number) {
    const auto bits = static_cast<std::uint32_t>(number);
    std::vector<std::uint8_t> data;
    for (unsigned shift = 0; shift < 32; shift += 8)
        data.push_back(static_cast<std::uint8_t>(bits >> shift));
    put(hive, path, {name, kNumber, std::move(data)});
}

void MemoryRegistry::put(Key hive, const std::string& path, Value value) {
    const auto node = descend(nodeOf(hive), path, true);
    if (Value* const present = node->find(value.name)) {
        *present = std::move(value);
    } else {
        node->values.push_back(std::move(value));
    }
}

}  // namespace pellmark::test
