#include "win32/ports/DeviceMode.h"

#include <commdlg.h>

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "win32/WideText.h"

namespace pellmark {

namespace {

using PrinterHandle = Handle<HANDLE, &::ClosePrinter>;

DEVMODEW* modeIn(std::vector<unsigned char>& bytes) {
    return reinterpret_cast<DEVMODEW*>(bytes.data());
}

void apply(const PrinterSettings& settings, DEVMODEW& mode) {
    mode.dmCopies = static_cast<short>(std::clamp(settings.copies, 1, 9999));
    mode.dmOrientation = static_cast<short>(settings.orientation);
    mode.dmFields |= DM_COPIES | DM_ORIENTATION;
    if (settings.paperSize != 0) {
        mode.dmPaperSize = static_cast<short>(settings.paperSize);
        mode.dmFields |= DM_PAPERSIZE;
    }
    if (settings.printQuality != 0) {
        mode.dmPrintQuality = static_cast<short>(settings.printQuality);
        mode.dmFields |= DM_PRINTQUALITY;
    }
}

void read(const DEVMODEW& mode, PrinterSettings& settings) {
    if ((mode.dmFields & DM_COPIES) != 0) settings.copies = std::max<int>(mode.dmCopies, 1);
    if ((mode.dmFields & DM_ORIENTATION) != 0) {
        settings.orientation =
            mode.dmOrientation == DMORIENT_LANDSCAPE ? Orientation::Landscape : Orientation::Portrait;
    }
    if ((mode.dmFields & DM_PAPERSIZE) != 0) settings.paperSize = mode.dmPaperSize;
    if ((mode.dmFields & DM_PRINTQUALITY) != 0) settings.printQuality = mode.dmPrintQuality;
}

/// What a handle of the dialogs holds, while one of these lives.
template <class Type>
class Locked {
  public:
    explicit Locked(HGLOBAL memory)
        : memory_(memory), data_(memory != nullptr ? static_cast<Type*>(::GlobalLock(memory)) : nullptr) {}
    ~Locked() {
        if (data_ != nullptr) ::GlobalUnlock(memory_);
    }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;
    Type* get() const { return data_; }

  private:
    HGLOBAL memory_;
    Type* data_;
};

}  // namespace

std::wstring deviceName(const PrinterSettings& settings) {
    if (!settings.device.empty()) return toWide(settings.device);
    DWORD length = 0;
    ::GetDefaultPrinterW(nullptr, &length);
    if (length == 0) return {};
    std::wstring name(length, L'\0');
    if (::GetDefaultPrinterW(name.data(), &length) == FALSE) return {};
    name.resize(length - 1);
    return name;
}

DeviceMode DeviceMode::of(const PrinterSettings& settings) {
    DeviceMode mode;
    std::wstring device = deviceName(settings);
    HANDLE opened = nullptr;
    if (device.empty() || ::OpenPrinterW(device.data(), &opened, nullptr) == FALSE) return mode;
    const PrinterHandle printer(opened);
    const auto ask = [&](DEVMODEW* out, DEVMODEW* in, DWORD what) {
        return ::DocumentPropertiesW(nullptr, printer.get(), device.data(), out, in, what);
    };
    const LONG size = ask(nullptr, nullptr, 0);
    if (size <= 0) return mode;
    std::vector<unsigned char> wanted(static_cast<std::size_t>(size));
    if (ask(modeIn(wanted), nullptr, DM_OUT_BUFFER) != IDOK) return mode;
    // What the driver's own pages said last time, as long as it is the same driver.
    if (settings.driverData.size() == wanted.size())
        std::memcpy(wanted.data(), settings.driverData.data(), wanted.size());
    apply(settings, *modeIn(wanted));
    mode.bytes_.resize(wanted.size());
    if (ask(modeIn(mode.bytes_), modeIn(wanted), DM_IN_BUFFER | DM_OUT_BUFFER) != IDOK) mode.bytes_ = wanted;
    return mode;
}

GlobalMemory DeviceMode::copy() const {
    if (empty()) return {};
    GlobalMemory memory(::GlobalAlloc(GMEM_MOVEABLE, bytes_.size()));
    if (const Locked<unsigned char> target(memory.get()); target.get() != nullptr)
        std::copy(bytes_.begin(), bytes_.end(), target.get());
    return memory;
}

PrinterSettings settingsFrom(HGLOBAL deviceMode, HGLOBAL deviceNames) {
    PrinterSettings settings;
    if (const Locked<const DEVMODEW> mode(deviceMode); mode.get() != nullptr) {
        read(*mode.get(), settings);
        const auto size = std::size_t{mode.get()->dmSize} + mode.get()->dmDriverExtra;
        settings.driverData.assign(reinterpret_cast<const char*>(mode.get()), size);
    }
    if (const Locked<const DEVNAMES> names(deviceNames); names.get() != nullptr) {
        const auto* const text = reinterpret_cast<const wchar_t*>(names.get());
        settings.device = fromWide(text + names.get()->wDeviceOffset);
    }
    return settings;
}

GlobalMemory deviceNamesOf(const PrinterSettings& settings) {
    const std::wstring device = deviceName(settings);
    if (device.empty()) return {};
    constexpr std::size_t kTexts = sizeof(DEVNAMES) / sizeof(wchar_t);
    // driver, device and port, each with its zero; the dialogs look for the device alone
    const std::size_t length = kTexts + 1 + device.size() + 1 + 1;
    GlobalMemory memory(::GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, length * sizeof(wchar_t)));
    if (const Locked<DEVNAMES> names(memory.get()); names.get() != nullptr) {
        names.get()->wDriverOffset = kTexts;
        names.get()->wDeviceOffset = kTexts + 1;
        names.get()->wOutputOffset = static_cast<WORD>(length - 1);
        std::copy(device.begin(), device.end(), reinterpret_cast<wchar_t*>(names.get()) + kTexts + 1);
    }
    return memory;
}

}  // namespace pellmark
