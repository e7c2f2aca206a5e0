#include "settings/cRegistry.h"

#include <utility>

#include "base/Convert.h"
#include "base/Error.h"

namespace pellmark {

namespace {

constexpr std::uint32_t kQueryAccess = 0x01;
constexpr std::uint32_t kEnumerateAccess = 0x08;
constexpr std::uint32_t kFullAccess = 0x3F;

/// The only outcome of a write that counts as a failure.
constexpr std::int32_t kFailed = -1;
constexpr std::int32_t kUnknownType = 13;

/// A key opened for one operation.
class OpenedKey {
  public:
    explicit OpenedKey(Registry& registry) : registry_(registry) {}
    OpenedKey(const OpenedKey&) = delete;
    OpenedKey& operator=(const OpenedKey&) = delete;
    ~OpenedKey() {
        if (isOpen_) registry_.closeKey(key_);
    }

    bool open(Registry::Key hive, const std::string& path, std::uint32_t access) {
        isOpen_ = registry_.openKey(hive, path, access, key_) == Registry::kSuccess;
        return isOpen_;
    }
    bool create(Registry::Key hive, const std::string& path) {
        isOpen_ = registry_.createKey(hive, path, kFullAccess, key_) == Registry::kSuccess;
        return isOpen_;
    }
    Registry::Key get() const { return key_; }

  private:
    Registry& registry_;
    Registry::Key key_ = 0;
    bool isOpen_ = false;
};

/// A "%" and another at least two characters further on: "%TEMP%", but neither "100%" nor "%%".
bool holdsEnvironmentReference(const std::string& text) {
    const std::size_t first = text.find('%');
    return first != std::string::npos && text.find('%', first + 2) != std::string::npos;
}

std::uint32_t littleEndian(const std::vector<std::uint8_t>& data) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < data.size() && i < sizeof(number); ++i) {
        number |= static_cast<std::uint32_t>(data[i]) << (8U * i);
    }
    return number;
}

std::uint32_t bigEndian(const std::vector<std::uint8_t>& data) {
    const std::uint32_t number = littleEndian(data);
    return number >> 24U | (number >> 8U & 0xFF00U) | (number << 8U & 0xFF0000U) | number << 24U;
}

const std::string& orDefault(const std::string& menuText, const std::string& defaultText) {
    return menuText.empty() ? defaultText : menuText;
}

}  // namespace

cRegistry::cRegistry(Registry& registry, const CodePage& codePage, std::string executableName)
    : registry_(registry), codePage_(codePage), errorSource_(std::move(executableName) + ".cRegistry") {}

Registry::Key cRegistry::hive() const {
    return static_cast<std::uint32_t>(classKey_);
}

Variant cRegistry::Value() {
    OpenedKey key(registry_);
    if (!key.open(hive(), ansi(sectionKey_), kQueryAccess)) return default_;
    std::uint32_t type = 0;
    std::vector<std::uint8_t> data;
    const std::int32_t outcome = registry_.queryValue(key.get(), ansi(valueKey_), type, data);
    if (outcome != Registry::kSuccess && outcome != Registry::kMoreData) return default_;
    valueType_ = static_cast<std::int32_t>(type);
    return decode(type, data);
}

Variant cRegistry::decode(std::uint32_t type, const std::vector<std::uint8_t>& data) const {
    switch (static_cast<std::int32_t>(type)) {
        case kString:
        case kMultiString:
            return codePage_.fromAnsi(textOf(data));
        case kExpandString:
            return codePage_.fromAnsi(registry_.expandEnvironment(textOf(data)));
        case kNumber:
            return static_cast<std::int32_t>(littleEndian(data));
        case kBigEndianNumber:
            return static_cast<std::int32_t>(bigEndian(data));
        default: {
            ByteArray bytes(data);
            bytes.push_back(0);
            return bytes;
        }
    }
}

/// The data but for its last byte, which is the terminating zero.
std::string cRegistry::textOf(const std::vector<std::uint8_t>& data) const {
    return data.empty() ? std::string() : std::string(data.begin(), data.end() - 1);
}

void cRegistry::setValue(const Variant& value) {
    OpenedKey key(registry_);
    const bool failed = !key.create(hive(), ansi(sectionKey_)) || store(key.get(), value) == kFailed;
    if (failed) {
        const bool hasText = !std::holds_alternative<ByteArray>(value_) &&
                             !std::holds_alternative<std::shared_ptr<ObjectReference>>(value_);
        fail("Failed to set registry value Key: '" + hiveAndSection() + "',Key: '" + valueKey_ +
             "' to value: '" + (hasText ? toText(value_) : "") + "'");
    }
    value_ = value;
}

std::int32_t cRegistry::store(Registry::Key key, const Variant& value) const {
    switch (valueType_) {
        case kString:
        case kExpandString:
            return storeText(key, toText(value));
        case kBinary:
            return storeBytes(key, value);
        case kNumber:
        case kBigEndianNumber:
            return storeNumber(key, value);
        default:
            return kUnknownType;
    }
}

std::int32_t cRegistry::storeText(Registry::Key key, const std::string& text) const {
    const std::string bytes = ansi(text);
    std::vector<std::uint8_t> data(bytes.begin(), bytes.end());
    data.push_back(0);
    const Type type = holdsEnvironmentReference(text) ? kExpandString : kString;
    return registry_.setValue(key, ansi(valueKey_), type, data);
}

std::int32_t cRegistry::storeBytes(Registry::Key key, const Variant& value) const {
    const auto* bytes = std::get_if<ByteArray>(&value);
    if (bytes == nullptr) fail("");
    // With fewer than two bytes the length falls below zero, which the system refuses: nothing is written,
    // and as every system error that counts as success.
    if (bytes->size() < 2) return Registry::kSuccess;
    return registry_.setValue(key, ansi(valueKey_), kBinary, {bytes->begin(), bytes->end() - 2});
}

