#include "win32/ports/Win32SystemDialogs.h"

#include <algorithm>
#include <cmath>

#include "win32/Handles.h"
#include "win32/Scale.h"
#include "win32/WideText.h"
#include "win32/WindowsApi.h"
#include "win32/ports/DeviceMode.h"
#include "win32/ports/DialogOwner.h"

#include <commdlg.h>  // needs the system's types

namespace pellmark {

namespace {

constexpr Color kColorBits = 0xFFFFFF;

std::uint32_t reasonOf(bool confirmed) {
    return confirmed ? 0 : ::CommDlgExtendedError();
}

/// The dialogs' own unit of length: thousandths of an inch or hundredths of a millimetre.
class PageUnit {
  public:
    explicit PageUnit(DWORD flags) : perInch_((flags & PSD_INHUNDREDTHSOFMILLIMETERS) != 0 ? 2540 : 1000) {}
    int from(Twips length) const { return ::MulDiv(length, perInch_, kTwipsPerInch); }
    Twips twips(LONG length) const { return ::MulDiv(static_cast<int>(length), kTwipsPerInch, perInch_); }

  private:
    static constexpr int kTwipsPerInch = 1440;
    int perInch_;
};

/// The settings, or those of the default printer where theirs has been removed since.
PrinterSettings usable(const PrinterSettings& settings) {
    if (settings.device.empty() || !DeviceMode::of(settings).empty()) return settings;
    PrinterSettings others = settings;
    others.device.clear();
    others.driverData.clear();
    return others;
}

int screenDpi() {
    const HDC screen = ::GetDC(nullptr);
    const int dpi = ::GetDeviceCaps(screen, LOGPIXELSY);
    ::ReleaseDC(nullptr, screen);
    return dpi;
}

LOGFONTW logicalFont(const Font& font) {
    constexpr double kPointsPerInch = 72;
    LOGFONTW logical{};
    logical.lfHeight = -static_cast<LONG>(std::lround(font.size * screenDpi() / kPointsPerInch));
    logical.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
    logical.lfItalic = font.italic ? TRUE : FALSE;
    logical.lfUnderline = font.underline ? TRUE : FALSE;
    logical.lfStrikeOut = font.strikethrough ? TRUE : FALSE;
    logical.lfCharSet = DEFAULT_CHARSET;
    const std::wstring name = toWide(font.name).substr(0, LF_FACESIZE - 1);
    std::copy(name.begin(), name.end(), logical.lfFaceName);
    return logical;
}

Font fontFrom(const LOGFONTW& logical, int tenthsOfPoint) {
    constexpr double kTenths = 10;
    Font font;
    font.name = fromWide(logical.lfFaceName);
    font.size = tenthsOfPoint / kTenths;
    font.bold = logical.lfWeight >= FW_BOLD;
    font.italic = logical.lfItalic != FALSE;
    font.underline = logical.lfUnderline != FALSE;
    font.strikethrough = logical.lfStrikeOut != FALSE;
    return font;
}

/// How many pages there will be depends on what is chosen, so as many as a dialog knows may be asked for.
constexpr WORD kMostPages = 0xFFFF;

void propose(const PageRange& pages, PRINTDLGW& asked) {
    const bool isWhole = pages == PageRange{};
    asked.Flags |= isWhole ? PD_ALLPAGES : PD_PAGENUMS;
    asked.nMinPage = 1;
    asked.nMaxPage = kMostPages;
    asked.nFromPage = static_cast<WORD>(std::clamp<int>(pages.first, 1, kMostPages));
    asked.nToPage = isWhole ? asked.nFromPage : static_cast<WORD>(std::clamp<int>(pages.last, 1, kMostPages));
}

PageRange pagesFrom(const PRINTDLGW& answer) {
    if ((answer.Flags & PD_PAGENUMS) == 0) return {};
    const auto [first, last] = std::minmax({answer.nFromPage, answer.nToPage});
    return {first, last};
}

}  // namespace

DialogResult<ColorChoice> Win32SystemDialogs::chooseColor(const ColorChoice& first, WindowHandle owner,
                                                          std::uint32_t flags) {
    const Operations::Scope scope(operations_);
    const DialogOwner over(owner);
    std::array<COLORREF, std::tuple_size_v<CustomColors>> custom{};
    std::copy(first.customColors.begin(), first.customColors.end(), custom.begin());
    CHOOSECOLORW asked{};
    asked.lStructSize = sizeof asked;
    asked.hwndOwner = over.window();
    asked.rgbResult = first.color & kColorBits;
    asked.lpCustColors = custom.data();
    asked.Flags = flags | CC_RGBINIT;
    DialogResult<ColorChoice> result{false, first, 0};
    result.confirmed = ::ChooseColorW(&asked) != FALSE;
    result.extendedError = reasonOf(result.confirmed);
    std::copy(custom.begin(), custom.end(), result.chosen.customColors.begin());
    if (result.confirmed) result.chosen.color = asked.rgbResult & kColorBits;
    return result;
}

DialogResult<FontChoice> Win32SystemDialogs::chooseFont(const FontChoice& first, WindowHandle owner,
                                                        std::uint32_t flags) {
    const Operations::Scope scope(operations_);
    const DialogOwner over(owner);
    LOGFONTW logical = logicalFont(first.font);
    CHOOSEFONTW asked{};
    asked.lStructSize = sizeof asked;
    asked.hwndOwner = over.window();
    asked.lpLogFont = &logical;
    asked.rgbColors = first.color & kColorBits;
    asked.Flags = flags | CF_SCREENFONTS | CF_EFFECTS;
    if (!first.font.name.empty()) asked.Flags |= CF_INITTOLOGFONTSTRUCT;
    DialogResult<FontChoice> result{false, first, 0};
    result.confirmed = ::ChooseFontW(&asked) != FALSE;
    result.extendedError = reasonOf(result.confirmed);
    if (result.confirmed) {
        result.chosen.font = fontFrom(logical, asked.iPointSize);
        result.chosen.color = asked.rgbColors & kColorBits;
    }
    return result;
}

DialogResult<PrintChoice> Win32SystemDialogs::print(const PrintChoice& first, WindowHandle owner,
                                                    std::uint32_t flags) {
    const Operations::Scope scope(operations_);
    const DialogOwner over(owner);
    PRINTDLGW asked{};
    asked.lStructSize = sizeof asked;
    asked.hwndOwner = over.window();
    const PrinterSettings settings = usable(first.settings);
    asked.hDevMode = DeviceMode::of(settings).copy().release();
    asked.hDevNames = deviceNamesOf(settings).release();
    // Without a printer the caller says so, in the person's language.
    asked.Flags = flags | PD_NOSELECTION | PD_HIDEPRINTTOFILE | PD_USEDEVMODECOPIESANDCOLLATE | PD_NOWARNING;
    propose(first.pages, asked);
    asked.nCopies = 1;
    DialogResult<PrintChoice> result{false, first, 0};
    result.confirmed = ::PrintDlgW(&asked) != FALSE;
    result.extendedError = reasonOf(result.confirmed);
    // The dialog may have exchanged both.
    const GlobalMemory mode(asked.hDevMode);
    const GlobalMemory names(asked.hDevNames);
    if (result.confirmed) result.chosen = {settingsFrom(mode.get(), names.get()), pagesFrom(asked)};
    return result;
}

DialogResult<PageChoice> Win32SystemDialogs::pageSetup(const PageChoice& first, WindowHandle owner,
                                                       std::uint32_t flags) {
    const Operations::Scope scope(operations_);
    const DialogOwner over(owner);
    PAGESETUPDLGW asked{};
    asked.lStructSize = sizeof asked;
    asked.hwndOwner = over.window();
    const PrinterSettings settings = usable(first.settings);
    asked.hDevMode = DeviceMode::of(settings).copy().release();
    asked.hDevNames = deviceNamesOf(settings).release();
    asked.Flags = flags | PSD_INHUNDREDTHSOFMILLIMETERS | PSD_NOWARNING;
    const PageUnit unit(asked.Flags);
    if (first.margins != PageMargins{}) {
        asked.Flags |= PSD_MARGINS;
        asked.rtMargin = {unit.from(first.margins.left), unit.from(first.margins.top),
                          unit.from(first.margins.right), unit.from(first.margins.bottom)};
    }
    DialogResult<PageChoice> result{false, first, 0};
    result.confirmed = ::PageSetupDlgW(&asked) != FALSE;
    result.extendedError = reasonOf(result.confirmed);
    const GlobalMemory mode(asked.hDevMode);
    const GlobalMemory names(asked.hDevNames);
    if (result.confirmed) {
        result.chosen.settings = settingsFrom(mode.get(), names.get());
        result.chosen.margins = {unit.twips(asked.rtMargin.left), unit.twips(asked.rtMargin.top),
                                 unit.twips(asked.rtMargin.right), unit.twips(asked.rtMargin.bottom)};
    }
    return result;
}

}  // namespace pellmark
