#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "automation/Automation.h"
#include "support/win32/ActivatedManifest.h"

namespace pellmark::test {

/// Norvex.dll beside the test program, found through its manifest and not through the registry. Keeps
/// automation started for the thread.
class NorvexLibrary {
  public:
    NorvexLibrary();
    NorvexLibrary(const NorvexLibrary&) = delete;
    NorvexLibrary& operator=(const NorvexLibrary&) = delete;
    ~NorvexLibrary();

    ComPtr<IDispatch> create(const wchar_t* progId) const;
    /// The folder of the test program and the library, without a trailing "\".
    static std::wstring folder();
    /// Which file the services made from now on use.
    static void useKnowledgeBase(const std::string& path);

  private:
    std::optional<ActivatedManifest> manifest_;
};

}  // namespace pellmark::test
