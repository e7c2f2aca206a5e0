#pragma once

#include <set>
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
    /// Whether a person has moved something that is not stored yet.
    bool isChanged() const { return memberIds() != known_; }
    /// What the knowledge base holds now. Where those are not the members that were known, somebody else has
    /// changed them: that is shown, with what the person has moved on top of it. False when nobody has.
    bool takeOver(const std::vector<ListItem>& nonMembers, const std::vector<ListItem>& members);
    /// The knowledge base holds this one as the lists show it. Without a word about it, takeOver() would take
    /// an OK that failed half-way for somebody else's.
    void noteStored(const std::string& key);

    void arrange(Size client) override;

    ListView LV1{*this, "LV1"};
    Button CmdAddft{*this, "CmdAddft", ">"};
    Button CmdAddAllft{*this, "CmdAddAllft", ">>"};
    Button CmdRevomeft{*this, "CmdRevomeft", "<"};
    Button CmdremoveAllft{*this, "CmdremoveAllft", "<<"};
    Button Cmdrefresh{*this, "Cmdrefresh", "Refresh"};
    ListView LV2{*this, "LV2"};

  private:
    using Ids = std::set<std::string>;  ///< in lower case

    Ids memberIds() const;
    void move(const char* operation, ListView& source, ListView& target, bool all);
    void listen(Button& button, const char* operation, ListView& source, ListView& target, bool all);
    void listen(ListView& list, ListView& other);

    UserInterface person_;
    Ids known_;  ///< the members that the knowledge base had when it was last looked at
    std::vector<Subscription> subscriptions_;
};

/// Tells that somebody else has changed what a dialog edits, that it shows the changes of both now, and that
/// nothing has been stored yet. `both` says more of what both have changed, a line each; "" where nothing is.
void tellChangedMeanwhile(const UserInterface& person, const std::string& both);

/// The items of a record set of ids and names, read to the end before anything is shown.
std::vector<ListItem> itemsOf(RecordSet& records);

/// What there is beyond the members, in its order.
std::vector<ListItem> withoutMembers(std::vector<ListItem> all, const std::vector<ListItem>& members);

}  // namespace pellmark
