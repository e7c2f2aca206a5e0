#include "knowledge/PackedText.h"

#include <gtest/gtest.h>

#include "base/Error.h"

namespace pellmark {
namespace {

class PackedTextTest : public testing::Test {
  protected:
    static std::u16string pack(const std::vector<std::string>& texts) {
        PackedTextWriter writer;
        for (const auto& text : texts)
            writer.add(text);
        return writer.text();
    }

    static void expectMalformed(std::u16string_view packed) {
        try {
            unpackTexts(packed);
            ADD_FAILURE() << "accepted a malformed packed text";
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), errors::kHostInterface);
        }
    }
};

TEST_F(PackedTextTest, ATextIsWrittenAsItsLengthAColonAndItself) {
    EXPECT_EQ(pack({"Bore", "71", ""}), u"4:Bore2:710:");
}

TEST_F(PackedTextTest, LengthsCountUtf16Units) {
    EXPECT_EQ(pack({"\xF0\x9F\x94\xA9"}), u"2:\U0001F529");
}

TEST_F(PackedTextTest, TextsThatLookLikeSeparatorsComeBackUnchanged) {
    const std::vector<std::string> nasty{"3:abc",
                                         ":",
                                         "12",
                                         "a\tb\r\nc",
                                         "\"quoted\", 'too' | ; ,",
                                         "",
                                         "\xE5\x90\x8D\xE5\x89\x8D \xF0\x9F\x94\xA9",
                                         std::string(1000, 'x')};
    EXPECT_EQ(unpackTexts(pack(nasty)), nasty);
}

TEST_F(PackedTextTest, WhatIsWrongIsSaidWithItsPlaceAndWhatStandsThere) {
    const auto textOf = [](std::u16string_view packed, std::size_t fields) {
        try {
            unpackRecords(packed, fields);
        } catch (const Error& error) {
            return error.description();
        }
        return std::string("no failure");
    };
    EXPECT_EQ(textOf(u"4:Bore9:71", 2),
              "The packed text is malformed behind its first 6 characters: a text of 9 "
              "characters belongs there, not '9:71'.");
    EXPECT_EQ(textOf(u"4:Bore3:71", 2),
              "The packed text is malformed behind its first 6 characters: a text of 3 "
              "characters belongs there, not '3:71'.");
    EXPECT_EQ(textOf(u"4:Bore2;71", 2),
              "The packed text is malformed behind its first 6 characters: a length, a "
              "colon and the text belong there, not '2;71'.");
    EXPECT_EQ(
        textOf(u"no packed text, but a sentence", 2),
        "The packed text is malformed behind its first 0 characters: a length, a colon and the text belong "
        "there, not 'no packed text, but ...'.");
    // the nut has two units, of which the twentieth is the first
    EXPECT_EQ(textOf(u"1:ano text, but a nut \xD83D\xDD29", 2),
              "The packed text is malformed behind its first 3 characters: a length, a "
              "colon and the text belong there, not 'no text, but a nut ...'.");
    EXPECT_EQ(textOf(u"1:a1:b1:c", 2),
              "The packed text is malformed behind its first 9 characters: another text belongs there.");
}

TEST_F(PackedTextTest, AnEmptyTextHoldsNoRecords) {
    EXPECT_TRUE(unpackRecords(u"", 3).empty());
}

TEST_F(PackedTextTest, RecordsFollowOneAnother) {
    const auto records = unpackRecords(pack({"a", "1", "b", "2"}), 2);
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[1], (std::vector<std::string>{"b", "2"}));
}

TEST_F(PackedTextTest, AnIncompleteLastRecordIsRefused) {
    EXPECT_THROW(unpackRecords(u"1:a1:b1:c", 2), Error);
}

TEST_F(PackedTextTest, AMissingLengthOrColonIsRefused) {
    expectMalformed(u":a");
    expectMalformed(u":");
    expectMalformed(u"4");
    expectMalformed(u"1a");
    expectMalformed(u"-1:a");
}

TEST_F(PackedTextTest, ALengthBeyondTheTextIsRefused) {
    expectMalformed(u"2:a");
    expectMalformed(u"99999999999999999999999999:a");
}

}  // namespace
}  // namespace pellmark
