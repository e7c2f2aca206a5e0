#pragma once

#include <string>
#include <vector>

#include "ports/Printer.h"
#include "win32/Handles.h"
#include "win32/WindowsApi.h"

#include <winspool.h>  // needs the system's types

namespace pellmark {

/// Printer settings in the form in which the system's dialogs and drivers exchange them: the driver's own
/// structure, which is longer than the part of it that the system describes.
class DeviceMode {
  public:
    /// What the driver of the settings' printer makes of them. Empty where there is no such printer.
    static DeviceMode of(const PrinterSettings& settings);

    bool empty() const { return bytes_.empty(); }
    /// Null when empty.
    const DEVMODEW* get() const {
        return empty() ? nullptr : reinterpret_cast<const DEVMODEW*>(bytes_.data());
    }
    /// A copy in memory that a dialog may exchange for its own; nothing when empty.
    GlobalMemory copy() const;

  private:
    std::vector<unsigned char> bytes_;
};

/// The name of the settings' printer, or of the system's default one; "" when there is none.
std::wstring deviceName(const PrinterSettings& settings);

/// The settings that a dialog answers with. Either handle may be null: what it would say then stays open.
PrinterSettings settingsFrom(HGLOBAL deviceMode, HGLOBAL deviceNames);

/// The names as the dialogs take them; nothing when there is no printer.
GlobalMemory deviceNamesOf(const PrinterSettings& settings);

}  // namespace pellmark
