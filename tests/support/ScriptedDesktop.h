#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "controls/Form.h"
#include "controls/Menu.h"
#include "ports/Desktop.h"

namespace pellmark::test {

/// The person in front of the screen, scripted: every message box, dialog and pop-up menu must have been
/// announced, in order, and be answered by what was announced with it. An unexpected one fails the test, and
/// so does one that never came.
class ScriptedDesktop : public Desktop {
  public:
    explicit ScriptedDesktop(const Operations& operations) : Desktop(operations) {}
    ~ScriptedDesktop() override;

    /// The next box must show this text.
    void expectMessage(const std::string& text, MessageAnswer answer = MessageAnswer::Ok);
    /// The next modal form must have this name; the script works its controls and must close it. For a form
    /// that is shown while something runs, the script comes first.
    void expectDialog(const std::string& name, std::function<void(Form&)> script);
    /// The next pop-up menu must have this name; the script may run one of its commands.
    void expectMenu(const std::string& name, std::function<void(Menu&)> script);

    /// Every box shown so far, for looking at icons and titles.
    const std::vector<MessageBox>& messages() const { return messages_; }
    /// What happened to windows: "create FrmMain", "embed FrmMain 7", "modal FrmMain 9", "destroy FrmMain".
    const std::vector<std::string>& windows() const { return windows_; }
    /// The form of that name whose window exists now, null when there is none.
    Form* loaded(const std::string& name) const;

    /// The host's windows are gone, and what was embedded there has not been told yet.
    bool hostWindowsGone = false;

    MessageAnswer showMessage(const MessageBox& message) override;
    std::unique_ptr<FormPeer> createPeer(Form& form) override;

  private:
    class Peer;
    struct Expected {
        std::string kind;
        std::string name;
        std::function<void(Form&)> onForm;
        std::function<void(Menu&)> onMenu;
        MessageAnswer answer = MessageAnswer::Ok;
    };
    bool take(const std::string& kind, const std::string& name, Expected& expected);

    std::deque<Expected> script_;
    std::vector<MessageBox> messages_;
    std::vector<std::string> windows_;
    std::vector<Form*> loaded_;
};

}  // namespace pellmark::test
