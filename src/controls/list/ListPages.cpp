#include "controls/list/ListPages.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <string>
#include <vector>

#include "controls/PrintText.h"

namespace pellmark {

namespace {

constexpr Twips kMargin = 500;
constexpr Twips kColumnGap = 100;
constexpr Twips kHeadingGap = 60;

class ListPages {
  public:
    ListPages(const ListView& list, const Font& font, PrintDocument& document)
        : list_(list), font_(font), document_(document), page_(document.page()) {
        document_.setFont(font_);
        lineHeight_ = std::max(document_.lineHeight(), 1);
        placeColumns();
    }

    void print() {
        drawHeadings();
        for (int item = 0; item < list_.count(); ++item) {
            if (top_ + lineHeight_ > page_.height - kMargin && hasRows_) {
                document_.newPage();
                drawHeadings();
            }
            drawLine([&](int col) { return list_.text(item, col); });
            hasRows_ = true;
        }
        document_.end();
    }

  private:
    struct Column {
        Twips left;
        Twips width;
    };

    void placeColumns() {
        const auto& headers = list_.columnHeaders();
        const std::int64_t whole =
            std::accumulate(headers.begin(), headers.end(), std::int64_t{0},
                            [](std::int64_t sum, const ColumnHeader& each) { return sum + each.width; });
        const std::int64_t room = page_.width - 2 * kMargin;
        std::int64_t before = 0;
        for (const ColumnHeader& header : headers) {
            const std::int64_t after = before + header.width;
            const bool fits = whole <= room;
            const auto left = static_cast<Twips>(fits ? before : before * room / whole);
            const auto right = static_cast<Twips>(fits ? after : after * room / whole);
            columns_.push_back({kMargin + left, std::max(right - left - kColumnGap, 0)});
            before = after;
        }
    }

    void drawHeadings() {
        Font bold = font_;
        bold.bold = true;
        document_.setFont(bold);
        top_ = kMargin;
        hasRows_ = false;
        drawLine([this](int col) { return list_.columnHeaders()[static_cast<std::size_t>(col)].text; });
        document_.drawLine({kMargin, top_}, {page_.width - kMargin, top_});
        top_ += kHeadingGap;
        document_.setFont(font_);
    }

    template <class Text>
    void drawLine(const Text& text) {
        int col = 0;
        for (const Column& column : columns_) {
            const std::string shown = shortenText(document_, text(col++), column.width);
            if (!shown.empty()) document_.drawText({column.left, top_}, shown, kBlack);
        }
        top_ += lineHeight_;
    }

    const ListView& list_;
    Font font_;
    PrintDocument& document_;
    Size page_;
    std::vector<Column> columns_;
    Twips lineHeight_ = 0;
    Twips top_ = 0;
    bool hasRows_ = false;  ///< on the present page
};

}  // namespace

void printList(const ListView& list, const Font& font, PrintDocument& document) {
    ListPages(list, font, document).print();
}

}  // namespace pellmark
