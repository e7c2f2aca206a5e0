#include <gmock/gmock.h>

#include "contract/RegistryContract.h"
#include "support/ThrownError.h"

namespace pellmark::test {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

std::string zeroTerminated(std::string text) {
    return text + '\0';
}

}  // namespace

cRegistry CRegistryContract::at(const std::string& name, std::int32_t type) {
    cRegistry place(registry(), codePage(), "Norvex");
    place.setClassKey(cRegistry::kCurrentUser);
    place.setSectionKey(kScratch);
    place.setValueKey(name);
    place.setValueType(type);
    return place;
}

TEST_P(CRegistryContract, ReadingAMissingValueReturnsTheDefaultAndLeavesTheType) {
    at("Other").setValue("x");
    cRegistry place = at("Missing", 7);
    place.setDefault(std::int32_t{42});
    EXPECT_EQ(place.Value(), Variant(std::int32_t{42}));
    EXPECT_EQ(place.ValueType(), 7);
}

TEST_P(CRegistryContract, ReadingAMissingKeyReturnsTheDefaultAndCreatesNothing) {
    cRegistry place = at("Missing", 7);
    place.setDefault("otherwise");
    EXPECT_EQ(place.Value(), Variant("otherwise"));
    EXPECT_EQ(place.ValueType(), 7);
    EXPECT_FALSE(keyExists(kScratch));
}

TEST_P(CRegistryContract, WithoutADefaultAMissingValueIsEmpty) {
    EXPECT_EQ(at("Missing").Value(), Variant());
}

TEST_P(CRegistryContract, ATextIsReadAsItWasWrittenAndSetsTheType) {
    at("Name").setValue("Gewindebohren M8");
    cRegistry place = at("Name", cRegistry::kNumber);
    EXPECT_EQ(place.Value(), Variant("Gewindebohren M8"));
    EXPECT_EQ(place.ValueType(), cRegistry::kString);
}

TEST_P(CRegistryContract, ATextIsStoredInTheCodePageWithItsTerminatingZero) {
    at("Name").setValue("Fr\xC3\xA4sen");
    EXPECT_EQ(written("Name").text(), zeroTerminated("Fr\xE4sen"));
    EXPECT_EQ(at("Name").Value(), Variant("Fr\xC3\xA4sen"));
}

TEST_P(CRegistryContract, ACharacterThatTheCodePageLacksBecomesAQuestionMarkAndNoLookAlike) {
    at("Name").setValue(
        "a\xEF\xBC\xBC"
        "b");  // a fullwidth backslash
    EXPECT_EQ(at("Name").Value(), Variant("a?b"));
}

TEST_P(CRegistryContract, AnEmptyTextIsReadAsAnEmptyText) {
    at("Name").setValue("");
    EXPECT_EQ(written("Name").text(), zeroTerminated(""));
    EXPECT_EQ(at("Name").Value(), Variant(""));
}

TEST_P(CRegistryContract, AStringValueWithoutAnyDataIsAnEmptyText) {
    store(kScratch, "Name", 1, "");
    cRegistry place = at("Name");
    place.setDefault("otherwise");
    EXPECT_EQ(place.Value(), Variant(""));
}

TEST_P(CRegistryContract, ANumberWrittenAsAStringIsItsDecimalText) {
    at("Count").setValue(std::int32_t{-12});
    EXPECT_EQ(written("Count").text(), zeroTerminated("-12"));
    at("Ratio").setValue(0.25);
    EXPECT_EQ(written("Ratio").text(), zeroTerminated("0.25"));
}

TEST_P(CRegistryContract, AMultiStringKeepsItsInnerZeros) {
    store(kScratch, "List", 7, std::string("a\0b\0\0", 5));
    cRegistry place = at("List");
    EXPECT_EQ(place.Value(), Variant(std::string("a\0b\0", 4)));
    EXPECT_EQ(place.ValueType(), cRegistry::kMultiString);
}

