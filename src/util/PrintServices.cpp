#include "util/PrintServices.h"

#include "util/ChosenPages.h"

namespace pellmark {

bool PrintServices::isPrinterThere() const {
    if (printer.isInstalled()) return true;
    person.show(
        {person.texts.GetString("There is no printer. Install a printer in the system's settings first."), "",
         MessageIcon::Critical});
    return false;
}

std::unique_ptr<PrintDocument> PrintServices::askAndBegin(const std::string& name, WindowHandle owner) const {
    PageRange pages;
    if (!isPrinterThere() || !dialogs.VBPrintDlg(pages, owner)) return nullptr;
    auto document = printer.begin(name);
    if (document == nullptr || pages == PageRange{}) return document;
    return std::make_unique<ChosenPages>(std::move(document), pages, person.texts);
}

std::unique_ptr<PrintDocument> PrintServices::begin(const std::string& name) const {
    return isPrinterThere() ? printer.begin(name) : nullptr;
}

}  // namespace pellmark
