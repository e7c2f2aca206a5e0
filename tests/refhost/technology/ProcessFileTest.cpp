#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <random>
#include <sstream>

#include "base/Error.h"
#include "refhost/technology/Codes.h"
#include "refhost/technology/ProcessFileReader.h"
#include "refhost/technology/ProcessFileText.h"
#include "refhost/technology/ProcessFileWriter.h"
#include "support/TemporaryFolder.h"

namespace norvex {
namespace {

using pellmark::Variant;
using pellmark::test::readFile;
using pellmark::test::TemporaryFolder;
using pellmark::test::writeFile;
using testing::HasSubstr;
namespace file = processfile;
namespace unit = pellmark::unit;

constexpr std::int16_t kMetric = unit::kMetric;

std::string written(const std::vector<Operation>& operations) {
    std::vector<const Operation*> pointers;
    for (const Operation& operation : operations)
        pointers.push_back(&operation);
    std::ostringstream out;
    writeProcessFile(out, pointers);
    return out.str();
}

std::vector<Operation> read(const std::string& text) {
    std::istringstream in(text);
    ProcessFileReader reader(in, "a.prc");
    std::vector<Operation> operations;
    while (auto operation = reader.next())
        operations.push_back(*operation);
    return operations;
}

/// The text with which reading fails; "" when it does not.
std::string refusal(const std::string& text) {
    try {
        read(text);
    } catch (const pellmark::Error& error) {
        EXPECT_EQ(error.number(), pellmark::errors::kInvalidArgument);
        EXPECT_THAT(error.description(), HasSubstr("'a.prc'"));
        return error.description();
    }
    return {};
}

Operation drill() {
    Operation operation = Operation::withDefaults(cycle::kDrilling, kMetric);
    operation.setName("Drill 6.8");
    operation.set(code::kOperationName, std::string("Drill 6.8"), Origin::Given);
    operation.set(code::kToolDiameter, std::string("6.8"), Origin::Given);
    operation.set(code::kCoolant, std::string("high \"pressure\""), Origin::User);
    return operation;
}

const std::string kDrillFile =
    "Norvex process file, version 1\n"
    "operations 1\n"
    "\n"
    "operation 602 metric \"Drill 6.8\"  # Drilling\n"
    "  432 = \"Drill 6.8\"  # OperationName\n"
    "  1001 = 6.8  # Tool diameter, mm\n"
    "  1301 = \"high \\\"pressure\\\"\"  # Coolant\n"
    "\n"
    "end\n";

TEST(ProcessFileTest, AFileIsTextThatPeopleReadAndHoldsNoDefaults) {
    EXPECT_EQ(written({drill()}), kDrillFile);
}

TEST(ProcessFileTest, ReadingGivesTheValuesInTheirTypes) {
    const auto operations = read(kDrillFile);
    ASSERT_EQ(operations.size(), 1U);
    EXPECT_EQ(operations[0].cuttingCycleId(), 602);
    EXPECT_EQ(operations[0].unit(), unit::kMetric);
    EXPECT_EQ(operations[0].name(), "Drill 6.8");
    ASSERT_EQ(operations[0].parameters().size(), 3U);
    EXPECT_EQ(operations[0].find(code::kToolDiameter)->value, Variant(6.8));
    EXPECT_EQ(operations[0].find(code::kToolDiameter)->origin, Origin::File);
    EXPECT_EQ(operations[0].find(code::kCoolant)->value, Variant("high \"pressure\""));
    EXPECT_EQ(operations[0].source(), pellmark::TechnologySource::File);
}

TEST(ProcessFileTest, CommentsBlankLinesAndAByteOrderMarkDoNoHarm) {
    std::string text = "\xEF\xBB\xBF" + kDrillFile + "\n# the end\n";
    text.insert(text.find("operations"), "# by hand\r\n\t\r\n");
    EXPECT_EQ(read(text), read(kDrillFile));
}

TEST(ProcessFileTest, WindowsLineEndsAreTheSame) {
    std::string text;
    for (const char character : kDrillFile)
        text += character == '\n' ? std::string("\r\n") : std::string(1, character);
    EXPECT_EQ(read(text), read(kDrillFile));
}

TEST(ProcessFileTest, AProcessWithoutStepsIsAFileToo) {
    EXPECT_EQ(written({}), "Norvex process file, version 1\noperations 0\n\nend\n");
    EXPECT_TRUE(read(written({})).empty());
}

TEST(ProcessFileTest, AFileCutShortAnywhereIsRefusedWithItsLine) {
    const std::string needed = kDrillFile.substr(0, kDrillFile.size() - 1);  // the last line break may miss
    for (std::size_t length = 0; length < needed.size(); ++length) {
        const std::string text = needed.substr(0, length);
        EXPECT_THAT(refusal(text), HasSubstr("Line ")) << text;
    }
    EXPECT_EQ(refusal(needed), "");
}

TEST(ProcessFileTest, ANewerVersionIsNamed) {
    EXPECT_THAT(
        refusal("Norvex process file, version 2\noperations 0\nend\n"),
        HasSubstr("Line 1: the file was written by a newer program (version 2, this one reads up to 1)"));
}

TEST(ProcessFileTest, WhatIsNoProcessFileIsSaidToBeNone) {
    for (const std::string& text : {std::string(), std::string("a;b;c\n1;2;3\n"),
                                    std::string("\xFF\xFE"
                                                "N\0o\0",
                                                6),
                                    std::string("Norvex process file, version \n"), std::string(100, '\0')}) {
        EXPECT_THAT(refusal(text), HasSubstr("Line 1: "));
    }
}

TEST(ProcessFileTest, EachMistakeIsNamedWithItsLine) {
    const auto with = [](const std::string& line) {
        return "Norvex process file, version 1\noperations 1\noperation 602 metric \"A\"\n" + line +
               "\nend\n";
    };
    EXPECT_EQ(refusal(with("1001 = 5")), "");
    for (const auto& [line, words] :
         std::vector<std::pair<std::string, std::string>>{{"1001 5", "its code, \"=\" and its value"},
                                                          {"x = 5", "its code"},
                                                          {"99999999999 = 5", "its code"},
                                                          {"1 = 5", "no parameter with the code 1"},
                                                          {"1001 = 5,5", "a number with a point"},
                                                          {"1001 = nan", "a number with a point"},
                                                          {"1001 = 1e999", "a number with a point"},
                                                          {"1001 = 0x10", "a number with a point"},
                                                          {"1001 = 5 6", "a number with a point"},
                                                          {"1001 =", "a number with a point"},
                                                          {"432 = 5", "is a text"},
                                                          {"432 = \"a", "not closed"},
                                                          {"432 = \"a\" b", "not closed"},
                                                          {"432 = \"\\q\"", "escape"},
                                                          {"432 = \"\\u0041\"", "escape"},
                                                          {"432 = \"\\u0020\"", "escape"},
                                                          {"432 = \"\\u01\"", "escape"},
                                                          {"432 = \"\\", "escape"},
                                                          {"432 = \"\xC3\"", "not UTF-8"},
                                                          {"432 = \"\xED\xA0\x80\"", "not UTF-8"},
                                                          {"1001 = 5\n1001 = 6", "given twice"}}) {
        const std::string said = refusal(with(line));
        EXPECT_THAT(said, HasSubstr(words)) << line;
        EXPECT_THAT(said, HasSubstr(line.find('\n') == std::string::npos ? "Line 4: " : "Line 5: ")) << line;
    }
}

TEST(ProcessFileTest, MistakesInTheHeadOfAnOperationAreNamed) {
    const auto with = [](const std::string& line) {
        return "Norvex process file, version 1\noperations 1\n" + line + "\nend\n";
    };
    for (const std::string line : {"operation", "operation x metric \"A\"", "operation 40000 metric \"A\"",
                                   "operation 602 \"A\"", "operation 602 miles \"A\"",
                                   "operation 602 metric A", "operation 602 metric \"A\" B", "1001 = 5"}) {
        EXPECT_THAT(refusal(with(line)), HasSubstr("Line 3: ")) << line;
    }
}

TEST(ProcessFileTest, TheNumberOfOperationsMustBeTrue) {
    const std::string two = written({drill(), drill()});
    for (const std::string count :
         {"operations 1", "operations 3", "operations -1", "operations x", "operations"}) {
        std::string text = two;
        EXPECT_THAT(refusal(text.replace(text.find("operations 2"), 12, count)), HasSubstr("Line ")) << count;
    }
    EXPECT_THAT(refusal(two + "more\n"), HasSubstr("behind \"end\""));
}

/// Bytes without end, counted.
class EndlessBytes : public std::streambuf {
  public:
    EndlessBytes(std::string head, std::string again) : head_(std::move(head)), again_(std::move(again)) {
        setg(head_.data(), head_.data(), head_.data() + head_.size());
    }
    std::size_t given() const { return given_; }

