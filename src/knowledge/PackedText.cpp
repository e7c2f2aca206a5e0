#include "knowledge/PackedText.h"

#include "base/Error.h"
#include "base/Text.h"

namespace pellmark {

void PackedTextWriter::add(std::string_view utf8) {
    const std::u16string units = toUtf16(utf8);
    for (const char digit : std::to_string(units.size()))
        text_ += static_cast<char16_t>(digit);
    text_ += u':';
    text_ += units;
}

void PackedTextReader::fail(std::size_t length) const {
    constexpr std::size_t kShown = 20;
    const std::string behind = " behind its first " + std::to_string(place_) + " characters: ";
    std::string reason;
    if (rest_.empty()) {
        reason = "another text belongs there";
    } else {
        reason = length > 0 ? "a text of " + std::to_string(length) + " characters belongs there"
                            : "a length, a colon and the text belong there";
        reason += ", not '" + toUtf8(firstUnits(rest_, kShown)) + (rest_.size() > kShown ? "...'" : "'");
    }
    throw Error(errors::kHostInterface, "PackedText", "The packed text is malformed" + behind + reason + ".");
}

std::string PackedTextReader::next() {
    std::size_t length = 0;
    std::size_t at = 0;
    while (at < rest_.size() && rest_[at] >= u'0' && rest_[at] <= u'9') {
        length = length * 10 + static_cast<std::size_t>(rest_[at++] - u'0');
        if (length > rest_.size()) fail(length);
    }
    if (at == 0 || at == rest_.size() || rest_[at] != u':') fail(0);
    if (length > rest_.size() - at - 1) fail(length);
    std::string text = toUtf8(rest_.substr(at + 1, length));
    rest_.remove_prefix(at + 1 + length);
    place_ += at + 1 + length;
    return text;
}

std::vector<std::string> unpackTexts(std::u16string_view packed) {
    std::vector<std::string> texts;
    PackedTextReader reader(packed);
    while (!reader.atEnd())
        texts.push_back(reader.next());
    return texts;
}

std::vector<std::vector<std::string>> unpackRecords(std::u16string_view packed, std::size_t fields) {
    std::vector<std::vector<std::string>> records;
    PackedTextReader reader(packed);
    while (!reader.atEnd()) {
        auto& record = records.emplace_back();
        record.reserve(fields);
        while (record.size() < fields)
            record.push_back(reader.next());
    }
    return records;
}

}  // namespace pellmark
