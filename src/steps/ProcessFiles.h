#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "controls/grid/Grid.h"
#include "steps/StepServices.h"

namespace pellmark {

/// Brings steps in from process files and writes them out, or the step list as a table. Remembers the folder
/// of the last file.
class ProcessFiles {
  public:
    explicit ProcessFiles(const StepServices& services) : services_(services) {}

    /// What an import came to.
    struct Import {
        std::int32_t added = 0;
        std::int32_t all = 0;
        std::string firstStepId;  ///< "" while no step has been added
        bool cancelled = false;   ///< by the person, while it ran
    };

    /// Asks for a file; "" when the person cancels or names none that exists.
    std::string askForFile(WindowHandle owner);
    /// Adds the operations of a process file to a process, each as a step. `outcome` says what has been added
    /// also when this throws.
    void import(const std::string& path, const std::string& processId, WindowHandle owner, Import& outcome);

    /// Asks for a file and saves into it what its extension says: "prc", "csv" or "txt", case ignored.
    /// Another extension saves nothing. A table holds the rows of the list, a process file every step of the
    /// process.
    /// `stepIds` is asked for the steps of a process file, in their order.
    using StepIds = std::function<std::vector<std::string>()>;
    void save(const Grid& grid, const std::string& processId, const StepIds& stepIds, WindowHandle owner);

  private:
    using Progress = TechnologyService::Progress;

    void importWith(const Progress& progress, const std::string& path, const std::string& processId,
                    Import& outcome);
    /// "" when the knowledge base refuses the step.
    std::string addStep(TechnologyObject& operation, const std::string& processId);
    void writeProcessFile(const std::string& processId, const StepIds& stepIds, const std::string& path);
    TechnologyService::OperationList operationsOf(const std::string& processId,
                                                  const std::vector<std::string>& stepIds);
    void saveTable(const Grid& grid, const std::string& path, char separator, WindowHandle owner);

    StepServices services_;
    std::string folder_;
};

}  // namespace pellmark
