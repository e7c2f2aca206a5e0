#include "processes/ProcessDialog.h"

#include <set>

#include "base/Text.h"
#include "controls/AccessKeys.h"

namespace pellmark {

namespace {

constexpr Size kButton{1215, 375};
constexpr Twips kMargin = 150;
constexpr Twips kGap = 100;

/// What a person is shown of a failure; the trace says more. Call only inside a catch block.
std::string descriptionOfCurrentException() {
    try {
        throw;
    } catch (const std::exception& error) {
        return error.what();
    } catch (...) {
        return describeCurrentException();
    }
}

}  // namespace

ProcessDialog::ProcessDialog(Component& component, std::string name)
    : Form(component.desktop(), std::move(name)), component_(component) {}

void ProcessDialog::addButtons(Size client, Button& ok, Button& cancel, Button& help) {
    const Anchors lowerRight{false, false, true, true};
    Twips left = client.width - kMargin - kButton.width;
    for (Button* button : {&help, &cancel, &ok}) {
        button->place({left, client.height - kMargin - kButton.height, kButton.width, kButton.height}, client,
                      lowerRight);
        left -= kButton.width + kGap;
    }
    setDefaultButton(&ok);
    setCancelButton(&cancel);
    on(ok.clicked.subscribe([this] { accept(); }));
    on(cancel.clicked.subscribe([this] { CmdCancel_Click(); }));
    on(help.clicked.subscribe([this] { CmdHelp_Click(); }));
}

void ProcessDialog::translateButtons(Button& ok, Button& cancel, Button& help) {
    ok.setCaption(component_.GetString("OK"));
    cancel.setCaption(component_.GetString("Cancel"));
    help.setCaption(component_.GetString("Help"));
    assignAccessKeys(*this);
}

void ProcessDialog::CmdHelp_Click() {
    report("ProcessDialog::CmdHelp_Click",
           [this] { component_.help().OpenHTMLHelp(handle(), Variant(HTMLHelp::kContext)); });
}

void ProcessDialog::showCurrentException(const char* operation) {
    component_.trace().record(operation, describeCurrentException());
    const std::string description = descriptionOfCurrentException();
    component_.desktop().showMessage({description, component_.title(), MessageIcon::Critical});
}

std::vector<ListItem> itemsOf(RecordSet& records) {
    const std::size_t id = records.fieldIndex(field::kId).value_or(0);
    const std::size_t name = records.fieldIndex(field::kName).value_or(0);
    std::vector<ListItem> items;
    for (std::size_t i = 0; i < records.count(); ++i) {
        items.push_back({records.text(i, id), records.text(i, name), {}});
    }
    return items;
}

std::vector<ListItem> withoutMembers(std::vector<ListItem> all, const std::vector<ListItem>& members) {
    std::set<std::string> keys;
    for (const ListItem& member : members)
        keys.insert(lowerAscii(member.key));
    std::erase_if(all, [&keys](const ListItem& item) { return keys.contains(lowerAscii(item.key)); });
    return all;
}

}  // namespace pellmark
