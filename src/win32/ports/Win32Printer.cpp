#include "win32/ports/Win32Printer.h"

#include "win32/WideText.h"
#include "win32/WindowsApi.h"
#include "win32/ports/DeviceMode.h"
#include "win32/ports/Win32PrintDocument.h"

namespace pellmark {

bool Win32Printer::isInstalled() {
    constexpr DWORD kBrief = 4;  // the level of detail that asks no printer
    DWORD needed = 0;
    DWORD count = 0;
    ::EnumPrintersW(PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS, nullptr, kBrief, nullptr, 0, &needed,
                    &count);
    return needed > 0;
}

std::unique_ptr<PrintDocument> Win32Printer::begin(const std::string& name) {
    const std::wstring device = deviceName(settings());
    const DeviceMode mode = DeviceMode::of(settings());
    PrinterContext context(::CreateDCW(nullptr, device.c_str(), nullptr, mode.get()));
    if (!context) failPrinting("The printer \"" + fromWide(device) + "\" cannot be used.");
    const std::wstring title = toWide(name);
    DOCINFOW document{};
    document.cbSize = sizeof document;
    document.lpszDocName = title.c_str();
    if (::StartDocW(context.get(), &document) <= 0) {
        // A printer that writes files asks for the name of one.
        if (::GetLastError() == ERROR_CANCELLED) return nullptr;
        failPrinting("The printer \"" + fromWide(device) + "\" does not begin a document.");
    }
    return std::make_unique<Win32PrintDocument>(std::move(context));
}

}  // namespace pellmark
