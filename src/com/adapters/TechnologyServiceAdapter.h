#pragma once

#include "automation/DispatchObject.h"
#include "ports/Technology.h"

namespace pellmark {

/// The host's technology service, its members called by name.
class TechnologyServiceAdapter : public TechnologyService {
  public:
    explicit TechnologyServiceAdapter(DispatchObject service) : service_(std::move(service)) {}

    std::unique_ptr<TechnologyObject> create(std::int16_t cuttingCycleId,
                                             const std::string& processId) override;
    int edit(TechnologyObject& technology, WindowHandle owner) override;
    bool runStepWizard(TechnologyObject& technology, WindowHandle owner) override;
    OperationList read(const std::string& path, const Progress& progress) override;
    bool write(const std::string& path, const OperationList& operations) override;
    std::string defaultFolder() override;
    void stored(const std::string& stepId, TechnologyObject& technology) override;

  private:
    DispatchObject service_;
};

}  // namespace pellmark
