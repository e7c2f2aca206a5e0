#pragma once

#include <memory>
#include <string>

#include "automation/DispatchObject.h"
#include "knowledge/Records.h"

namespace norvex {

/// The component as the host calls it: one object of Pellmark.Application, made by the first call that needs
/// it and again by the first after Dispose. Failures are pellmark::Error.
class ProcessManager {
  public:
    explicit ProcessManager(pellmark::ComPtr<IDispatch> host) : host_(std::move(host)) {}
    ProcessManager(const ProcessManager&) = delete;
    ProcessManager& operator=(const ProcessManager&) = delete;

    void showProcesses(const std::string& processId);
    void showProcessCase(const pellmark::CaseDescription& description);
    /// "OpenProcess", "OpenFeatureCase", "EditFeatureCase" or "EditProcess": what it returned, "" for
    /// nothing.
    std::string callModal(const char* method, const pellmark::CaseDescription& description);
    void dispose();
    /// The component has been made and not been disposed of.
    bool isOpen() const { return component_ != nullptr; }

  private:
    pellmark::DispatchObject& component();

    pellmark::ComPtr<IDispatch> host_;
    std::unique_ptr<pellmark::DispatchObject> component_;
};

}  // namespace norvex