TEST_P(CRegistryContract, ASinglePercentSignIsNoEnvironmentReference) {
    at("Share").setValue("100%");
    EXPECT_EQ(written("Share").type, 1U);
    EXPECT_EQ(at("Share").Value(), Variant("100%"));
}

TEST_P(CRegistryContract, TwoPercentSignsSideBySideAreNoEnvironmentReference) {
    at("Share", cRegistry::kExpandString).setValue("100%%");
    EXPECT_EQ(written("Share").type, 1U);
}

TEST_P(CRegistryContract, ASecondPercentSignTwoCharactersFurtherOnMakesAnExpandableString) {
    at("Path").setValue("%x%");
    EXPECT_EQ(written("Path").type, 2U);
    at("Path").setValue("%%%");
    EXPECT_EQ(written("Path").type, 2U);
}

TEST_P(CRegistryContract, AnExpandableStringIsReadExpandedAndSetsTheType) {
    at("Path").setValue("C:\\%PELLMARK_TEST%");
    EXPECT_EQ(written("Path").text(), zeroTerminated("C:\\%PELLMARK_TEST%"));
    cRegistry place = at("Path");
    EXPECT_EQ(place.Value(), Variant("C:\\drills"));
    EXPECT_EQ(place.ValueType(), cRegistry::kExpandString);
}

TEST_P(CRegistryContract, ATextOfTheExpandableTypeWithoutAReferenceIsAPlainString) {
    at("Path", cRegistry::kExpandString).setValue("C:\\Norvex");
    EXPECT_EQ(written("Path").type, 1U);
}

TEST_P(CRegistryContract, IntegersOfBothSizesAreStoredAsNumbers) {
    at("Wide", cRegistry::kNumber).setValue(std::int32_t{-2});
    at("Narrow", cRegistry::kNumber).setValue(std::int16_t{-1});
    EXPECT_EQ(written("Wide").type, 4U);
    EXPECT_EQ(at("Wide").Value(), Variant(std::int32_t{-2}));
    EXPECT_EQ(at("Narrow").Value(), Variant(std::int32_t{-1}));
}

TEST_P(CRegistryContract, WritingATextAsANumberWritesNothingAndRaisesNothing) {
    at("Width", cRegistry::kNumber).setValue("12");
    EXPECT_EQ(written("Width").outcome, Registry::kFileNotFound);
    EXPECT_TRUE(keyExists(kScratch));
}

TEST_P(CRegistryContract, OnlyIntegersAreStoredAsNumbers) {
    at("Width", cRegistry::kNumber).setValue(12.0);
    at("Width", cRegistry::kNumber).setValue(true);
    at("Width", cRegistry::kBigEndianNumber).setValue(Variant());
    EXPECT_EQ(written("Width").outcome, Registry::kFileNotFound);
}

TEST_P(CRegistryContract, ABigEndianNumberIsReadWithItsBytesReversed) {
    store(kScratch, "Big", 5, std::string("\x01\x02\x03\x04", 4));
    cRegistry place = at("Big");
    EXPECT_EQ(place.Value(), Variant(std::int32_t{0x01020304}));
    EXPECT_EQ(place.ValueType(), cRegistry::kBigEndianNumber);
}

TEST_P(CRegistryContract, ABigEndianNumberIsWrittenAsAPlainOneWithoutReversal) {
    at("Big", cRegistry::kBigEndianNumber).setValue(std::int32_t{0x01020304});
    EXPECT_EQ(written("Big").type, 4U);
    EXPECT_THAT(written("Big").data, ElementsAre(4, 3, 2, 1));
}

TEST_P(CRegistryContract, BytesAreReadWithOneElementMoreThanTheData) {
    store(kScratch, "Bytes", 3, std::string("\x07\x08", 2));
    cRegistry place = at("Bytes");
    EXPECT_EQ(place.Value(), Variant(ByteArray{7, 8, 0}));
    EXPECT_EQ(place.ValueType(), cRegistry::kBinary);
}

TEST_P(CRegistryContract, AnUnknownTypeIsReadAsBytes) {
    store(kScratch, "Odd", 11, "12345678");
    cRegistry place = at("Odd");
    EXPECT_EQ(std::get<ByteArray>(place.Value()).size(), 9U);
    EXPECT_EQ(place.ValueType(), 11);
}

