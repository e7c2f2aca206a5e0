#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "automation/DispatchObject.h"
#include "ports/Technology.h"

namespace pellmark {

/// A technology object of the host. Its parameters cross the boundary as one answer, which is asked for again
/// only when something may have changed them.
class TechnologyAdapter : public TechnologyObject {
  public:
    explicit TechnologyAdapter(DispatchObject object);
    ~TechnologyAdapter() override;

    std::int16_t cuttingCycleId() override;
    std::string operationName() override;
    void setOperationName(const std::string& name) override;
    std::int32_t count() override;
    TechnologyParameter& parameter(std::int32_t position) override;
    TechnologyParameter* parameterOf(std::int32_t clCode) override;

    const ComPtr<IDispatch>& object() const { return object_.pointer(); }
    /// The host may have changed anything, in its editor or its wizard.
    void forget();

  private:
    class Parameter;

    /// What the parameters are does not change when a value is handed over; their values and states may.
    void needParameters();
    void needValues();
    void read();
    void setValue(std::int32_t clCode, const Variant& value);

    DispatchObject object_;
    std::map<std::int32_t, std::unique_ptr<Parameter>> byCode_;  ///< all ever seen: they are lent
    std::vector<Parameter*> order_;
    bool hasParameters_ = false;
    bool hasValues_ = false;
};

}  // namespace pellmark
