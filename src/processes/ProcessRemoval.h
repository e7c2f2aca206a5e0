#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/grid/Grid.h"
#include "ports/FileSystem.h"
#include "util/UserInterface.h"

namespace pellmark {

/// Removes the selected processes of a list, one call to the knowledge base each, last selected first. What
/// is removed is what was selected when the person was asked, whatever happens to the selection meanwhile.
class ProcessRemoval {
  public:
    struct Target {
        std::string id;
        std::string featureCaseId;  ///< through which the process is listed, "" in the list of all
        std::string name;
    };
    /// True when the knowledge base did it, false when it refused. Throws when it failed.
    using Remove = std::function<bool(const Target&)>;

    /// Takes the selected rows. A row without an id is none to remove.
    ProcessRemoval(const UserInterface& person, Idle& idle, Grid& grid);

    /// Of what will be removed, first selected first.
    std::vector<std::string> names() const;
    /// Removes them and the rows of those that are gone. A refusal leaves its row and is not told; failures
    /// are traced under the operation's name and told in one box, with what was done and what was not. Many
    /// are shown as they go, and a person may end it; what is left then stays.
    void carryOut(const char* operation, const Remove& remove);

  private:
    void tell(std::size_t removed, const std::vector<std::string>& failures) const;

    UserInterface person_;
    Idle& idle_;
    Grid& grid_;
    std::vector<Target> targets_;  ///< last selected first
};

}  // namespace pellmark