TEST_P(CRegistryContract, TwoBytesFewerThanTheArrayHoldsAreStored) {
    at("Bytes", cRegistry::kBinary).setValue(ByteArray{1, 2, 3, 4, 5});
    EXPECT_EQ(written("Bytes").type, 3U);
    EXPECT_THAT(written("Bytes").data, ElementsAre(1, 2, 3));
    at("Bytes", cRegistry::kBinary).setValue(ByteArray{1, 2});
    EXPECT_THAT(written("Bytes").data, IsEmpty());
}

TEST_P(CRegistryContract, AnArrayTooShortToStoreAnythingLeavesTheValueAndRaisesNothing) {
    store(kScratch, "Bytes", 3, "old");
    at("Bytes", cRegistry::kBinary).setValue(ByteArray{1});
    at("Bytes", cRegistry::kBinary).setValue(ByteArray{});
    EXPECT_EQ(written("Bytes").text(), "old");
}

TEST_P(CRegistryContract, WritingWhatIsNotBytesAsBinaryRaisesAnErrorWithoutText) {
    const Error error = errorOf([&] { at("Bytes", cRegistry::kBinary).setValue("text"); });
    EXPECT_EQ(error.number(), 26001);
    EXPECT_EQ(error.source(), "Norvex.cRegistry");
    EXPECT_EQ(error.description(), "");
}

TEST_P(CRegistryContract, AnUnknownTypeIsNotWrittenAndRaisesNothing) {
    at("List", cRegistry::kMultiString).setValue("text");
    at("None", 0).setValue("text");
    EXPECT_EQ(written("List").outcome, Registry::kFileNotFound);
    EXPECT_EQ(written("None").outcome, Registry::kFileNotFound);
}

TEST_P(CRegistryContract, AValueWithoutANameIsTheKeysDefaultValue) {
    at("").setValue("of the key");
    EXPECT_EQ(at("").Value(), Variant("of the key"));
}

TEST_P(CRegistryContract, AKeyExistsOnceItWasCreated) {
    EXPECT_FALSE(at("").KeyExists());
    EXPECT_TRUE(at("").CreateKey());
    EXPECT_TRUE(at("").KeyExists());
    EXPECT_TRUE(at("").CreateKey());
}

TEST_P(CRegistryContract, AKeyThatCannotBeCreatedIsNamedInTheError) {
    cRegistry place = at("");
    place.setSectionKey("\\Bad");
    const Error error = errorOf([&] { place.CreateKey(); });
    EXPECT_EQ(error.number(), 26001);
    EXPECT_EQ(error.source(), "Norvex.cRegistry");
    EXPECT_EQ(error.description(), "Failed to create registry Key: '\\Bad");
}

TEST_P(CRegistryContract, AKeyIsDeletedUnlessItHasSubKeys) {
    cRegistry deep = at("");
    deep.setSectionKey(std::string(kScratch) + "\\Deep");
    deep.CreateKey();
    const Error error = errorOf([&] { at("").DeleteKey(); });
    EXPECT_EQ(error.number(), 26001);
    EXPECT_EQ(error.description(),
              "Failed to delete registry Key: '-2147483647',Section: 'Software\\Orvane\\Scratch");
    EXPECT_TRUE(deep.DeleteKey());
    EXPECT_TRUE(at("").DeleteKey());
    EXPECT_FALSE(at("").KeyExists());
}

TEST_P(CRegistryContract, AValueIsDeletedAndItsKeyStays) {
    at("Name").setValue("x");
    EXPECT_TRUE(at("Name").DeleteValue());
    EXPECT_EQ(written("Name").outcome, Registry::kFileNotFound);
    EXPECT_TRUE(at("").KeyExists());
}

TEST_P(CRegistryContract, DeletingAValueOfAMissingKeyNamesTheKey) {
    const Error error = errorOf([&] { at("Name").DeleteValue(); });
    EXPECT_EQ(error.number(), 26001);
    EXPECT_EQ(error.description(),
              "Failed to open key '-2147483647',Section: 'Software\\Orvane\\Scratch' for delete access");
}

