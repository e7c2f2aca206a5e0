#include "util/cPrinting.h"

#include "base/Text.h"
#include "controls/PrintText.h"

namespace pellmark {

namespace {

constexpr Twips kMargin = 500;
constexpr Twips kPullBack = 200;

/// A printer that is told where to print and moves on by a line; what would run past the lower edge goes to
/// the top of another page.
class Pen {
  public:
    explicit Pen(PrintDocument& document) : document_(document), lineHeight_(document.lineHeight()) {}

    void moveTo(Twips left, Twips top) { at_ = {left, top}; }
    Twips top() const { return at_.top; }
    void printLine(const std::string& line) {
        if (at_.top + lineHeight_ > document_.page().height) {
            ++pagesToBegin_;
            at_.top = 0;
        }
        const std::string text = printableText(line);
        if (!text.empty()) {
            for (; pagesToBegin_ > 0; --pagesToBegin_)
                document_.newPage();
            document_.drawText(at_, text, kBlack);
        }
        at_ = {0, at_.top + lineHeight_};
    }

  private:
    PrintDocument& document_;
    Twips lineHeight_;
    Point at_;
    int pagesToBegin_ = 0;  ///< before the next text: what is empty to the end takes no sheet
};

}  // namespace

void cPrinting::PrintText(const std::string& text, WindowHandle owner, const Font& font, bool printAtOnce) {
    const std::string& name = services_.person.texts.title();
    const auto document = printAtOnce ? services_.begin(name) : services_.askAndBegin(name, owner);
    if (!document) return;
    document->setFont(font);
    PrintString(*document, text, kMargin, kMargin);
}

void cPrinting::PrintString(PrintDocument& document, const std::string& text, Twips leftMargin,
                            Twips topMargin) {
    Pen pen(document);
    Twips top = topMargin;
    for (const std::string& line : lines(text)) {
        pen.moveTo(leftMargin, top);
        pen.printLine(line);
        top = pen.top() - kPullBack;
    }
    document.end();
}

std::vector<std::string> cPrinting::lines(const std::string& text) {
    std::vector<std::string> lines = split(text, '\n');
    if (lines.back().empty()) lines.pop_back();
    return lines;
}

}  // namespace pellmark
