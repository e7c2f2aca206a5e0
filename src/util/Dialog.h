#pragma once

#include <string>
#include <utility>
#include <vector>

#include "controls/Controls.h"
#include "controls/Form.h"
#include "util/UserInterface.h"

namespace pellmark {

/// What the modal dialogs share: OK, Cancel and Help, what becomes of their errors, and that each opens as it
/// was left. A failure is shown and traced, and the dialog stays open with all input; calls already made stay
/// done.
class Dialog : public Form {
  public:
    void CmdCancel_Click() { cancel(); }
    void CmdHelp_Click();

  protected:
    Dialog(const UserInterface& person, std::string name);

    const UserInterface& person() const { return person_; }
    std::string GetString(const std::string& english) const { return person_.texts.GetString(english); }
    /// Places the buttons at the lower right of a client area of this size, and wires the three. One of the
    /// dialog's own may stand before the last.
    void addButtons(Size client, Button& ok, Button& cancel, Button& help, Button* own = nullptr);
    virtual void accept() = 0;
    /// Cancel, Escape and the close box.
    virtual void cancel() { unload(); }
    void restoreLayout() override;
    void Form_QueryUnload() override;
    /// The captions of the buttons in the language of the current call, then the access keys of all captions.
    void translateButtons(Button& ok, Button& cancel, Button& help);

    /// Reads what the dialog shows, from Form_Load. Where that fails the person is told, and it does not
    /// open.
    template <class Body>
    bool loadOrAbandon(const char* operation, Body&& body) {
        const bool loaded = trapAndTell(person_, operation, body);
        if (!loaded) abandonLoad();
        return loaded;
    }
    /// Runs what a person asked for. True when it ran to its end; otherwise its failure has been shown.
    template <class Body>
    bool carryOut(const char* operation, Body&& body) {
        return pellmark::carryOut(person_, operation, body);
    }
    void on(Subscription subscription) { subscriptions_.push_back(std::move(subscription)); }

  private:
    UserInterface person_;
    std::vector<Subscription> subscriptions_;
};

}  // namespace pellmark
