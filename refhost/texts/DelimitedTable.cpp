#include "refhost/texts/DelimitedTable.h"

#include <utility>

namespace norvex {

namespace {

class Parser {
  public:
    explicit Parser(char separator) : separator_(separator) {}

    void take(char c) {
        if (quoted_) {
            takeQuoted(c);
        } else if (c == '"' && (field_.empty() || closed_)) {
            if (closed_) field_ += c;  // a doubled quote
            quoted_ = true;
            closed_ = false;
            started_ = true;
        } else if (c == separator_) {
            endField();
            started_ = true;
        } else if (c == '\n' || c == '\r') {
            endLine();
        } else {
            field_ += c;
            closed_ = false;
        }
    }

    void endLine() {
        if (started_ || !field_.empty()) {
            endField();
            lines_.push_back(std::exchange(line_, {}));
        }
        started_ = false;
    }

    std::vector<std::vector<std::string>> lines() { return std::move(lines_); }

  private:
    void takeQuoted(char c) {
        if (c == '"') {
            quoted_ = false;
            closed_ = true;
        } else {
            field_ += c;
        }
    }

    void endField() {
        line_.push_back(std::exchange(field_, {}));
        closed_ = false;
    }

    char separator_;
    bool quoted_ = false;
    bool closed_ = false;   ///< a quote was just closed; another one makes it a doubled quote
    bool started_ = false;  ///< the line has a field, though it may be empty
    std::string field_;
    std::vector<std::string> line_;
    std::vector<std::vector<std::string>> lines_;
};

}  // namespace

std::vector<std::vector<std::string>> parseDelimited(std::string_view text, char separator) {
    Parser parser(separator);
    for (const char c : text)
        parser.take(c);
    parser.endLine();
    return parser.lines();
}

}  // namespace norvex
