#pragma once

#include <memory>
#include <string>

#include "ports/Printer.h"
#include "util/Texts.h"

namespace pellmark {

/// A document of which a person wants some pages only. Whoever draws it draws every page, so that each one
/// looks as it does in the whole; the others leave no sheet behind.
class ChosenPages : public PrintDocument {
  public:
    /// The texts are borrowed.
    ChosenPages(std::unique_ptr<PrintDocument> document, const PageRange& pages, Texts& texts)
        : document_(std::move(document)), pages_(pages), texts_(texts) {}

    void setFont(const Font& font) override { document_->setFont(font); }
    Twips lineHeight() override { return document_->lineHeight(); }
    Twips textWidth(std::string_view text) override { return document_->textWidth(text); }
    std::size_t fitting(std::string_view text, Twips width) override {
        return document_->fitting(text, width);
    }
    Size page() const override { return document_->page(); }
    void drawText(Point at, std::string_view text, Color color) override;
    void drawLine(Point from, Point to) override;
    void newPage() override;
    /// Throws Error (printer), too, when the document has none of the pages; nothing is printed then.
    void end() override;

  private:
    bool isWanted() const { return pages_.contains(page_); }

    std::unique_ptr<PrintDocument> document_;
    PageRange pages_;
    Texts& texts_;
    int page_ = 1;  ///< that is drawn
};

}  // namespace pellmark
