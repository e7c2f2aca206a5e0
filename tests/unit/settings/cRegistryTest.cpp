#include "settings/cRegistry.h"

#include <gmock/gmock.h>

#include "base/Error.h"
#include "support/MemoryRegistry.h"
#include "support/PortableCodePage.h"

// How the accessor answers failures that only a registry in memory can be made to have. What it does over any
// registry is in the contract tests.
namespace pellmark::test {

namespace {

using ::testing::ElementsAre;

constexpr char kKey[] = "Software\\Orvane\\Scratch";
constexpr std::int32_t kAccessDenied = 5;

class AnObject : public ObjectReference {};

}  // namespace

class CRegistryTest : public ::testing::Test {
  protected:
    CRegistryTest() { select(); }
    ~CRegistryTest() override { EXPECT_EQ(registry.openKeys(), 0) << "a key was left open"; }

    void select() {
        place.setClassKey(cRegistry::kCurrentUser);
        place.setSectionKey(kKey);
        place.setValueKey("Name");
        place.setValueType(cRegistry::kString);
    }
    std::string failureOf(const Variant& value) {
        try {
            place.setValue(value);
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), 26001);
            EXPECT_EQ(error.source(), "Norvex.cRegistry");
            return error.description();
        }
        return "nothing was thrown";
    }

    MemoryRegistry registry;
    PortableCodePage codePage;
    cRegistry place{registry, codePage, "Norvex"};
};

TEST_F(CRegistryTest, TheOutcomeMinusOneOfAWriteRaisesWithTheLastWrittenValue) {
    place.setValue("before");
    registry.refuseWrites(-1);
    EXPECT_EQ(
        failureOf("after"),
        "Failed to set registry value Key: '-2147483647',Section: 'Software\\Orvane\\Scratch',Key: 'Name' "
        "to value: 'before'");
}

TEST_F(CRegistryTest, BeforeTheFirstWriteTheErrorNamesNoValue) {
    registry.refuseWrites(-1);
    EXPECT_EQ(
        failureOf("after"),
        "Failed to set registry value Key: '-2147483647',Section: 'Software\\Orvane\\Scratch',Key: 'Name' "
        "to value: ''");
}

TEST_F(CRegistryTest, ASystemErrorOfAWriteCountsAsSuccessAndTheValueIsKept) {
    registry.refuseWrites(kAccessDenied);
    EXPECT_NO_THROW(place.setValue("refused"));
    EXPECT_FALSE(registry.text(Registry::kCurrentUser, kKey, "Name").has_value());
    registry.refuseWrites(-1);
    EXPECT_THAT(failureOf("after"), ::testing::EndsWith("to value: 'refused'"));
}

TEST_F(CRegistryTest, AValueThatWasSilentlyNotWrittenIsKeptToo) {
    place.setValueType(cRegistry::kNumber);
    place.setValue("no number");
    place.setValueType(99);
    place.setValue(std::int32_t{7});
    registry.refuseAccess(kAccessDenied);
    EXPECT_THAT(failureOf("after"), ::testing::EndsWith("to value: '7'"));
}

TEST_F(CRegistryTest, AFailedWriteDoesNotReplaceTheLastWrittenValue) {
    place.setValue("before");
    registry.refuseWrites(-1);
    failureOf("first");
    EXPECT_THAT(failureOf("second"), ::testing::EndsWith("to value: 'before'"));
}

TEST_F(CRegistryTest, BytesHaveNoTextInTheError) {
    place.setValueType(cRegistry::kBinary);
    place.setValue(ByteArray{1, 2, 3});
    registry.refuseWrites(-1);
    EXPECT_THAT(failureOf(ByteArray{1, 2, 3}), ::testing::EndsWith("to value: ''"));
}

TEST_F(CRegistryTest, AKeyThatMayNotBeCreatedRaises) {
    registry.refuseAccess(kAccessDenied);
    EXPECT_THAT(failureOf("x"), ::testing::StartsWith("Failed to set registry value Key: '"));
    EXPECT_THROW(place.CreateKey(), Error);
    EXPECT_THROW(place.DeleteKey(), Error);
    EXPECT_FALSE(place.KeyExists());
}

