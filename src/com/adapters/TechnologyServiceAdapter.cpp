#include "com/adapters/TechnologyServiceAdapter.h"

#include "base/Error.h"
#include "com/adapters/HostApplicationAdapter.h"
#include "com/adapters/HostRecords.h"
#include "com/adapters/TechnologyAdapter.h"

namespace pellmark {

namespace {

TechnologyAdapter& hostsOwn(TechnologyObject& technology) {
    auto* adapter = dynamic_cast<TechnologyAdapter*>(&technology);
    if (adapter == nullptr) {
        throw Error(errors::kInvalidArgument, "TechnologyService",
                    "The technology was not created by the host's technology service.");
    }
    return *adapter;
}

/// Shows one of the host's windows on a technology, which may be another one afterwards, however that ended.
DispatchResult showOn(DispatchObject& service, std::string_view member, TechnologyAdapter& technology,
                      WindowHandle owner) {
    struct Forgetting {
        TechnologyAdapter& technology;
        ~Forgetting() { technology.forget(); }
    } const forgetting{technology};
    return service.call(member, {technology.object(), handleArgument(owner)});
}

}  // namespace

std::unique_ptr<TechnologyObject> TechnologyServiceAdapter::create(std::int16_t cuttingCycleId,
                                                                   const std::string& processId) {
    return std::make_unique<TechnologyAdapter>(service_.call("Create", {cuttingCycleId, processId}).object());
}

int TechnologyServiceAdapter::edit(TechnologyObject& technology, WindowHandle owner) {
    return showOn(service_, "Edit", hostsOwn(technology), owner).int32();
}

bool TechnologyServiceAdapter::runStepWizard(TechnologyObject& technology, WindowHandle owner) {
    return showOn(service_, "RunStepWizard", hostsOwn(technology), owner).boolean();
}

TechnologyService::OperationList TechnologyServiceAdapter::read(const std::string& path,
                                                                const Progress& progress) {
    DispatchObject file = service_.call("OpenFile", {path}).object();
    const std::int32_t all = file.call("Count").int32();
    OperationList operations;
    for (std::int32_t done = 1; done <= all; ++done) {
        operations.push_back(std::make_unique<TechnologyAdapter>(file.call("NextOperation").object()));
        if (progress && !progress(done, all)) break;
    }
    return operations;
}

bool TechnologyServiceAdapter::write(const std::string& path, const OperationList& operations) {
    std::vector<ComPtr<IDispatch>> objects;
    objects.reserve(operations.size());
    for (const auto& operation : operations)
        objects.push_back(hostsOwn(*operation).object());
    return service_.call("WriteFile", {path, arrayOf(objects)}).boolean();
}

std::string TechnologyServiceAdapter::defaultFolder() {
    std::string folder = service_.call("DefaultFolder").text();
    if (folder.ends_with('\\')) folder.pop_back();
    return folder;
}

void TechnologyServiceAdapter::stored(const std::string& stepId, TechnologyObject& technology) {
    if (!service_.has("StepStored")) return;
    service_.call("StepStored", {stepId, hostsOwn(technology).object()});
}

}  // namespace pellmark
