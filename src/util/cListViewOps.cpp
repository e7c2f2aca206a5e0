#include "util/cListViewOps.h"

#include <string>
#include <vector>

#include "base/Error.h"
#include "controls/list/ListPages.h"

namespace pellmark {

void cListViewOps::MoveListItems(ListView& source, ListView& target, bool moveAll) {
    if (source.count() == 0) return;
    std::vector<ListItem> taken;
    for (int index = 0; index < source.count(); ++index) {
        if (!moveAll && !source.isSelected(index)) continue;
        const ListItem& item = source.item(index);
        if (target.indexOf(item.key) >= 0) {
            throw Error(errors::kNotUnique, "Pellmark.cListViewOps",
                        "The list " + target.name() + " has an item with the key '" + item.key + "' already");
        }
        taken.push_back({item.key, item.text, {}});
    }
    // Without a selection nothing moves, and the selection stays as empty as it is.
    if (taken.empty()) return;

    ListView::RedrawOff sourceOff(source);
    ListView::RedrawOff targetOff(target);
    for (const ListItem& item : taken)
        target.add(item);
    for (const ListItem& item : taken)
        source.remove(item.key);
    if (source.count() > 0) {
        source.select(0);
        source.showItem(0);
    }
}

void cListViewOps::SortColumn(ListView& list, int column) {
    ListView::RedrawOff off(list);
    if (list.sorted() && list.sortKey() == column) {
        list.setSortOrder(list.sortOrder() == SortOrder::Ascending ? SortOrder::Descending
                                                                   : SortOrder::Ascending);
    } else {
        list.setSortKey(column);
        list.setSortOrder(SortOrder::Ascending);
    }
    list.setSorted(true);
}

void cListViewOps::PrintListView(const PrintServices& services, const ListView& list, WindowHandle owner) {
    const auto document = services.askAndBegin(services.person.texts.title(), owner);
    if (document) printList(list, list.font(), *document);
}

}  // namespace pellmark
