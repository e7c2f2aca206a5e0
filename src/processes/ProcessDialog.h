#pragma once

#include <string>
#include <vector>

#include "controls/Controls.h"
#include "controls/Form.h"
#include "controls/list/ListView.h"
#include "host/Component.h"

namespace pellmark {

/// What the modal dialogs of the process list share: OK, Cancel and Help, and the handler of their errors. A
/// failure is shown and traced, and the dialog stays open with all input; calls already made stay done.
class ProcessDialog : public Form {
  public:
    void CmdCancel_Click() { unload(); }
    void CmdHelp_Click();

  protected:
    ProcessDialog(Component& component, std::string name);

    Component& component() const { return component_; }
    /// Places the three buttons at the lower right of a client area of this size, and wires them.
    void addButtons(Size client, Button& ok, Button& cancel, Button& help);
    virtual void accept() = 0;

    /// The captions of the buttons in the language of the current call, then the access keys of all captions.
    void translateButtons(Button& ok, Button& cancel, Button& help);
    /// Runs a handler. True when it ran to its end; otherwise its failure has been shown.
    template <class Body>
    bool report(const char* operation, Body&& body) {
        try {
            body();
            return true;
        } catch (...) {
            showCurrentException(operation);
            return false;
        }
    }
    void on(Subscription subscription) { subscriptions_.push_back(std::move(subscription)); }

  private:
    void showCurrentException(const char* operation);

    Component& component_;
    std::vector<Subscription> subscriptions_;
};

/// The items of a record set of ids and names, read to the end before anything is shown.
std::vector<ListItem> itemsOf(RecordSet& records);

/// What there is beyond the members, in its order.
std::vector<ListItem> withoutMembers(std::vector<ListItem> all, const std::vector<ListItem>& members);

}  // namespace pellmark
