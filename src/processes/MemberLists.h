#pragma once

#include <string>
#include <vector>

#include "controls/Controls.h"
#include "controls/list/ListView.h"
#include "knowledge/RecordSet.h"
#include "util/UserInterface.h"

namespace pellmark {

/// Two lists side by side, what belongs and what does not, with the buttons that move items between them.
/// Moving changes the lists alone; whoever owns them stores the outcome.
class MemberLists : public Frame {
  public:
    MemberLists(const UserInterface& person, Container& parent, std::string name);

    /// Headings, tool tips and captions in the language of the current call; both lists are cleared.
    void prepare();
    /// Shows these items and no others. When two of them have the same key the lists are left empty and Error
    /// (not unique) is thrown: half a list must never be taken for the whole.
    void show(const std::vector<ListItem>& nonMembers, const std::vector<ListItem>& members);

    void arrange(Size client) override;

    ListView LV1{*this, "LV1"};
    Button CmdAddft{*this, "CmdAddft", ">"};
    Button CmdAddAllft{*this, "CmdAddAllft", ">>"};
    Button CmdRevomeft{*this, "CmdRevomeft", "<"};
    Button CmdremoveAllft{*this, "CmdremoveAllft", "<<"};
    Button Cmdrefresh{*this, "Cmdrefresh", "Refresh"};
    ListView LV2{*this, "LV2"};

  private:
    void move(const char* operation, ListView& source, ListView& target, bool all);
    void listen(Button& button, const char* operation, ListView& source, ListView& target, bool all);
    void listen(ListView& list, ListView& other);

    UserInterface person_;
    std::vector<Subscription> subscriptions_;
};

/// The items of a record set of ids and names, read to the end before anything is shown.
std::vector<ListItem> itemsOf(RecordSet& records);

/// What there is beyond the members, in its order.
std::vector<ListItem> withoutMembers(std::vector<ListItem> all, const std::vector<ListItem>& members);

}  // namespace pellmark
