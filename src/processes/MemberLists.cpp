#include "processes/MemberLists.h"

#include <algorithm>

#include "host/Component.h"
#include "util/cListViewOps.h"

namespace pellmark {

namespace {

constexpr Twips kMargin = 150;
constexpr Twips kCaption = 300;
constexpr Twips kGap = 120;
constexpr Size kButton{1215, 375};
/// So that the one column leaves room for the scroll bar of a long list.
constexpr Twips kScrollBar = 330;

}  // namespace

MemberLists::MemberLists(Component& component, Container& parent, std::string name)
    : Frame(parent, std::move(name)), component_(component) {
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
        trap(component_.trace(), "MemberLists::ColumnClick", [&] { cListViewOps::SortColumn(list, col); });
    }));
    subscriptions_.push_back(list.doubleClicked.subscribe([this, &list, &other](int index) {
        if (index < 0) return;
        list.select(index);
        move("MemberLists::DblClick", list, other, false);
    }));
}

void MemberLists::move(const char* operation, ListView& source, ListView& target, bool all) {
    trap(component_.trace(), operation, [&] { cListViewOps::MoveListItems(source, target, all); });
}

void MemberLists::prepare() {
    LV1.clear();
    LV2.clear();
    LV1.setColumnHeaders({{component_.GetString("Nonmembers"), 0}});
    LV2.setColumnHeaders({{component_.GetString("Members"), 0}});
    CmdAddft.setToolTip(component_.GetString("Move Selected Items to Members List"));
    CmdAddAllft.setToolTip(component_.GetString("Move All Items to Members List"));
    CmdRevomeft.setToolTip(component_.GetString("Move Selected Items to Nonmembers List"));
    CmdremoveAllft.setToolTip(component_.GetString("Move All Items to Nonmembers List"));
    Cmdrefresh.setCaption(component_.GetString("Refresh"));
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
}

void MemberLists::arrange(Size client) {
    const Twips top = bordered() ? kCaption : 0;
    const Twips side = bordered() ? kMargin : 0;
    const Twips height = std::max(client.height - top - side, 0);
    const Twips lists = client.width - 2 * side - kButton.width - 2 * kGap;
    const Twips width = std::max(lists / 2, 0);
    LV1.setBounds({side, top, width, height});
    LV2.setBounds({client.width - side - width, top, width, height});
    LV1.setColumnWidth(0, width - kScrollBar);
    LV2.setColumnWidth(0, width - kScrollBar);

    const Twips left = LV1.bounds().right() + kGap;
    Twips at = top;
    for (Button* button : {&CmdAddft, &CmdAddAllft, &CmdRevomeft, &CmdremoveAllft}) {
        button->setBounds({left, at, kButton.width, kButton.height});
        at += kButton.height + kGap / 2;
    }
    Cmdrefresh.setBounds(
        {left, std::max(top + height - kButton.height, at + kGap), kButton.width, kButton.height});
}

}  // namespace pellmark
