#include "support/FakeTechnologyService.h"

namespace pellmark::test {

namespace {

FakeTechnology& mine(TechnologyObject& technology) {
    return dynamic_cast<FakeTechnology&>(technology);
}

/// Notes when it is let go.
class ReadOperation : public FakeTechnology {
  public:
    ReadOperation(const FakeTechnology& operation, std::vector<std::string>& released)
        : FakeTechnology(operation), name_(FakeTechnology::operationName()), released_(released) {}
    ReadOperation(const ReadOperation&) = delete;
    ReadOperation& operator=(const ReadOperation&) = delete;
    ~ReadOperation() override { released_.push_back(name_); }

  private:
    std::string name_;
    std::vector<std::string>& released_;
};

}  // namespace

void FakeTechnologyService::called(const std::string& operation, const std::string& details) {
    calls.push_back(details.empty() ? operation : operation + " " + details);
    if (onCall) onCall(operation);
    const auto failure = failures_.find(operation);
    if (failure != failures_.end()) throw failure->second;
}

void FakeTechnologyService::throwOn(const std::string& operation, std::int32_t number,
                                    const std::string& description) {
    failures_.insert_or_assign(operation, Error(number, "Technology", description));
}

void FakeTechnologyService::setDefaults(const FakeTechnology& technology) {
    FakeTechnology copy(technology);
    const std::int16_t cycle = copy.cuttingCycleId();
    defaults_.erase(cycle);
    defaults_.emplace(cycle, copy);
}

void FakeTechnologyService::putFile(const std::string& path, const std::vector<FakeTechnology>& operations) {
    files_.erase(path);
    files_.emplace(path, operations);
}

std::unique_ptr<TechnologyObject> FakeTechnologyService::create(std::int16_t cuttingCycleId,
                                                                const std::string& processId) {
    called("create", std::to_string(cuttingCycleId) + (processId.empty() ? "" : " " + processId));
    const auto found = defaults_.find(cuttingCycleId);
    if (found == defaults_.end()) return std::make_unique<FakeTechnology>(cuttingCycleId);
    return std::make_unique<FakeTechnology>(found->second);
}

int FakeTechnologyService::edit(TechnologyObject& technology, WindowHandle owner) {
    called("edit", std::to_string(owner));
    return editor ? editor(mine(technology)) : 0;
}

bool FakeTechnologyService::runStepWizard(TechnologyObject& technology, WindowHandle owner) {
    called("runStepWizard", std::to_string(owner));
    return wizard && wizard(mine(technology));
}

TechnologyService::OperationList FakeTechnologyService::read(const std::string& path,
                                                             const Progress& progress) {
    called("read", path);
    const auto damage = damaged_.find(path);
    if (damage != damaged_.end()) throw Error(errors::kInvalidArgument, "Technology", damage->second);
    OperationList operations;
    const auto& stored = file(path);
    const auto all = static_cast<std::int32_t>(stored.size());
    for (const auto& operation : stored) {
        operations.push_back(std::make_unique<ReadOperation>(operation, released));
        if (progress && !progress(static_cast<std::int32_t>(operations.size()), all)) break;
    }
    return operations;
}

bool FakeTechnologyService::write(const std::string& path, const OperationList& operations) {
    called("write", path);
    if (refusesToWrite) return false;
    std::vector<FakeTechnology> copies;
    for (const auto& operation : operations)
        copies.emplace_back(mine(*operation));
    putFile(path, copies);
    return true;
}

std::string FakeTechnologyService::defaultFolder() {
    called("defaultFolder", {});
    return folder;
}

void FakeTechnologyService::stored(const std::string& stepId, TechnologyObject&) {
    called("stored", stepId);
}

const std::vector<FakeTechnology>& FakeTechnologyService::file(const std::string& path) const {
    const auto found = files_.find(path);
    if (found == files_.end())
        throw Error(errors::kFileNotFound, "Technology", "There is no file '" + path + "'.");
    return found->second;
}

}  // namespace pellmark::test
