#pragma once

#include "automation/DispatchObject.h"
#include "ports/HostInterfaces.h"

namespace pellmark {

/// The object that the host hands in with a call, its members called by name.
class HostApplicationAdapter : public HostApplication {
  public:
    explicit HostApplicationAdapter(DispatchObject host) : host_(std::move(host)) {}

    WindowHandle mainWindow() override;
    std::string installationFolder() override;
    std::int16_t languageCode() override;
    std::int16_t currentUnit() override;
    std::string buildExpression(const std::string& rule, WindowHandle owner) override;

  private:
    DispatchObject host_;
};

/// A window as an argument: handles are 32 bits wide on every Windows.
VariantArg handleArgument(WindowHandle window);

/// The host application behind a call's first argument; null for Nothing.
std::shared_ptr<HostApplication> hostApplicationFrom(const ComPtr<IDispatch>& argument);

/// The window of the host's owner object; 0 for Nothing. Throws errors::kHostInterface for an object without
/// hWnd.
WindowHandle ownerWindowFrom(const ComPtr<IDispatch>& argument);

}  // namespace pellmark
