#pragma once

#include <memory>
#include <string>

#include "com/ApplicationCalls.h"
#include "com/adapters/AutomationHostLibrary.h"
#include "host/Application.h"
#include "settings/TraceLog.h"
#include "win32/forms/Win32Desktop.h"
#include "win32/ports/HtmlHelpViewer.h"
#include "win32/ports/Win32Clipboard.h"
#include "win32/ports/Win32Clock.h"
#include "win32/ports/Win32CodePage.h"
#include "win32/ports/Win32FileDialogs.h"
#include "win32/ports/Win32FileSystem.h"
#include "win32/ports/Win32Idle.h"
#include "win32/ports/Win32Printer.h"
#include "win32/ports/Win32Registry.h"
#include "win32/ports/Win32SystemDialogs.h"

namespace pellmark {

/// A running component: the core over the Windows ports and the host's automation library. The one place that
/// puts them together.
class ComponentRoot final : public ApplicationCalls {
  public:
    /// A new component, for the class factory.
    static std::unique_ptr<ApplicationCalls> compose() { return std::make_unique<ComponentRoot>(); }

    ComponentRoot();

    const Operations& operations() const override { return operations_; }

    void showProcesses(const ComPtr<IDispatch>& host, const std::string& processGuid) override;
    void showProcessCase(const ComPtr<IDispatch>& host, const CaseDescription& description) override;
    std::string openProcess(const ComPtr<IDispatch>& host, const ComPtr<IDispatch>& owner,
                            const CaseDescription& description) override;
    void editFeatureCase(const ComPtr<IDispatch>& host, const ComPtr<IDispatch>& owner,
                         const CaseDescription& description) override;
    std::string openFeatureCase(const ComPtr<IDispatch>& host, const ComPtr<IDispatch>& owner,
                                const CaseDescription& description) override;
    void editProcess(const ComPtr<IDispatch>& host, const ComPtr<IDispatch>& owner,
                     const CaseDescription& description) override;
    void dispose() override;

    FRView currentView() const override { return application_.CurrentView; }
    void setCurrentView(FRView view) override { application_.CurrentView = view; }

  private:
    /// The person has been told already; throws for the caller, who may be the one to mend it.
    void tellMissingLibrary(const ComPtr<IDispatch>& host) const;

    // in the order in which they need one another
    Win32Registry registry_;
    Win32CodePage codePage_;
    Win32FileSystem files_;
    Win32Clock clock_;
    Win32Idle idle_;
    TraceLog trace_;
    Operations operations_;
    HtmlHelpViewer help_;
    Win32FileDialogs fileDialogs_;
    Win32SystemDialogs systemDialogs_;
    Win32Clipboard clipboard_;
    Win32Printer printer_;
    Win32Desktop desktop_;
    AutomationHostLibrary hostLibrary_;
    Application application_;
};

}  // namespace pellmark
