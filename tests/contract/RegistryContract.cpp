#include "contract/RegistryContract.h"

#include <gmock/gmock.h>

#include "support/MemoryRegistry.h"
#include "support/PortableCodePage.h"

namespace pellmark::test {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

constexpr std::int32_t kAccessDenied = 5;
constexpr std::int32_t kBadPathname = 161;
constexpr std::uint32_t kText = 1;

class MemoryUnderTest : public RegistryUnderTest {
  public:
    MemoryUnderTest() { registry_.environment["PELLMARK_TEST"] = "drills"; }
    Registry& registry() override { return registry_; }
    const CodePage& codePage() override { return codePage_; }

  private:
    MemoryRegistry registry_;
    PortableCodePage codePage_;
};

std::unique_ptr<RegistryUnderTest> makeMemory() {
    return std::make_unique<MemoryUnderTest>();
}

}  // namespace

RegistryHarness::Stored RegistryHarness::stored(const std::string& path, const std::string& name,
                                                Registry::Key hive) {
    Stored found;
    Registry::Key key = 0;
    found.outcome = registry().openKey(hive, path, kQueryAccess, key);
    if (found.outcome != Registry::kSuccess) return found;
    found.outcome = registry().queryValue(key, name, found.type, found.data);
    registry().closeKey(key);
    return found;
}

void RegistryHarness::store(const std::string& path, const std::string& name, std::uint32_t type,
                            const std::string& bytes, Registry::Key hive) {
    Registry::Key key = 0;
    ASSERT_EQ(registry().createKey(hive, path, kFullAccess, key), Registry::kSuccess);
    EXPECT_EQ(registry().setValue(key, name, type, {bytes.begin(), bytes.end()}), Registry::kSuccess);
    registry().closeKey(key);
}

bool RegistryHarness::keyExists(const std::string& path, Registry::Key hive) {
    Registry::Key key = 0;
    if (registry().openKey(hive, path, kQueryAccess, key) != Registry::kSuccess) return false;
    registry().closeKey(key);
    return true;
}

Registry::Key RegistryContract::open(const std::string& path, std::uint32_t access) {
    Registry::Key key = 0;
    EXPECT_EQ(registry().openKey(Registry::kCurrentUser, path, access, key), Registry::kSuccess);
    return key;
}

Registry::Key RegistryContract::create(const std::string& path, Registry::Key parent) {
    Registry::Key key = 0;
    EXPECT_EQ(registry().createKey(parent, path, kFullAccess, key), Registry::kSuccess);
    return key;
}

std::vector<std::string> RegistryContract::valueNames(const std::string& path) {
    const Registry::Key key = open(path, kQueryAccess);
    std::vector<std::string> names;
    std::string name;
    std::int32_t outcome = 0;
    for (std::uint32_t i = 0; (outcome = registry().enumerateValue(key, i, name)) == 0; ++i)
        names.push_back(name);
    EXPECT_EQ(outcome, Registry::kNoMoreItems);
    registry().closeKey(key);
    return names;
}

std::vector<std::string> RegistryContract::sectionNames(const std::string& path) {
    const Registry::Key key = open(path, kEnumerateAccess);
    std::vector<std::string> names;
    std::string name;
    std::int32_t outcome = 0;
    for (std::uint32_t i = 0; (outcome = registry().enumerateKey(key, i, name)) == 0; ++i)
        names.push_back(name);
    EXPECT_EQ(outcome, Registry::kNoMoreItems);
    registry().closeKey(key);
    return names;
}

TEST_P(RegistryContract, OpeningAMissingKeyAnswersFileNotFound) {
    Registry::Key key = 0;
    EXPECT_EQ(registry().openKey(Registry::kCurrentUser, kScratch, kQueryAccess, key),
              Registry::kFileNotFound);
}

TEST_P(RegistryContract, CreatingAKeyMakesItsParentsAndOpensAnExistingOne) {
    registry().closeKey(create("Software\\Orvane\\Scratch\\Deep"));
    EXPECT_TRUE(keyExists("Software\\Orvane"));
    registry().closeKey(create("Software\\Orvane\\Scratch\\Deep"));
    EXPECT_THAT(sectionNames(kScratch), ElementsAre("Deep"));
}

TEST_P(RegistryContract, ABackslashBehindAPathNamesTheSameKey) {
    registry().closeKey(create("Software\\Orvane\\Scratch\\"));
    EXPECT_TRUE(keyExists("Software\\Orvane\\Scratch"));
    EXPECT_TRUE(keyExists("Software\\Orvane\\Scratch\\"));
    EXPECT_THAT(sectionNames("Software\\Orvane"), ElementsAre("Scratch"));
}

TEST_P(RegistryContract, ABackslashBeforeAPathIsABadPath) {
    registry().closeKey(create(kScratch));
    Registry::Key key = 0;
    EXPECT_EQ(registry().openKey(Registry::kCurrentUser, "\\Software", kQueryAccess, key), kBadPathname);
}

TEST_P(RegistryContract, NamesOfKeysAndValuesIgnoreCaseAndKeepTheFirstSpelling) {
    store("Software\\Orvane\\Scratch", "Depth", kText, std::string("1\0", 2));
    store("SOFTWARE\\ORVANE\\SCRATCH", "DEPTH", kText, std::string("2\0", 2));
    EXPECT_EQ(stored("software\\orvane\\scratch", "depth").text(), std::string("2\0", 2));
    EXPECT_THAT(valueNames(kScratch), ElementsAre("Depth"));
    EXPECT_THAT(sectionNames("Software\\Orvane"), ElementsAre("Scratch"));
}

