#include "util/ChosenPages.h"

#include "base/Error.h"

namespace pellmark {

void ChosenPages::drawText(Point at, std::string_view text, Color color) {
    if (isWanted()) document_->drawText(at, text, color);
}

void ChosenPages::drawLine(Point from, Point to) {
    if (isWanted()) document_->drawLine(from, to);
}

void ChosenPages::newPage() {
    ++page_;
    // The first page that is wanted takes the one with which the document begins.
    if (isWanted() && page_ > pages_.first) document_->newPage();
}

void ChosenPages::end() {
    if (page_ < pages_.first) {
        throw Error(
            errors::kPrinter, "Pellmark.ChosenPages",
            texts_.GetString("Nothing has been printed. Number of pages:") + " " + std::to_string(page_));
    }
    document_->end();
}

}  // namespace pellmark
