#include "refhost/technology/ProcessFileReader.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <limits>
#include <utility>

#include "refhost/technology/LineScanner.h"
#include "refhost/technology/ProcessFileText.h"

namespace norvex {

namespace {

namespace file = processfile;
namespace unit = pellmark::unit;
using pellmark::Variant;

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::optional<std::int16_t> unitFrom(std::string_view word) {
    if (word == "metric") return unit::kMetric;
    if (word == "inch") return unit::kInch;
    if (word == "none") return unit::kNone;
    return std::nullopt;
}

}  // namespace

ProcessFileReader::ProcessFileReader(std::istream& in, std::string name) : in_(in), name_(std::move(name)) {
    readTitle();
    readCount();
    ended_ = !nextLine();
    if (count_ == 0) expectEnd();
}

void ProcessFileReader::fail(Sentence reason) const {
    throw HostError(pellmark::errors::kInvalidArgument, "Technology",
                    Sentence("The process file '%1' cannot be read. Line %2: %3",
                             {name_, std::to_string(number_), std::move(reason)}));
}

bool ProcessFileReader::readRawLine() {
    line_.clear();
    ++number_;
    std::streambuf& bytes = *in_.rdbuf();
    for (int byte = bytes.sbumpc(); byte != std::char_traits<char>::eof(); byte = bytes.sbumpc()) {
        if (byte == '\n') {
            if (line_.ends_with('\r')) line_.pop_back();
            return true;
        }
        if (line_.size() == file::kLongestLine)
            fail(Sentence("the line is too long; this is no process file."));
        line_ += static_cast<char>(byte);
    }
    return !line_.empty();
}

bool ProcessFileReader::nextLine() {
    while (readRawLine()) {
        if (!file::isUtf8(line_)) fail(Sentence("the text is not UTF-8; the file is damaged."));
        if (line_.find('\0') != std::string::npos)
            fail(Sentence("a text must not hold a null; the file is damaged."));
        if (!LineScanner(line_).atEnd()) return true;
    }
    return false;
}

void ProcessFileReader::readTitle() {
    const bool isThere = readRawLine();
    std::string_view title = line_;
    if (title.starts_with(kByteOrderMark)) title.remove_prefix(kByteOrderMark.size());
    if (!isThere || !title.starts_with(file::kTitle)) fail(Sentence("this is no process file of Norvex."));
    title.remove_prefix(file::kTitle.size());
    const auto version = LineScanner(title).integer();
    if (!version || *version < 1) fail(Sentence("the version of the file cannot be read."));
    if (*version > file::kVersion) {
        fail(
            Sentence("the file was written by a newer program (version %1, this one reads up to %2). Update "
                     "this program.",
                     {std::to_string(*version), std::to_string(file::kVersion)}));
    }
}

void ProcessFileReader::readCount() {
    if (!nextLine()) fail(Sentence("the file is cut short: the number of operations is missing."));
    LineScanner line(line_);
    const bool isCount = line.word() == file::kOperations;
    const auto count = line.integer();
    if (!isCount || !count || *count < 0 || !line.atEnd())
        fail(Sentence("the number of operations belongs here."));
    if (*count > file::kMostOperations) {
        fail(Sentence("there are more operations than a process may have (%1).",
                      {std::to_string(file::kMostOperations)}));
    }
    count_ = *count;
}

std::optional<Operation> ProcessFileReader::next() {
    if (done_ == count_) return std::nullopt;
    if (ended_) fail(Sentence("the file is cut short: an operation is missing."));
    Operation operation = readHead();
    while (!(ended_ = !nextLine())) {
        const std::string_view first = LineScanner(line_).word();
        if (first == file::kOperation || first == file::kEnd) break;
        readParameter(operation);
    }
    // Told now, while the line is known, and not when all has been read.
    if (++done_ == count_) expectEnd();
    return operation;
}

Operation ProcessFileReader::readHead() {
    LineScanner line(line_);
    if (line.word() != file::kOperation) fail(Sentence("an operation belongs here."));
    const auto cycle = line.integer();
    using Limits = std::numeric_limits<std::int16_t>;
    if (!cycle || *cycle < Limits::min() || *cycle > Limits::max())
        fail(Sentence("the number of the cutting cycle belongs behind \"operation\"."));
    const auto unitCode = unitFrom(line.word());
    if (!unitCode) fail(Sentence("the unit of an operation is metric, inch or none."));
    auto name = line.text();
    if (!name || !line.atEnd()) fail(Sentence("the name of the operation belongs in double quotes."));
    return {static_cast<std::int16_t>(*cycle), *unitCode, *std::move(name)};
}

void ProcessFileReader::readParameter(Operation& operation) {
    LineScanner line(line_);
    const auto code = line.integer();
    if (!code || !line.take('=')) fail(Sentence("a parameter is written as its code, \"=\" and its value."));
    const Definition* definition = definitionOf(*code);
    if (definition == nullptr)
        fail(Sentence("there is no parameter with the code %1.", {std::to_string(*code)}));
    Variant value;
    if (line.isText()) {
        auto text = line.text();
        if (!text || !line.atEnd())
            fail(Sentence("the text is not closed, or an escape in it has no meaning."));
        value = *std::move(text);
    } else {
        const auto number = line.number();
        if (!number || !line.atEnd())
            fail(Sentence("a value is a number with a point, or a text in double quotes."));
        if (definition->isText())
            fail(Sentence("%1 is a text and belongs in double quotes.", {Sentence(definition->caption)}));
        value = *number;
    }
    if (!operation.add(*definition, value, Origin::File))
        fail(Sentence("the parameter %1 is given twice.", {std::to_string(*code)}));
}

void ProcessFileReader::expectEnd() {
    if (ended_) fail(Sentence("the file is cut short: the line \"end\" is missing."));
    LineScanner line(line_);
    if (line.word() != file::kEnd || !line.atEnd()) fail(Sentence("the line \"end\" belongs here."));
    if (nextLine()) fail(Sentence("nothing belongs behind \"end\"."));
}

std::ifstream openProcessFile(const std::string& path) {
    const std::filesystem::path file(std::u8string(path.begin(), path.end()));
    std::error_code failure;
    // A folder or a device opens like a file and then gives nothing, or never ends.
    std::ifstream in;
    if (std::filesystem::is_regular_file(file, failure)) in.open(file, std::ios::binary);
    if (!in.is_open()) {
        throw HostError(pellmark::errors::kFileNotFound, "Technology",
                        Sentence("The process file '%1' cannot be opened.", {path}));
    }
    return in;
}

}  // namespace norvex