TEST_P(CRegistryContract, DeletingAMissingValueNamesTheValue) {
    at("").CreateKey();
    const Error error = errorOf([&] { at("Name").DeleteValue(); });
    EXPECT_EQ(error.number(), 26001);
    EXPECT_EQ(error.description(),
              "Failed to delete registry Key: '-2147483647',Section: 'Software\\Orvane\\Scratch',Key: 'Name");
}

TEST_P(CRegistryContract, AValueOfAKeyThatCannotBeCreatedIsNamedInTheErrorWithTheLastWrittenValue) {
    cRegistry place = at("Name");
    place.setValue("before");
    place.setSectionKey("\\Bad");
    const Error error = errorOf([&] { place.setValue("after"); });
    EXPECT_EQ(error.number(), 26001);
    EXPECT_EQ(error.source(), "Norvex.cRegistry");
    EXPECT_EQ(
        error.description(),
        "Failed to set registry value Key: '-2147483647',Section: '\\Bad',Key: 'Name' to value: 'before'");
}

TEST_P(CRegistryContract, TheMachinesHiveShowsAsItsSignedNumber) {
    cRegistry place = at("");
    place.setClassKey(cRegistry::kLocalMachine);
    const Error error = errorOf([&] { place.DeleteKey(); });
    EXPECT_EQ(error.description(),
              "Failed to delete registry Key: '-2147483646',Section: 'Software\\Orvane\\Scratch");
}

TEST_P(CRegistryContract, TheNamesOfValuesAreListedAndCounted) {
    at("One").setValue("1");
    at("Gr\xC3\xB6\xC3\x9F"
       "e")
        .setValue("2");
    std::vector<std::string> names{"left over"};
    std::int32_t count = -1;
    EXPECT_TRUE(at("").EnumerateValues(names, count));
    EXPECT_THAT(names, UnorderedElementsAre("One",
                                            "Gr\xC3\xB6\xC3\x9F"
                                            "e"));
    EXPECT_EQ(count, 2);
}

TEST_P(CRegistryContract, TheNamesOfSubKeysAreListedAndCounted) {
    for (const char* const name : {"\\First", "\\Second", "\\Second\\Deep"}) {
        cRegistry place = at("");
        place.setSectionKey(kScratch + std::string(name));
        place.CreateKey();
    }
    std::vector<std::string> names{"left over"};
    std::int32_t count = -1;
    EXPECT_TRUE(at("").EnumerateSections(names, count));
    EXPECT_THAT(names, UnorderedElementsAre("First", "Second"));
    EXPECT_EQ(count, 2);
}

TEST_P(CRegistryContract, AKeyThatCannotBeOpenedYieldsNoNames) {
    std::vector<std::string> names{"left over"};
    std::int32_t count = -1;
    EXPECT_FALSE(at("").EnumerateValues(names, count));
    EXPECT_THAT(names, IsEmpty());
    EXPECT_EQ(count, 0);
    names = {"left over"};
    EXPECT_FALSE(at("").EnumerateSections(names, count));
    EXPECT_THAT(names, IsEmpty());
}

TEST_P(CRegistryContract, AnAssociationWritesTheClassAndItsOpenVerbWithDefaultTexts) {
    at("").CreateEXEAssociation(
        {"C:\\Norvex\\Norvex.exe", "Norvex.Process", "Norvex process", "icons.dll,3"});
    const std::string key = std::string(kScratch) + "\\Norvex.Process";
    EXPECT_EQ(stored(key, "").text(), zeroTerminated("Norvex process"));
    EXPECT_EQ(stored(key + "\\shell\\open", "").text(), zeroTerminated("&Open"));
    EXPECT_EQ(stored(key + "\\shell\\open\\command", "").text(),
              zeroTerminated("C:\\Norvex\\Norvex.exe \"%1\""));
    EXPECT_EQ(stored(key + "\\DefaultIcon", "").text(), zeroTerminated("icons.dll,3"));
    std::vector<std::string> verbs;
    std::int32_t count = 0;
    cRegistry shell = at("");
    shell.setSectionKey(key + "\\shell");
    shell.EnumerateSections(verbs, count);
    EXPECT_THAT(verbs, ElementsAre("open"));
}

