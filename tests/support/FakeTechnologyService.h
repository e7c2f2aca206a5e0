#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "base/Error.h"
#include "support/FakeTechnology.h"

namespace pellmark::test {

/// The host's technology in memory: defaults per cutting cycle as a test has set them, an editor and a wizard
/// that are lambdas, and process files that are kept as the operations they hold. Notes each call. An editor
/// or wizard that nobody has scripted is cancelled, unless the test has asked for a failure.
///
///     FakeTechnologyService service;
///     service.setDefaults(FakeTechnology(602, "Drill").add(1101, 80.0));
///     service.editor = [](FakeTechnology& technology) {
///         technology.parameterOf(1101)->type(90.0);
///         return TechnologyService::kAccepted;
///     };
class FakeTechnologyService : public TechnologyService {
  public:
    std::unique_ptr<TechnologyObject> create(std::int16_t cuttingCycleId,
                                             const std::string& processId) override;
    int edit(TechnologyObject& technology, WindowHandle owner) override;
    bool runStepWizard(TechnologyObject& technology, WindowHandle owner) override;
    OperationList read(const std::string& path, const Progress& progress) override;
    bool write(const std::string& path, const OperationList& operations) override;
    std::string defaultFolder() override;
    void stored(const std::string& stepId, TechnologyObject& technology) override;

    // --- what a test sets --------------------------------------------------------------------------------
    /// What create answers for a cutting cycle; one without an entry has no parameters and no name.
    void setDefaults(const FakeTechnology& technology);
    /// The answer of the editor: TechnologyService::kAccepted takes the values over.
    std::function<int(FakeTechnology&)> editor;
    /// True when the person has finished the wizard.
    std::function<bool(FakeTechnology&)> wizard;
    /// Puts a process file there.
    void putFile(const std::string& path, const std::vector<FakeTechnology>& operations);
    /// Reading that file throws this text, as a file does that is not one.
    void damage(const std::string& path, const std::string& text) { damaged_.insert_or_assign(path, text); }
    /// write answers false and leaves what is there.
    bool refusesToWrite = false;
    /// Told of each call by its operation, while it runs: the host's windows are open then.
    std::function<void(const std::string& operation)> onCall;
    /// Every later call of the operation ("create", "edit", ...) throws, after it has been noted.
    void throwOn(const std::string& operation, std::int32_t number = errors::kHostInterface,
                 const std::string& description = "The technology service failed on purpose.");
    void stopThrowing() { failures_.clear(); }
    std::string folder = "C:\\Norvex\\Processes";

    // --- what a test reads -------------------------------------------------------------------------------
    /// "create 602 {id}", "edit 7", "read C:\...", in order.
    std::vector<std::string> calls;
    /// The operation names of what read has handed out, as they were let go.
    std::vector<std::string> released;
    bool hasFile(const std::string& path) const { return files_.count(path) > 0; }
    /// What a file holds; throws errors::kFileNotFound when there is none.
    const std::vector<FakeTechnology>& file(const std::string& path) const;

  private:
    void called(const std::string& operation, const std::string& details);

    std::map<std::int16_t, FakeTechnology> defaults_;
    std::map<std::string, std::vector<FakeTechnology>> files_;
    std::map<std::string, std::string> damaged_;
    std::map<std::string, Error> failures_;
};

}  // namespace pellmark::test
