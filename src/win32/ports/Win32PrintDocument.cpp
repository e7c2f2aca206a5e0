#include "win32/ports/Win32PrintDocument.h"

#include <algorithm>
#include <cmath>

#include "base/Error.h"
#include "base/Text.h"
#include "win32/SystemText.h"
#include "win32/WideText.h"

namespace pellmark {

namespace {

constexpr double kPointsPerInch = 72;
/// Where a font leaves them open.
constexpr wchar_t kFontName[] = L"MS Shell Dlg 2";
constexpr double kFontSize = 9;
constexpr COLORREF kLineColor = RGB(192, 192, 192);

}  // namespace

void failPrinting(const std::string& what) {
    const DWORD error = ::GetLastError();
    throw Error(errors::kPrinter, "Printer", what + (error != 0 ? " " + systemText(error) : std::string()));
}

Win32PrintDocument::Win32PrintDocument(PrinterContext context)
    : context_(std::move(context)),
      job_(context_.get()),
      dpiX_(std::max(::GetDeviceCaps(context_.get(), LOGPIXELSX), 1)),
      dpiY_(std::max(::GetDeviceCaps(context_.get(), LOGPIXELSY), 1)),
      pen_(::CreatePen(PS_SOLID, std::max(dpiY_ / 200, 1), kLineColor)),
      firstFont_(::GetCurrentObject(context_.get(), OBJ_FONT)),
      firstPen_(::GetCurrentObject(context_.get(), OBJ_PEN)) {
    beginPage();
    Win32PrintDocument::setFont({});
}

Win32PrintDocument::~Win32PrintDocument() {
    // Fonts and pen are still chosen, and what is chosen cannot be deleted.
    ::SelectObject(context_.get(), firstFont_);
    ::SelectObject(context_.get(), firstPen_);
}

void Win32PrintDocument::beginPage() {
    if (::StartPage(context_.get()) <= 0) failPrinting("The printer does not begin a page.");
    // On some systems a page begins with the context's first objects.
    ::SetBkMode(context_.get(), TRANSPARENT);
    ::SetTextAlign(context_.get(), TA_LEFT | TA_BASELINE);  // one line, whichever fonts write it
    ::SelectObject(context_.get(), pen_.get());
    if (font_ != nullptr) ::SelectObject(context_.get(), font_);
}

void Win32PrintDocument::setFont(const Font& font) {
    font_ = fontFor(font);
    ::SelectObject(context_.get(), font_);
}

HFONT Win32PrintDocument::fontFor(const Font& font) {
    FontHandle& made =
        fonts_[{font.name, font.size, font.bold, font.italic, font.underline, font.strikethrough}];
    if (!made) {
        const double size = font.size > 0 ? font.size : kFontSize;
        const std::wstring name = font.name.empty() ? kFontName : toWide(font.name);
        made.reset(::CreateFontW(-static_cast<int>(std::lround(size * dpiY_ / kPointsPerInch)), 0, 0, 0,
                                 font.bold ? FW_BOLD : FW_NORMAL, font.italic ? TRUE : FALSE,
                                 font.underline ? TRUE : FALSE, font.strikethrough ? TRUE : FALSE,
                                 DEFAULT_CHARSET, OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                                 DEFAULT_PITCH | FF_DONTCARE, name.c_str()));
    }
    return made.get();
}

Twips Win32PrintDocument::lineHeight() {
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(context_.get(), &metrics);
    const LONG height = metrics.tmHeight + metrics.tmExternalLeading;
    return ::MulDiv(static_cast<int>(height), kTwipsPerInch, dpiY_);
}

int Win32PrintDocument::inkWidth(const FontRun& run) {
    ::SelectObject(context_.get(), run.font);
    SIZE size{};
    ::GetTextExtentPoint32W(context_.get(), run.text.data(), static_cast<int>(run.text.size()), &size);
    ::SelectObject(context_.get(), font_);
    return static_cast<int>(size.cx);
}

Twips Win32PrintDocument::textWidth(std::string_view text) {
    const std::wstring wide = toWide(text);
    int width = 0;
    for (const FontRun& run : linkedFonts_.runsOf(context_.get(), wide))
        width += inkWidth(run);
    return twipsAcross(width);
}

std::size_t Win32PrintDocument::fitting(std::string_view text, Twips width) {
    const std::wstring wide = toWide(text);
    std::size_t units = 0;
    int room = across(width);
    for (const FontRun& run : linkedFonts_.runsOf(context_.get(), wide)) {
        int fits = 0;
        SIZE size{};
        ::SelectObject(context_.get(), run.font);
        ::GetTextExtentExPointW(context_.get(), run.text.data(), static_cast<int>(run.text.size()),
                                std::max(room, 0), &fits, nullptr, &size);
        ::SelectObject(context_.get(), font_);
        units += static_cast<std::size_t>(std::max(fits, 0));
        if (static_cast<std::size_t>(fits) < run.text.size()) break;
        room -= static_cast<int>(size.cx);
    }
    if (units >= wide.size()) return text.size();
    return std::min(toUtf8(firstUnits(toUtf16(text), units)).size(), text.size());
}

Size Win32PrintDocument::page() const {
    return {twipsAcross(::GetDeviceCaps(context_.get(), HORZRES)),
            ::MulDiv(::GetDeviceCaps(context_.get(), VERTRES), kTwipsPerInch, dpiY_)};
}

void Win32PrintDocument::drawText(Point at, std::string_view text, Color color) {
    const std::wstring wide = toWide(text);
    TEXTMETRICW own{};
    ::GetTextMetricsW(context_.get(), &own);
    ::SetTextColor(context_.get(), color);
    int left = across(at.left);
    for (const FontRun& run : linkedFonts_.runsOf(context_.get(), wide)) {
        const int width = inkWidth(run);
        ::SelectObject(context_.get(), run.font);
        const BOOL drawn =
            ::ExtTextOutW(context_.get(), left, down(at.top) + static_cast<int>(own.tmAscent), 0, nullptr,
                          run.text.data(), static_cast<UINT>(run.text.size()), nullptr);
        ::SelectObject(context_.get(), font_);
        if (drawn == FALSE) failPrinting("The printer takes no text.");
        left += width;
    }
}

void Win32PrintDocument::drawLine(Point from, Point to) {
    ::MoveToEx(context_.get(), across(from.left), down(from.top), nullptr);
    ::LineTo(context_.get(), across(to.left), down(to.top));
}

void Win32PrintDocument::newPage() {
    if (::EndPage(context_.get()) <= 0) failPrinting("The printer does not end the page.");
    beginPage();
}

void Win32PrintDocument::end() {
    if (::EndPage(context_.get()) <= 0) failPrinting("The printer does not end the page.");
    if (::EndDoc(context_.get()) <= 0) failPrinting("The printer does not take the document.");
    job_.release();
}

}  // namespace pellmark
