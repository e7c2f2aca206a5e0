#pragma once

#include <string>

#include "ports/Technology.h"

namespace pellmark {

/// Stands in for the host's technology service where it could not be created: every use throws Error (host
/// interface) with the reason.
class AbsentTechnology : public TechnologyService {
  public:
    explicit AbsentTechnology(std::string reason) : reason_(std::move(reason)) {}

    std::unique_ptr<TechnologyObject> create(std::int16_t, const std::string&) override { fail(); }
    int edit(TechnologyObject&, WindowHandle) override { fail(); }
    bool runStepWizard(TechnologyObject&, WindowHandle) override { fail(); }
    OperationList read(const std::string&, const Progress&) override { fail(); }
    bool write(const std::string&, const OperationList&) override { fail(); }
    std::string defaultFolder() override { fail(); }
    void stored(const std::string&, TechnologyObject&) override { fail(); }

  private:
    [[noreturn]] void fail() const;

    std::string reason_;
};

}  // namespace pellmark
