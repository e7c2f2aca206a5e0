#pragma once

#include <limits>
#include <memory>
#include <string>
#include <string_view>

#include "base/Font.h"
#include "base/Geometry.h"

namespace pellmark {

/// The system's numbers.
enum class Orientation { Portrait = 1, Landscape = 2 };

/// What a person chooses about a print. Numbers are the system's own.
struct PrinterSettings {
    std::string device;  ///< the printer's name; "" for the one that is the system's default
    int copies = 1;
    Orientation orientation = Orientation::Portrait;
    int paperSize = 0;         ///< 9 is A4; 0 for the printer's own
    int printQuality = 0;      ///< dots per inch, or a grade below 0; 0 for the printer's own
    std::string driverData{};  ///< what only the printer's driver understands
    bool operator==(const PrinterSettings&) const = default;
};

/// Pages of a document, counted from 1; at first all of them.
struct PageRange {
    static constexpr int kToTheEnd = std::numeric_limits<int>::max();
    int first = 1;
    int last = kToTheEnd;
    bool contains(int page) const { return page >= first && page <= last; }
    bool operator==(const PageRange&) const = default;
};

/// What texts measure in the font that is set.
class TextMeasure {
  public:
    virtual ~TextMeasure() = default;
    /// A font that the system lacks is replaced by one that is like it.
    virtual void setFont(const Font& font) = 0;
    virtual Twips lineHeight() = 0;
    virtual Twips textWidth(std::string_view text) = 0;
    /// How many bytes from the text's beginning, whole characters, are no wider than that.
    virtual std::size_t fitting(std::string_view text, Twips width) = 0;
};

/// A document on its way to the printer. It is printed once it has been ended; one that goes before is not.
/// Places are relative to the part of the page that the printer reaches. What the printer fails is thrown as
/// Error (printer).
class PrintDocument : public TextMeasure {
  public:
    /// The part of a page that the printer reaches.
    virtual Size page() const = 0;
    /// One line of text without control characters; `at` is its upper left corner.
    virtual void drawText(Point at, std::string_view text, Color color) = 0;
    /// A thin grey line.
    virtual void drawLine(Point from, Point to) = 0;
    /// Ends the page; the next thing drawn is on another. The first page is there from the start.
    virtual void newPage() = 0;
    virtual void end() = 0;
};

/// The printer that the component prints on. Its settings stay from one print to the next.
class Printer {
  public:
    virtual ~Printer() = default;

    virtual bool isInstalled() = 0;
    const PrinterSettings& settings() const { return settings_; }
    void setSettings(PrinterSettings settings) { settings_ = std::move(settings); }
    /// Begins a document that the system calls by this name. Null when the person gave it up in a question
    /// of the printer's own. Throws Error (printer).
    virtual std::unique_ptr<PrintDocument> begin(const std::string& name) = 0;

  private:
    PrinterSettings settings_;
};

}  // namespace pellmark
