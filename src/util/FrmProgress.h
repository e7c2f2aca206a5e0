#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/Controls.h"
#include "controls/Form.h"
#include "ports/FileSystem.h"
#include "util/UserInterface.h"

namespace pellmark {

/// Shows how far a long work has come, and lets a person cancel it.
class FrmProgress : public Form {
  public:
    /// `what` names the work, in the language of the person.
    FrmProgress(const UserInterface& person, Idle& idle, const std::string& what);

    /// Shows the form while the work runs. What the work throws is thrown on.
    void run(WindowHandle owner, const std::function<void()>& work) { showWhile(owner, work); }
    /// Shows how much is done and lets the person act. False once the person has cancelled.
    bool report(std::int32_t done, std::int32_t all);

    Label LblWhat{*this, "LblWhat"};
    Label LblDone{*this, "LblDone"};
    Button CmdCancel{*this, "CmdCancel"};

  private:
    Idle& idle_;
    bool cancelled_ = false;
    Subscription cancelling_;
};

}  // namespace pellmark
