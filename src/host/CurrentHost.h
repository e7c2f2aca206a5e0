#pragma once

#include <memory>
#include <string>

#include "ports/HostInterfaces.h"

namespace pellmark {

/// The host application that the last public call handed in, for dialogs that outlast the choice of one.
/// Everything throws Error (host interface) before the first call.
class CurrentHost : public HostApplication {
  public:
    void set(std::shared_ptr<HostApplication> host) { host_ = std::move(host); }

    WindowHandle mainWindow() override { return host().mainWindow(); }
    std::string installationFolder() override { return host().installationFolder(); }
    std::int16_t languageCode() override { return host().languageCode(); }
    std::int16_t currentUnit() override { return host().currentUnit(); }
    std::string buildExpression(const std::string& rule, WindowHandle owner) override {
        const auto stays = host_;  // a host that hands another object in meanwhile must not lose this one
        return host().buildExpression(rule, owner);
    }

  private:
    HostApplication& host() const;

    std::shared_ptr<HostApplication> host_;
};

}  // namespace pellmark
