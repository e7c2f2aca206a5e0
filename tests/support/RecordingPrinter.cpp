#include "support/RecordingPrinter.h"

#include "base/Error.h"

namespace pellmark::test {

namespace {

bool beginsCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
}

class Drawing : public PrintDocument {
  public:
    Drawing(RecordingPrinter::Document& document, const RecordingPrinter& printer)
        : document_(document), page_(printer.page), paper_(printer.paper), boldAdds_(printer.boldAdds) {}
    ~Drawing() override { document_.gone = true; }

    void setFont(const Font& font) override { font_ = font; }
    Twips lineHeight() override {
        constexpr double kPerPoint = 24;
        return font_.size > 0 ? static_cast<Twips>(font_.size * kPerPoint) : RecordingPrinter::kLine;
    }
    Twips textWidth(std::string_view text) override {
        Twips width = 0;
        for (const char c : text)
            width += beginsCharacter(c) ? character() : 0;
        return width;
    }
    std::size_t fitting(std::string_view text, Twips width) override {
        std::size_t end = 0;
        for (Twips used = 0; end < text.size(); ++end) {
            if (beginsCharacter(text[end]) && (used += character()) > width) break;
        }
        return end;
    }
    Size page() const override { return page_; }
    void drawText(Point at, std::string_view text, Color color) override {
        document_.pages.back().texts.push_back({at, std::string(text), font_, color});
    }
    void drawLine(Point from, Point to) override { document_.pages.back().lines.push_back({from, to}); }
    void newPage() override {
        if (document_.pages.size() >= paper_) {
            throw Error(errors::kPrinter, "Printer", "The printer has no paper.");
        }
        document_.pages.emplace_back();
    }
    void end() override { document_.ended = true; }

  private:
    Twips character() const { return RecordingPrinter::kCharacter + (font_.bold ? boldAdds_ : 0); }

    RecordingPrinter::Document& document_;
    Size page_;
    std::size_t paper_;
    Twips boldAdds_;
    Font font_;
};

}  // namespace

std::vector<std::string> RecordingPrinter::Document::texts(std::size_t page) const {
    std::vector<std::string> texts;
    for (const Text& each : pages.at(page).texts)
        texts.push_back(each.text);
    return texts;
}

std::unique_ptr<PrintDocument> RecordingPrinter::begin(const std::string& name) {
    if (givenUp) return nullptr;
    Document document;
    document.name = name;
    document.settings = settings();
    documents.push_back(std::move(document));
    return std::make_unique<Drawing>(documents.back(), *this);
}

}  // namespace pellmark::test
