#include "refhost/workbench/ProcessManager.h"

#include "com/adapters/HostRecords.h"
#include "refhost/workbench/HostSession.h"

namespace norvex {

using pellmark::CaseDescription;
using pellmark::VariantArg;

pellmark::DispatchObject& ProcessManager::component() {
    if (!component_)
        component_ = std::make_unique<pellmark::DispatchObject>(createObject("Pellmark.Application"));
    return *component_;
}

void ProcessManager::showProcesses(const std::string& processId) {
    component().call("ShowWindowProcessesView", {host_, processId});
}

void ProcessManager::showProcessCase(const CaseDescription& given) {
    component().call("ShowWindowProcessCaseView",
                     {host_, pellmark::arrayOf(given.valueIds), given.unit, given.nvxFeatureType,
                      given.partTypeId, given.featureTypeId, given.materialClassId, given.processUnit,
                      given.processGuid, given.processStepGuid});
}

std::string ProcessManager::callModal(const char* method, const CaseDescription& given) {
    // the host object is its own owner window object
    return component()
        .call(method, {host_, host_, pellmark::arrayOf(given.valueIds), given.unit, given.nvxFeatureType,
                       given.partTypeId, given.featureTypeId, given.materialClassId, given.processUnit,
                       given.processGuid, given.processStepGuid})
        .text();
}

void ProcessManager::dispose() {
    if (const auto component = std::move(component_)) component->call("Dispose");
}

}  // namespace norvex
