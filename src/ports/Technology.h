#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/Geometry.h"
#include "base/Variant.h"

/// The host's technology: what a step cuts with and how. Objects, editor, wizard and file format are the
/// host's; its dialogs are modal and may call back into the component while they are open. Failures are
/// thrown as Error.
namespace pellmark {

/// One parameter of a technology object. Borrowed from its object.
class TechnologyParameter {
  public:
    virtual ~TechnologyParameter() = default;
    /// Its identity within the technology, the `_CLFileCode` of a step's value.
    virtual std::int32_t clCode() = 0;
    /// The host's sort of parameter; kKindInput and kKindKept are what a process file brings into a step.
    virtual std::int16_t kind() = 0;
    /// kStateSet when a person or a formula has set it since the object was made.
    virtual std::int16_t state() = 0;
    /// A double or a text, in the unit of the process; empty for a parameter that has no value.
    virtual Variant value() = 0;
    virtual void setValue(const Variant& value) = 0;

    static constexpr std::int16_t kKindInput = 2;
    static constexpr std::int16_t kKindKept = 6;  ///< kept with the step whether it was set or not
    static constexpr std::int16_t kStateSet = 2;
};

/// The technology of one step: an operation of the host.
class TechnologyObject {
  public:
    virtual ~TechnologyObject() = default;
    virtual std::int16_t cuttingCycleId() = 0;
    /// The parameter "OperationName", as the host has it: it may stand in double quotes.
    virtual std::string operationName() = 0;
    virtual void setOperationName(const std::string& name) = 0;
    virtual std::int32_t count() = 0;
    /// By position from 1 to count().
    virtual TechnologyParameter& parameter(std::int32_t position) = 0;
    /// Null when the technology has none with that code.
    virtual TechnologyParameter* parameterOf(std::int32_t clCode) = 0;
};

class TechnologyService {
  public:
    using OperationList = std::vector<std::unique_ptr<TechnologyObject>>;
    /// Told how many operations have been read of how many; false ends the reading.
    using Progress = std::function<bool(std::int32_t done, std::int32_t all)>;

    virtual ~TechnologyService() = default;
    /// With the host's defaults for that cycle. `processId` tells the unit and the materials, "" for none.
    virtual std::unique_ptr<TechnologyObject> create(std::int16_t cuttingCycleId,
                                                     const std::string& processId) = 0;
    /// Opens the editor over the owner; kAccepted when the person took the values over.
    virtual int edit(TechnologyObject& technology, WindowHandle owner) = 0;
    /// Opens the step wizard over the owner; true when the person finished it.
    virtual bool runStepWizard(TechnologyObject& technology, WindowHandle owner) = 0;
    /// The operations of a process file, in its order. Throws with the line where the file is not one.
    virtual OperationList read(const std::string& path, const Progress& progress) = 0;
    /// False when it could not be written; what stood there before is intact then.
    virtual bool write(const std::string& path, const OperationList& operations) = 0;
    /// The host's folder for process files, without a trailing "\".
    virtual std::string defaultFolder() = 0;
    /// The values of the technology are the step's now: the host may remember where they came from.
    virtual void stored(const std::string& stepId, TechnologyObject& technology) = 0;

    static constexpr int kAccepted = 1;
};

}  // namespace pellmark