TEST_P(CRegistryContract, AnAssociationWritesTheOptionalVerbsThatAreWanted) {
    EXEAssociation association{"N.exe", "Cls", "Description", "N.exe,0"};
    association.withPrint = association.withInstall = association.withNew = true;
    at("").CreateEXEAssociation(association);
    const std::string shell = std::string(kScratch) + "\\Cls\\shell\\";
    EXPECT_EQ(stored(shell + "print", "").text(), zeroTerminated("&Print"));
    EXPECT_EQ(stored(shell + "print\\command", "").text(), zeroTerminated("N.exe /p \"%1\""));
    EXPECT_EQ(stored(shell + "add", "").text(), zeroTerminated("Cls&Install "));
    EXPECT_EQ(stored(shell + "add\\command", "").text(), zeroTerminated("N.exe /a \"%1\""));
    EXPECT_EQ(stored(shell + "new", "").text(), zeroTerminated("&New"));
    EXPECT_EQ(stored(shell + "new\\command", "").text(), zeroTerminated("N.exe /n \"%1\""));
}

TEST_P(CRegistryContract, AnAssociationTakesTheMenuTextsThatAreGiven) {
    EXEAssociation association{"N.exe", "Cls", "Description", "N.exe,0", "Open it"};
    association.withPrint = association.withInstall = association.withNew = true;
    association.printText = "Print it";
    association.installText = "Install it";
    association.newText = "Make one";
    at("").CreateEXEAssociation(association);
    const std::string shell = std::string(kScratch) + "\\Cls\\shell\\";
    EXPECT_EQ(stored(shell + "open", "").text(), zeroTerminated("Open it"));
    EXPECT_EQ(stored(shell + "print", "").text(), zeroTerminated("Print it"));
    EXPECT_EQ(stored(shell + "add", "").text(), zeroTerminated("Install it"));
    EXPECT_EQ(stored(shell + "new", "").text(), zeroTerminated("Make one"));
}

TEST_P(CRegistryContract, AdditionalVerbsJoinAClass) {
    at("").CreateEXEAssociation({"N.exe", "Cls", "Description", "N.exe,0"});
    at("").CreateAdditionalEXEAssociations("Cls",
                                           {"edit", "&Edit", "N.exe /e", "check", "&Check", "N.exe /c"});
    const std::string shell = std::string(kScratch) + "\\Cls\\shell\\";
    EXPECT_EQ(stored(shell + "edit", "").text(), zeroTerminated("&Edit"));
    EXPECT_EQ(stored(shell + "edit\\command", "").text(), zeroTerminated("N.exe /e"));
    EXPECT_EQ(stored(shell + "check\\command", "").text(), zeroTerminated("N.exe /c"));
}

TEST_P(CRegistryContract, AdditionalVerbsMustComeInThrees) {
    at("").CreateEXEAssociation({"N.exe", "Cls", "Description", "N.exe,0"});
    const Error error = errorOf([&] { at("").CreateAdditionalEXEAssociations("Cls", {"edit", "&Edit"}); });
    EXPECT_EQ(error.number(), 26001);
    EXPECT_EQ(error.source(), "Norvex.cRegistry");
    EXPECT_EQ(
        error.description(),
        "Invalid parameter list passed to CreateAdditionalEXEAssociations - expected Name/Text/Command");
}

TEST_P(CRegistryContract, AdditionalVerbsNeedTheClass) {
    const Error error = errorOf([&] {
        at("").CreateAdditionalEXEAssociations("Cls", {"edit", "&Edit", "N.exe"});
    });
    EXPECT_EQ(error.number(), 26001);
    EXPECT_EQ(error.description(), "Error - attempt to create additional associations before class defined.");
}

}  // namespace pellmark::test
