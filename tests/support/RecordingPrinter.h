#pragma once

#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "ports/Printer.h"

namespace pellmark::test {

/// A printer without paper: every character is 100 twips wide, a bold one wider where a test says so, and
/// every line 24 times as high as the font has points, 240 twips where it leaves its size open. Keeps what
/// was drawn.
class RecordingPrinter : public Printer {
  public:
    static constexpr Twips kCharacter = 100;
    static constexpr Twips kLine = 240;

    struct Text {
        Point at;
        std::string text;
        Font font;
        Color color;
    };
    struct Line {
        Point from;
        Point to;
    };
    struct Page {
        std::vector<Text> texts;
        std::vector<Line> lines;
    };
    struct Document {
        std::string name;
        PrinterSettings settings;
        std::vector<Page> pages{1};
        bool ended = false;
        bool gone = false;  ///< the object that was drawn on

        /// The texts of a page in the order in which they were drawn.
        std::vector<std::string> texts(std::size_t page) const;
    };

    bool isInstalled() override { return installed; }
    std::unique_ptr<PrintDocument> begin(const std::string& name) override;

    Size page{10000, 14000};
    Twips boldAdds = 0;  ///< to the width of a character
    bool installed = true;
    bool givenUp = false;       ///< the person cancels a question of the printer's own
    std::size_t paper = 10000;  ///< pages until the printer fails
    std::deque<Document> documents;
};

}  // namespace pellmark::test