  protected:
    int underflow() override {
        given_ += again_.size();
        setg(again_.data(), again_.data(), again_.data() + again_.size());
        return std::char_traits<char>::to_int_type(again_.front());
    }

  private:
    std::string head_;
    std::string again_;
    std::size_t given_ = 0;
};

std::string refusalOf(EndlessBytes& bytes) {
    std::istream in(&bytes);
    try {
        ProcessFileReader reader(in, "a.prc");
        while (reader.next()) {
        }
    } catch (const pellmark::Error& error) {
        return error.description();
    }
    return {};
}

TEST(ProcessFileTest, NoiseWithoutEndIsRefusedAtTheFirstLine) {
    EndlessBytes noise("", std::string(1000, 'x'));
    EXPECT_THAT(refusalOf(noise), HasSubstr("Line 1: the line is too long"));
    EXPECT_LT(noise.given(), 2 * file::kLongestLine);
}

TEST(ProcessFileTest, EndlessCommentsAreRefusedInTheEndToo) {
    EndlessBytes noise("Norvex process file, version 1\n# ", std::string(1000, 'x'));
    EXPECT_THAT(refusalOf(noise), HasSubstr("Line 2: the line is too long"));
}

TEST(ProcessFileTest, AMillionParametersAreRefused) {
    EndlessBytes noise("Norvex process file, version 1\noperations 1\noperation 602 metric \"A\"\n",
                       "1001 = 5\n");
    EXPECT_THAT(refusalOf(noise), HasSubstr("Line 5: the parameter 1001 is given twice"));
}

TEST(ProcessFileTest, AMillionParametersInManyOperationsAreRefused) {
    std::string operation = "operation 602 metric \"A\"\n";
    int inOne = 0;
    for (const Definition& definition : definitions()) {
        operation += std::to_string(definition.code) + " = \"x\"\n";
        ++inOne;
    }
    ASSERT_LT(inOne * file::kMostOperations, 1000000);
    EndlessBytes noise("Norvex process file, version 1\noperations 50000\n", operation);
    EXPECT_THAT(refusalOf(noise), HasSubstr("Line 2: there are more operations than a process may have"));
    EXPECT_LT(noise.given(), 1000U);
}

TEST(ProcessFileTest, AFailedSaveLeavesWhatWasThere) {
    TemporaryFolder folder;
    const std::string path = folder.file("a.prc");
    const Operation operation = drill();
    ASSERT_TRUE(saveProcessFile(path, {&operation}));
    EXPECT_EQ(readFile(path), kDrillFile);
    EXPECT_FALSE(saveProcessFile(folder.file("missing/a.prc"), {&operation}));
    const std::string taken = folder.file("taken.prc");
    std::filesystem::create_directory(taken);
    EXPECT_FALSE(saveProcessFile(taken, {&operation}));
    EXPECT_TRUE(std::filesystem::is_directory(taken));
    std::size_t files = 0;
    for ([[maybe_unused]] const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path(path).parent_path()))
        ++files;
    EXPECT_EQ(files, 2U) << "nothing half-written is left";
}

TEST(ProcessFileTest, SavingReplacesAndLoadingReadsItAgain) {
    TemporaryFolder folder;
    const std::string path = folder.file(
        "\xC3\x9C"
        "bung.prc");
    writeFile(path, "something else");
    const Operation operation = drill();
    ASSERT_TRUE(saveProcessFile(path, {&operation, &operation}));
    std::ifstream in = openProcessFile(path);
    EXPECT_EQ(ProcessFileReader(in, path).count(), 2);
    EXPECT_THROW(openProcessFile(folder.file("missing.prc")), pellmark::Error);
    EXPECT_THROW(openProcessFile(folder.path()), pellmark::Error) << "a folder is no file";
}

/// Texts and numbers as nasty as they come.
class Randomness {
  public:
    explicit Randomness(unsigned seed) : engine_(seed) {}