TEST_F(CRegistryTest, ReadingWhatMayNotBeReadAnswersTheDefault) {
    place.setValue("there");
    place.setDefault("otherwise");
    registry.refuseAccess(kAccessDenied);
    EXPECT_EQ(place.Value(), Variant("otherwise"));
}

TEST_F(CRegistryTest, AValueWithoutATextCannotBeWrittenAsOne) {
    const auto numberOf = [&](const Variant& value) {
        try {
            place.setValue(value);
        } catch (const Error& error) {
            return error.number();
        }
        return 0;
    };
    EXPECT_EQ(numberOf(ByteArray{65}), errors::kTypeMismatch);
    EXPECT_EQ(numberOf(std::shared_ptr<ObjectReference>(std::make_shared<AnObject>())),
              errors::kTypeMismatch);
}

TEST_F(CRegistryTest, ANumberWithTooFewBytesIsFilledUpWithZeros) {
    Registry::Key key = 0;
    registry.createKey(Registry::kCurrentUser, kKey, 0x3F, key);
    registry.setValue(key, "Name", 4, {0x12, 0x34});
    registry.closeKey(key);
    EXPECT_EQ(place.Value(), Variant(std::int32_t{0x3412}));
}

TEST_F(CRegistryTest, OfANumberWithTooManyBytesTheFirstFourCount) {
    Registry::Key key = 0;
    registry.createKey(Registry::kCurrentUser, kKey, 0x3F, key);
    registry.setValue(key, "Name", 4, {0x12, 0x34, 0, 0, 0x81});
    registry.closeKey(key);
    EXPECT_EQ(place.Value(), Variant(std::int32_t{0x3412}));
}

TEST_F(CRegistryTest, AStringWithoutItsTerminatingZeroLosesItsLastCharacter) {
    Registry::Key key = 0;
    registry.createKey(Registry::kCurrentUser, kKey, 0x3F, key);
    registry.setValue(key, "Name", 1, {'a', 'b', 'c'});
    registry.closeKey(key);
    EXPECT_EQ(place.Value(), Variant("ab"));
}

TEST_F(CRegistryTest, ListedNamesEndAtTheirTerminatingZero) {
    Registry::Key key = 0;
    registry.createKey(Registry::kCurrentUser, kKey, 0x3F, key);
    registry.setValue(key, std::string("Width\0rest", 10), 1, {0});
    registry.closeKey(key);
    std::vector<std::string> names;
    std::int32_t count = 0;
    EXPECT_TRUE(place.EnumerateValues(names, count));
    EXPECT_THAT(names, ElementsAre("Width"));
}

TEST_F(CRegistryTest, ClosingTheKeyClosesTheHandleHeldInTheHive) {
    Registry::Key key = 0;
    registry.createKey(Registry::kCurrentUser, kKey, 0x3F, key);
    place.setClassKey(static_cast<std::int32_t>(key));
    place.CloseKey();
    EXPECT_EQ(registry.openKeys(), 0);
}

TEST_F(CRegistryTest, TheSelectorsAreReadAsTheyWereSet) {
    place.setDefault(std::int16_t{3});
    EXPECT_EQ(place.ClassKey(), -2147483647);
    EXPECT_EQ(place.SectionKey(), kKey);
    EXPECT_EQ(place.ValueKey(), "Name");
    EXPECT_EQ(place.ValueType(), 1);
    EXPECT_EQ(place.Default(), Variant(std::int16_t{3}));
}

TEST_F(CRegistryTest, AnAssociationLeavesTheSelectorsAsTheyWere) {
    place.CreateEXEAssociation({"N.exe", "Cls", "Description", "N.exe,0"});
    EXPECT_EQ(place.SectionKey(), kKey);
    EXPECT_EQ(place.ValueKey(), "Name");
}

TEST_F(CRegistryTest, AnAssociationWithoutAKeyPathStandsDirectlyBelowTheHive) {
    place.setClassKey(static_cast<std::int32_t>(MemoryRegistry::kClassesRoot));
    place.setSectionKey("");
    place.CreateEXEAssociation({"N.exe", "Cls", "Description", "N.exe,0"});
    EXPECT_EQ(registry.text(MemoryRegistry::kClassesRoot, "Cls\\shell\\open\\command", ""), "N.exe \"%1\"");
}

}  // namespace pellmark::test
