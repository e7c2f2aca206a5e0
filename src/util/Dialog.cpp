#include "util/Dialog.h"

#include "controls/AccessKeys.h"
#include "util/FormLayout.h"

namespace pellmark {

namespace {

constexpr Size kButton{1215, 375};
constexpr Twips kMargin = 150;
constexpr Twips kGap = 100;

}  // namespace

Dialog::Dialog(const UserInterface& person, std::string name)
    : Form(person.desktop, std::move(name)), person_(person) {}

void Dialog::addButtons(Size client, Button& ok, Button& cancel, Button& help, Button* own) {
    const Anchors lowerRight{false, false, true, true};
    Twips left = client.width - kMargin - kButton.width;
    for (Button* button : {&help, own, &cancel, &ok}) {
        if (button == nullptr) continue;
        button->place({left, client.height - kMargin - kButton.height, kButton.width, kButton.height}, client,
                      lowerRight);
        left -= kButton.width + kGap;
    }
    setDefaultButton(&ok);
    setCancelButton(&cancel);
    setHelpButton(&help);
    on(ok.clicked.subscribe([this] { accept(); }));
    on(cancel.clicked.subscribe([this] { CmdCancel_Click(); }));
    on(help.clicked.subscribe([this] { CmdHelp_Click(); }));
}

void Dialog::translateButtons(Button& ok, Button& cancel, Button& help) {
    ok.setCaption(GetString("OK"));
    cancel.setCaption(GetString("Cancel"));
    help.setCaption(GetString("Help"));
    assignAccessKeys(*this);
}

void Dialog::restoreLayout() {
    restoreFormLayout(*this, person_.layouts);
}

void Dialog::Form_QueryUnload() {
    saveFormLayout(*this, person_.layouts);
}

void Dialog::CmdHelp_Click() {
    carryOut("Dialog::CmdHelp_Click", [this] { person_.help.openHelp(handle()); });
}

}  // namespace pellmark
