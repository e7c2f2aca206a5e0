#include "SourceTexts.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <string_view>
#include <vector>

namespace norvex {

namespace {

bool isWordPart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

/// A source without comments and blanks, its texts taken out: a quote marks where each stood.
class Source {
  public:
    explicit Source(std::string_view text) : text_(text) {
        while (at_ < text_.size())
            step();
    }

    std::size_t count() const { return texts_.size(); }
    const std::string& text(std::size_t index) const { return texts_[index]; }
    std::string_view before(std::size_t index) const {
        return std::string_view(code_).substr(0, places_[index]);
    }
    std::string_view after(std::size_t index) const {
        return std::string_view(code_).substr(places_[index] + 1);
    }

  private:
    void step() {
        const std::string_view rest = text_.substr(at_);
        if (rest.starts_with("//")) {
            at_ = std::min(text_.find('\n', at_), text_.size());
        } else if (rest.starts_with("'\"'")) {
            at_ += 3;
        } else if (rest.front() == '"') {
            takeText();
        } else {
            if (std::string_view(" \t\r\n").find(rest.front()) == std::string_view::npos)
                code_ += rest.front();
            ++at_;
        }
    }

    void takeText() {
        const bool goesOn = !code_.empty() && code_.back() == '"';
        if (!goesOn) {
            places_.push_back(code_.size());
            texts_.emplace_back();
            code_ += '"';
        }
        for (++at_; at_ < text_.size() && text_[at_] != '"'; ++at_) {
            if (text_[at_] == '\\') ++at_;
            texts_.back() += text_[at_];
        }
        ++at_;
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::string code_;
    std::vector<std::size_t> places_;
    std::vector<std::string> texts_;
};

/// Code that ends in a comma and one argument before it, without both.
std::string_view withoutArgument(std::string_view code) {
    if (!code.ends_with(',')) return {};
    code.remove_suffix(1);
    while (!code.empty() && (isWordPart(code.back()) || code.back() == '"'))
        code.remove_suffix(1);
    return code;
}

/// The menus that are shown. Others are kept with their form, and nobody reads them.
constexpr std::array kMenus{"mnuProcess.add(", "mnuProcessStep.add(", "mnufetaureCaseContext.add("};
constexpr std::array kDirect{"GetString(", "filter(",      ".heading=",   "kManagerTitle=", "kEditorTitle=",
                             "texts_.of(", "texts_.wide(", "texts().of(", "sentence(",      "Sentence("};
constexpr std::array kSecond{"translate(",           "refuse(",
                             "TechnologySource::",   "Definition{code::",
                             "CuttingCycle{cycle::", "CuttingCycle{"};

bool endsWithOne(std::string_view code, const auto& ends) {
    return std::any_of(ends.begin(), ends.end(), [&](const char* end) { return code.ends_with(end); });
}

bool isLookedUp(std::string_view before, std::string_view after) {
    if (endsWithOne(before, kDirect)) return true;
    if (before.ends_with('{') && after.starts_with(",field::")) return true;  // a column
    const std::string_view call = withoutArgument(before);
    return endsWithOne(call, kSecond) || endsWithOne(call, kMenus);
}

}  // namespace

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

SourceTexts textsIn(const std::filesystem::path& folder) {
    SourceTexts texts;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const auto kind = entry.path().extension();
        if (kind != ".cpp" && kind != ".h") continue;
        const std::string content = contentOf(entry.path());
        const Source source(content);
        for (std::size_t i = 0; i < source.count(); ++i) {
            const std::string& text = source.text(i);
            texts.all.insert(text);
            const bool isText = !text.empty() && text != "-";
            if (isText && isLookedUp(source.before(i), source.after(i))) texts.lookedUp.insert(text);
        }
    }
    return texts;
}

}  // namespace norvex