    std::size_t below(std::size_t end) { return engine_() % end; }
    double number() {
        static const double kSpecial[] = {
            0,      1,       -1,     0.1,    0.3,     1e15, 123456789012345678.0,
            1e-300, 1.7e308, 5e-324, 100000, 1.0 / 3, -0.0, 33.333333333333336};
        if (below(2) == 0) return kSpecial[below(std::size(kSpecial))];
        return std::uniform_real_distribution<double>(-1000, 1000)(engine_);
    }
    std::string text() {
        static const char* const kPieces[] = {"\"",
                                              "\\",
                                              "\n",
                                              "\r",
                                              "\t",
                                              "#",
                                              "=",
                                              " ",
                                              "end",
                                              "operation",
                                              "1001",
                                              "\xC3\xA4",
                                              "\xF0\x9F\x94\xA9",
                                              "\x01",
                                              "\x7F",
                                              ",",
                                              "0.50",
                                              "1e3",
                                              "u0041"};
        std::string all;
        for (std::size_t left = below(8); left > 0; --left)
            all += kPieces[below(std::size(kPieces))];
        return all;
    }
    Operation operation() {
        Operation made = Operation::withDefaults(kCuttingCycles[below(kCuttingCycles.size())].id,
                                                 below(2) == 0 ? unit::kMetric : unit::kInch);
        made.setName(text());
        for (const Parameter& parameter : std::vector<Parameter>(made.parameters())) {
            if (below(3) == 0) continue;
            made.set(parameter.code(), below(2) == 0 ? Variant(number()) : Variant(text()), Origin::Given);
        }
        return made;
    }

