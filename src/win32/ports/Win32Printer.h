#pragma once

#include "ports/Printer.h"

namespace pellmark {

/// Printing through the system's graphics interface.
class Win32Printer : public Printer {
  public:
    bool isInstalled() override;
    std::unique_ptr<PrintDocument> begin(const std::string& name) override;
};

}  // namespace pellmark
