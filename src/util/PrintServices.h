#pragma once

#include <memory>
#include <string>

#include "ports/FileSystem.h"
#include "ports/Printer.h"
#include "util/UserInterface.h"
#include "util/cCommonDialog.h"

namespace pellmark {

/// What everything that prints works with. All parts are borrowed.
struct PrintServices {
    UserInterface person;
    cCommonDialog& dialogs;
    Printer& printer;
    Idle& idle;

    /// Asks the person for printer, settings and pages, and begins a document; what is drawn on pages that
    /// the person does not want is not printed. Null when the person cancelled, and where no printer is
    /// installed, which the person is told. Throws what dialog and printer throw.
    std::unique_ptr<PrintDocument> askAndBegin(const std::string& name, WindowHandle owner) const;
    /// The same on the printer as it is set, without asking.
    std::unique_ptr<PrintDocument> begin(const std::string& name) const;

  private:
    bool isPrinterThere() const;
};

}  // namespace pellmark