std::int32_t cRegistry::storeNumber(Registry::Key key, const Variant& value) const {
    std::int32_t number = 0;
    if (const auto* small = std::get_if<std::int16_t>(&value)) {
        number = *small;
    } else if (const auto* large = std::get_if<std::int32_t>(&value)) {
        number = *large;
    } else {
        return Registry::kSuccess;
    }
    const auto bits = static_cast<std::uint32_t>(number);
    std::vector<std::uint8_t> data;
    for (unsigned shift = 0; shift < 32; shift += 8)
        data.push_back(static_cast<std::uint8_t>(bits >> shift));
    return registry_.setValue(key, ansi(valueKey_), kNumber, data);
}

bool cRegistry::KeyExists() const {
    OpenedKey key(registry_);
    return key.open(hive(), ansi(sectionKey_), kQueryAccess);
}

bool cRegistry::CreateKey() const {
    OpenedKey key(registry_);
    if (!key.create(hive(), ansi(sectionKey_))) fail("Failed to create registry Key: '" + sectionKey_);
    return true;
}

bool cRegistry::DeleteKey() const {
    if (registry_.deleteKey(hive(), ansi(sectionKey_)) != Registry::kSuccess) {
        fail("Failed to delete registry Key: '" + hiveAndSection());
    }
    return true;
}

bool cRegistry::DeleteValue() const {
    OpenedKey key(registry_);
    if (!key.open(hive(), ansi(sectionKey_), kFullAccess)) {
        fail("Failed to open key '" + hiveAndSection() + "' for delete access");
    }
    if (registry_.deleteValue(key.get(), ansi(valueKey_)) != Registry::kSuccess) {
        fail("Failed to delete registry Key: '" + hiveAndSection() + "',Key: '" + valueKey_);
    }
    return true;
}

void cRegistry::CloseKey() const {
    registry_.closeKey(hive());
}

bool cRegistry::EnumerateValues(std::vector<std::string>& names, std::int32_t& count) const {
    return enumerate(kQueryAccess, &Registry::enumerateValue, names, count);
}

bool cRegistry::EnumerateSections(std::vector<std::string>& names, std::int32_t& count) const {
    return enumerate(kEnumerateAccess, &Registry::enumerateKey, names, count);
}

bool cRegistry::enumerate(std::uint32_t access, Enumerate next, std::vector<std::string>& names,
                          std::int32_t& count) const {
    names.clear();
    count = 0;
    OpenedKey key(registry_);
    if (!key.open(hive(), ansi(sectionKey_), access)) return false;
    std::string name;
    // Any other outcome ends the list, too: behind a name that cannot be fetched no index is certain.
    while ((registry_.*next)(key.get(), static_cast<std::uint32_t>(count), name) == Registry::kSuccess) {
        names.push_back(codePage_.fromAnsi(name.substr(0, name.find('\0'))));
        ++count;
    }
    return true;
}

cRegistry cRegistry::defaultValueOf(const std::string& path) const {
    cRegistry place(*this);
    place.setSectionKey(path);
    place.setValueKey("");
    place.setValueType(kString);
    return place;
}

std::string cRegistry::classPath(const std::string& className) const {
    return sectionKey_.empty() ? className : sectionKey_ + "\\" + className;
}

void cRegistry::writeVerb(const std::string& classKeyPath, const std::string& verb,
                          const std::string& menuText, const std::string& command) const {
    const std::string path = classKeyPath + "\\shell\\" + verb;
    defaultValueOf(path).setValue(menuText);
    defaultValueOf(path + "\\command").setValue(command);
}

void cRegistry::CreateEXEAssociation(const EXEAssociation& association) const {
    const std::string path = classPath(association.className);
    const std::string& program = association.programPath;
    defaultValueOf(path).setValue(association.description);
    writeVerb(path, "open", orDefault(association.openText, "&Open"), program + " \"%1\"");
    if (association.withPrint) {
        writeVerb(path, "print", orDefault(association.printText, "&Print"), program + " /p \"%1\"");
    }
    if (association.withInstall) {
        const std::string installText = association.className + "&Install ";
        writeVerb(path, "add", orDefault(association.installText, installText), program + " /a \"%1\"");
    }
    if (association.withNew) {
        writeVerb(path, "new", orDefault(association.newText, "&New"), program + " /n \"%1\"");
    }
    defaultValueOf(path + "\\DefaultIcon").setValue(association.icon);
}

void cRegistry::CreateAdditionalEXEAssociations(const std::string& className,
                                                const std::vector<std::string>& namesTextsCommands) const {
    constexpr std::size_t kTriple = 3;
    if (namesTextsCommands.size() % kTriple != 0) {
        fail("Invalid parameter list passed to CreateAdditionalEXEAssociations - expected Name/Text/Command");
    }
    const std::string path = classPath(className);
    if (!defaultValueOf(path).KeyExists()) {
        fail("Error - attempt to create additional associations before class defined.");
    }
    for (std::size_t at = 0; at < namesTextsCommands.size(); at += kTriple) {
        writeVerb(path, namesTextsCommands[at], namesTextsCommands[at + 1], namesTextsCommands[at + 2]);
    }
}

/// The selectors as the failure texts name them; the last apostrophe is the texts' own.
std::string cRegistry::hiveAndSection() const {
    return std::to_string(classKey_) + "',Section: '" + sectionKey_;
}

void cRegistry::fail(const std::string& description) const {
    throw Error(errors::kRegistry, errorSource_, description);
}

}  // namespace pellmark
