#include "util/PrintServices.h"

namespace pellmark {

bool PrintServices::isPrinterThere() const {
    if (printer.isInstalled()) return true;
    person.show(
        {person.texts.GetString("There is no printer. Install a printer in the system's settings first."), "",
         MessageIcon::Critical});
    return false;
}

std::unique_ptr<PrintDocument> PrintServices::askAndBegin(const std::string& name, WindowHandle owner) const {
    if (!isPrinterThere() || !dialogs.VBPrintDlg(owner)) return nullptr;
    return printer.begin(name);
}

std::unique_ptr<PrintDocument> PrintServices::begin(const std::string& name) const {
    return isPrinterThere() ? printer.begin(name) : nullptr;
}

}  // namespace pellmark