  private:
    std::mt19937 engine_;
};

TEST(ProcessFileTest, ExportingImportingAndExportingAgainGivesTheSameFile) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        Randomness random(seed);
        std::vector<Operation> operations;
        for (std::size_t left = random.below(4); left > 0; --left)
            operations.push_back(random.operation());
        const std::string first = written(operations);
        const auto again = read(first);
        ASSERT_EQ(written(again), first) << "seed " << seed;
        for (std::size_t at = 0; at < again.size(); ++at) {
            for (const Parameter& parameter : again[at].parameters())
                ASSERT_EQ(parameter.value, operations[at].find(parameter.code())->value) << "seed " << seed;
        }
    }
}

TEST(ProcessFileTest, AStepsTextsComeBackByteForByte) {
    for (unsigned seed = 1000; seed < 1300; ++seed) {
        Randomness random(seed);
        Operation operation = Operation::withDefaults(cycle::kDrilling, unit::kMetric);
        const std::string stored = random.below(2) == 0 ? random.text() : numberText(random.number());
        operation.set(code::kToolDiameter, stored, Origin::Given);
        const auto again = read(written({operation}));
        ASSERT_EQ(again.at(0).text(code::kToolDiameter), stored);
    }
}

TEST(ProcessFileTest, RandomDamageIsRefusedOrReadAndNeverWorse) {
    const std::string whole = written({drill(), drill()});
    Randomness random(7);
    for (int time = 0; time < 3000; ++time) {
        std::string damaged = whole;
        for (std::size_t left = 1 + random.below(4); left > 0; --left)
            damaged[random.below(damaged.size())] = static_cast<char>(random.below(256));
        try {
            EXPECT_EQ(read(written(read(damaged))), read(damaged));
        } catch (const pellmark::Error& error) {
            EXPECT_THAT(error.description(), HasSubstr("Line "));
        }
    }
}

TEST(ProcessFileTest, TenThousandOperationsAreWrittenAndReadAtOnce) {
    std::vector<Operation> operations(10000, Operation::withDefaults(cycle::kDrilling, unit::kMetric));
    for (Operation& operation : operations) {
        for (const Parameter& parameter : std::vector<Parameter>(operation.parameters()))
            operation.set(parameter.code(), parameter.value, Origin::Given);
    }
    const std::string text = written(operations);
    EXPECT_EQ(read(text).size(), 10000U);
}

}  // namespace
}  // namespace norvex
