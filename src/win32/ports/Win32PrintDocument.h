#pragma once

#include <map>
#include <string>
#include <tuple>

#include "ports/Printer.h"
#include "win32/Handles.h"
#include "win32/WindowsApi.h"
#include "win32/ports/LinkedFonts.h"

namespace pellmark {

using PrinterContext = Handle<HDC, &::DeleteDC>;
/// A document that has begun on a context, which stays its owner's; given up unless it has been ended.
using PrintJob = Handle<HDC, &::AbortDoc>;
using PenHandle = Handle<HPEN, &::DeleteObject>;

/// A document on a printer's device context. It begins its first page at once and is given up when it goes
/// before it has been ended.
class Win32PrintDocument : public PrintDocument {
  public:
    /// The job has begun on this context.
    explicit Win32PrintDocument(PrinterContext context);
    ~Win32PrintDocument() override;
    Win32PrintDocument(const Win32PrintDocument&) = delete;
    Win32PrintDocument& operator=(const Win32PrintDocument&) = delete;

    void setFont(const Font& font) override;
    Twips lineHeight() override;
    Twips textWidth(std::string_view text) override;
    std::size_t fitting(std::string_view text, Twips width) override;
    Size page() const override;
    void drawText(Point at, std::string_view text, Color color) override;
    void drawLine(Point from, Point to) override;
    void newPage() override;
    void end() override;

  private:
    using FontKey = std::tuple<std::string, double, bool, bool, bool, bool>;

    void beginPage();
    HFONT fontFor(const Font& font);
    /// In the printer's dots.
    int inkWidth(const FontRun& run);
    int across(Twips length) const { return ::MulDiv(length, dpiX_, kTwipsPerInch); }
    int down(Twips length) const { return ::MulDiv(length, dpiY_, kTwipsPerInch); }
    Twips twipsAcross(LONG pixels) const { return ::MulDiv(static_cast<int>(pixels), kTwipsPerInch, dpiX_); }

    static constexpr int kTwipsPerInch = 1440;
    PrinterContext context_;
    PrintJob job_;
    int dpiX_;
    int dpiY_;
    std::map<FontKey, FontHandle> fonts_;
    LinkedFonts linkedFonts_;
    HFONT font_ = nullptr;
    PenHandle pen_;
    HGDIOBJ firstFont_;
    HGDIOBJ firstPen_;
};

/// Throws Error (printer) with what the system says about its last error.
[[noreturn]] void failPrinting(const std::string& what);

}  // namespace pellmark
