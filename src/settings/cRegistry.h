#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/Variant.h"
#include "ports/CodePage.h"
#include "ports/Registry.h"

namespace pellmark {

/// What a file-type association is made of. A menu text left empty takes its default.
struct EXEAssociation {
    std::string programPath;
    std::string className;  ///< the class key, below the hive ClassKey and the key path SectionKey
    std::string description;
    std::string icon;  ///< such as "C:\Norvex\Norvex.exe,0"
    std::string openText{};
    bool withPrint = false;
    std::string printText{};
    bool withInstall = false;
    std::string installText{};
    bool withNew = false;
    std::string newText{};
};

/// One place in the registry, chosen by four selectors, to be read, written, created, deleted or listed. Keys
/// are opened and closed inside each operation. Failures are thrown as errors::kRegistry with the source
/// "<host executable>.cRegistry"; reading never fails but answers Default.
class cRegistry {
  public:
    /// `executableName` is the host executable's name without folder and extension. The ports must outlive
    /// this object.
    cRegistry(Registry& registry, const CodePage& codePage, std::string executableName);

    /// The hive's handle as a signed number: HKEY_CURRENT_USER is -2147483647.
    std::int32_t ClassKey() const { return classKey_; }
    void setClassKey(std::int32_t hive) { classKey_ = hive; }
    static constexpr std::int32_t kCurrentUser = -2147483647;
    static constexpr std::int32_t kLocalMachine = -2147483646;

    /// The key's path below the hive.
    const std::string& SectionKey() const { return sectionKey_; }
    void setSectionKey(std::string path) { sectionKey_ = std::move(path); }

    /// The name of the value inside the key; "" is the key's default value.
    const std::string& ValueKey() const { return valueKey_; }
    void setValueKey(std::string name) { valueKey_ = std::move(name); }

    /// The registry's own type numbers.
    enum Type : std::int32_t {
        kString = 1,
        kExpandString = 2,
        kBinary = 3,
        kNumber = 4,
        kBigEndianNumber = 5,
        kMultiString = 7
    };
    /// The type to write as; reading Value replaces it by the type found.
    std::int32_t ValueType() const { return valueType_; }
    void setValueType(std::int32_t type) { valueType_ = type; }

    /// What reading Value answers when the key or the value cannot be read.
    const Variant& Default() const { return default_; }
    void setDefault(Variant value) { default_ = std::move(value); }

    /// Reads the value. Bytes come with one element more than the data, a multi-string with its inner zeros.
    Variant Value();
    /// Writes the value as ValueType, creating the key. A text with an environment reference in percent signs
    /// becomes an expandable string. Of bytes, two fewer are stored than the array holds: existing callers
    /// size their arrays for that. A number type stores 16- and 32-bit integers and silently nothing else; an
    /// unknown type stores nothing. A system error code counts as success, so that a setting which may not be
    /// written stops nobody's work; only a key that cannot be created, the outcome -1, and a binary value
    /// that is not bytes throw. A value that has no text throws errors::kTypeMismatch where text is to be
    /// written.
    void setValue(const Variant& value);

    bool KeyExists() const;
    bool CreateKey() const;
    /// The key must have no sub-keys.
    bool DeleteKey() const;
    bool DeleteValue() const;
    /// Closes the handle held in ClassKey.
    void CloseKey() const;
    /// Replaces `names` by the names of the key's values; count is their number. False, and no names, when
    /// the key cannot be opened.
    bool EnumerateValues(std::vector<std::string>& names, std::int32_t& count) const;
    /// The same for the names of the key's sub-keys.
    bool EnumerateSections(std::vector<std::string>& names, std::int32_t& count) const;

    /// Writes the class key of a file type with the verbs that the shell offers for it.
    void CreateEXEAssociation(const EXEAssociation& association) const;
    /// Adds shell verbs to a class written before: name, menu text and command of each in turn.
    void CreateAdditionalEXEAssociations(const std::string& className,
                                         const std::vector<std::string>& namesTextsCommands) const;

  private:
    using Enumerate = std::int32_t (Registry::*)(Registry::Key, std::uint32_t, std::string&);

    Registry::Key hive() const;
    std::string ansi(const std::string& text) const { return codePage_.toAnsi(text); }
    /// The place named by the selectors but for the path and the name, which are the default value of `path`.
    cRegistry defaultValueOf(const std::string& path) const;
    Variant decode(std::uint32_t type, const std::vector<std::uint8_t>& data) const;
    std::string textOf(const std::vector<std::uint8_t>& data) const;
    /// Writes one value; the outcome as the system reports it, 0 when there was nothing to write.
    std::int32_t store(Registry::Key key, const Variant& value) const;
    std::int32_t storeText(Registry::Key key, const std::string& text) const;
    std::int32_t storeBytes(Registry::Key key, const Variant& value) const;
    std::int32_t storeNumber(Registry::Key key, const Variant& value) const;
    bool enumerate(std::uint32_t access, Enumerate next, std::vector<std::string>& names,
                   std::int32_t& count) const;
    /// The class key's path below the hive.
    std::string classPath(const std::string& className) const;
    void writeVerb(const std::string& classKeyPath, const std::string& verb, const std::string& menuText,
                   const std::string& command) const;
    std::string hiveAndSection() const;
    [[noreturn]] void fail(const std::string& description) const;

    Registry& registry_;
    const CodePage& codePage_;
    std::string errorSource_;
    std::int32_t classKey_ = 0;
    std::string sectionKey_;
    std::string valueKey_;
    std::int32_t valueType_ = 0;
    Variant default_;
    Variant value_;  ///< last successfully written
};

}  // namespace pellmark