TEST_P(RegistryContract, AValueKeepsItsTypeAndItsBytes) {
    store(kScratch, "Bytes", 3, std::string("a\0b", 3));
    const Stored found = stored(kScratch, "Bytes");
    EXPECT_EQ(found.type, 3U);
    EXPECT_EQ(found.text(), std::string("a\0b", 3));
}

TEST_P(RegistryContract, AValueWithoutDataIsFoundEmpty) {
    store(kScratch, "Empty", 3, "");
    const Stored found = stored(kScratch, "Empty");
    EXPECT_EQ(found.outcome, Registry::kSuccess);
    EXPECT_THAT(found.data, IsEmpty());
}

TEST_P(RegistryContract, ALongValueIsReadWhole) {
    const std::string bytes(100000, 'x');
    store(kScratch, "Long", 3, bytes);
    EXPECT_EQ(stored(kScratch, "Long").text(), bytes);
}

TEST_P(RegistryContract, AMissingValueAnswersFileNotFound) {
    registry().closeKey(create(kScratch));
    EXPECT_EQ(stored(kScratch, "Missing").outcome, Registry::kFileNotFound);
}

TEST_P(RegistryContract, TheValueWithoutANameIsTheKeysDefaultValue) {
    store(kScratch, "", kText, std::string("d\0", 2));
    EXPECT_EQ(stored(kScratch, "").text(), std::string("d\0", 2));
    EXPECT_THAT(valueNames(kScratch), ElementsAre(""));
}

TEST_P(RegistryContract, EveryNameIsListedOnce) {
    store(kScratch, "One", kText, "x");
    store(kScratch, "Two", kText, "x");
    registry().closeKey(create("Software\\Orvane\\Scratch\\First"));
    registry().closeKey(create("Software\\Orvane\\Scratch\\Second"));
    EXPECT_THAT(valueNames(kScratch), UnorderedElementsAre("One", "Two"));
    EXPECT_THAT(sectionNames(kScratch), UnorderedElementsAre("First", "Second"));
}

TEST_P(RegistryContract, AKeyAllowsOnlyWhatItWasOpenedFor) {
    registry().closeKey(create(kScratch));
    const Registry::Key key = open(kScratch, kQueryAccess);
    std::string name;
    EXPECT_EQ(registry().setValue(key, "New", kText, {0}), kAccessDenied);
    EXPECT_EQ(registry().deleteValue(key, "New"), kAccessDenied);
    EXPECT_EQ(registry().enumerateKey(key, 0, name), kAccessDenied);
    registry().closeKey(key);
}

TEST_P(RegistryContract, AKeyWithSubKeysCannotBeDeleted) {
    registry().closeKey(create("Software\\Orvane\\Scratch\\Deep"));
    EXPECT_EQ(registry().deleteKey(Registry::kCurrentUser, kScratch), kAccessDenied);
    EXPECT_EQ(registry().deleteKey(Registry::kCurrentUser, "Software\\Orvane\\Scratch\\Deep"),
              Registry::kSuccess);
    EXPECT_EQ(registry().deleteKey(Registry::kCurrentUser, kScratch), Registry::kSuccess);
    EXPECT_FALSE(keyExists(kScratch));
}

TEST_P(RegistryContract, DeletingWhatIsNotThereAnswersFileNotFound) {
    EXPECT_EQ(registry().deleteKey(Registry::kCurrentUser, kScratch), Registry::kFileNotFound);
    const Registry::Key key = create(kScratch);
    EXPECT_EQ(registry().deleteValue(key, "Missing"), Registry::kFileNotFound);
    registry().closeKey(key);
}

TEST_P(RegistryContract, TheHivesAreApart) {
    store(kScratch, "Where", kText, "x", Registry::kLocalMachine);
    EXPECT_TRUE(keyExists(kScratch, Registry::kLocalMachine));
    EXPECT_FALSE(keyExists(kScratch));
}

TEST_P(RegistryContract, EnvironmentReferencesAreReplacedWhereTheyAreKnown) {
    EXPECT_EQ(registry().expandEnvironment("C:\\%Pellmark_Test%\\x"), "C:\\drills\\x");
    EXPECT_EQ(registry().expandEnvironment("%PELLMARK_UNKNOWN%"), "%PELLMARK_UNKNOWN%");
    EXPECT_EQ(registry().expandEnvironment("100% sure"), "100% sure");
    EXPECT_EQ(registry().expandEnvironment(""), "");
}

INSTANTIATE_TEST_SUITE_P(Memory, RegistryContract, ::testing::Values(&makeMemory));
INSTANTIATE_TEST_SUITE_P(Memory, CRegistryContract, ::testing::Values(&makeMemory));
INSTANTIATE_TEST_SUITE_P(Memory, CQDLExtSettingsContract, ::testing::Values(&makeMemory));
INSTANTIATE_TEST_SUITE_P(Memory, CRegDefaultsContract, ::testing::Values(&makeMemory));

}  // namespace pellmark::test
