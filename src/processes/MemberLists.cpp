#include "processes/MemberLists.h"

#include <algorithm>

#include "base/Text.h"
#include "knowledge/Records.h"
#include "util/cListViewOps.h"

namespace pellmark {

namespace {

constexpr Twips kMargin = 150;
constexpr Twips kCaption = 300;
constexpr Twips kGap = 120;
constexpr Size kButton{1395, 375};
/// So that the one column leaves room for the scroll bar of a long list.
constexpr Twips kScrollBar = 330;

}  // namespace

MemberLists::MemberLists(const UserInterface& person, Container& parent, std::string name)
    : Frame(parent, std::move(name)), person_(person) {
    listen(CmdAddft, "MemberLists::CmdAddft_Click", LV1, LV2, false);
    listen(CmdAddAllft, "MemberLists::CmdAddAllft_Click", LV1, LV2, true);
    listen(CmdRevomeft, "MemberLists::CmdRevomeft_Click", LV2, LV1, false);
    listen(CmdremoveAllft, "MemberLists::CmdremoveAllft_Click", LV2, LV1, true);
    listen(LV1, LV2);
    listen(LV2, LV1);
}

void MemberLists::listen(Button& button, const char* operation, ListView& source, ListView& target,
                         bool all) {
    subscriptions_.push_back(button.clicked.subscribe(
        [this, operation, &source, &target, all] { move(operation, source, target, all); }));
}

void MemberLists::listen(ListView& list, ListView& other) {
    subscriptions_.push_back(list.columnClicked.subscribe([this, &list](int col) {
        trap(person_.operations(), "MemberLists::ColumnClick", [&] { cListViewOps::SortColumn(list, col); });
    }));
    subscriptions_.push_back(list.doubleClicked.subscribe([this, &list, &other](int index) {
        if (index < 0) return;
        list.select(index);
        move("MemberLists::DblClick", list, other, false);
    }));
}

void MemberLists::move(const char* operation, ListView& source, ListView& target, bool all) {
    trap(person_.operations(), operation, [&] { cListViewOps::MoveListItems(source, target, all); });
}

void MemberLists::prepare() {
    LV1.clear();
    LV2.clear();
    LV1.setColumnHeaders({{person_.texts.GetString("Nonmembers"), 0}});
    LV2.setColumnHeaders({{person_.texts.GetString("Members"), 0}});
    CmdAddft.setToolTip(person_.texts.GetString("Move Selected Items to Members List"));
    CmdAddAllft.setToolTip(person_.texts.GetString("Move All Items to Members List"));
    CmdRevomeft.setToolTip(person_.texts.GetString("Move Selected Items to Nonmembers List"));
    CmdremoveAllft.setToolTip(person_.texts.GetString("Move All Items to Nonmembers List"));
    Cmdrefresh.setCaption(person_.texts.GetString("Refresh"));
}

void MemberLists::show(const std::vector<ListItem>& nonMembers, const std::vector<ListItem>& members) {
    ListView::RedrawOff off1(LV1);
    ListView::RedrawOff off2(LV2);
    LV1.clear();
    LV2.clear();
    try {
        for (const ListItem& item : nonMembers)
            LV1.add(item);
        for (const ListItem& item : members)
            LV2.add(item);
    } catch (...) {
        LV1.clear();
        LV2.clear();
        throw;
    }
    known_ = memberIds();
}

MemberLists::Ids MemberLists::memberIds() const {
    Ids ids;
    for (int i = 0; i < LV2.count(); ++i)
        ids.insert(lowerAscii(LV2.item(i).key));
    return ids;
}

bool MemberLists::takeOver(const std::vector<ListItem>& nonMembers, const std::vector<ListItem>& members) {
    Ids stored;
    for (const ListItem& member : members)
        stored.insert(lowerAscii(member.key));
    if (stored == known_) return false;
    const auto isMoved = [this, wanted = memberIds()](const ListItem& item) {
        const std::string id = lowerAscii(item.key);
        return wanted.contains(id) != known_.contains(id);
    };
    std::vector<ListItem> inside;
    std::vector<ListItem> outside;
    for (const ListItem& item : nonMembers)
        (isMoved(item) ? inside : outside).push_back(item);
    for (const ListItem& item : members)
        (isMoved(item) ? outside : inside).push_back(item);
    show(outside, inside);
    known_ = std::move(stored);
    return true;
}

void MemberLists::noteStored(const std::string& key) {
    if (LV2.indexOf(key) >= 0) {
        known_.insert(lowerAscii(key));
    } else {
        known_.erase(lowerAscii(key));
    }
}

void tellChangedMeanwhile(const UserInterface& person, const std::string& both) {
    std::string text = person.texts.GetString(
        "Somebody else has changed this meanwhile. Their changes are shown beside yours now, and nothing has "
        "been stored yet. Check them, and choose OK again.");
    if (!both.empty())
        text +=
            "\r\n\r\n" + person.texts.GetString("Yours stays where both have changed it. Theirs is:") + both;
    person.show({text, "", MessageIcon::Information});
}

void MemberLists::arrange(Size client) {
    const Twips top = bordered() ? kCaption : 0;
    const Twips side = bordered() ? kMargin : 0;
    const Twips height = std::max(client.height - top - side, 0);
    const Twips lists = client.width - 2 * side - kButton.width - 2 * kGap;
    const Twips width = std::max(lists / 2, 0);
    LV1.setBounds({side, top, width, height});
    LV2.setBounds({client.width - side - width, top, width, height});
    LV1.suggestColumnWidth(0, width - kScrollBar);
    LV2.suggestColumnWidth(0, width - kScrollBar);

    const Twips left = LV1.bounds().right() + kGap;
    Twips at = top;
    for (Button* button : {&CmdAddft, &CmdAddAllft, &CmdRevomeft, &CmdremoveAllft}) {
        button->setBounds({left, at, kButton.width, kButton.height});
        at += kButton.height + kGap / 2;
    }
    Cmdrefresh.setBounds(
        {left, std::max(top + height - kButton.height, at + kGap), kButton.width, kButton.height});
}

std::vector<ListItem> itemsOf(RecordSet& records) {
    const std::size_t id = records.requireField(field::kId);
    const std::size_t name = records.requireField(field::kName);
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
