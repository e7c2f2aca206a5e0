#pragma once

#include "controls/list/ListView.h"
#include "util/PrintServices.h"

namespace pellmark {

/// What the dialogs do with their report lists beyond what a list does itself.
class cListViewOps {
  public:
    /// Moves the selected items, or all of them, to the end of the target; keys and captions go along,
    /// sub-items do not. Then the source's first item is selected, so that the next click on a move button
    /// has one to move. Throws Error (not unique) when the target has one of the keys; nothing has been moved
    /// then.
    static void MoveListItems(ListView& source, ListView& target, bool moveAll);
    /// Sorts by a column, from 0; in the opposite order when the list is sorted by it already.
    static void SortColumn(ListView& list, int column);
    /// Asks for the printer, then prints headings and rows line by line in the list's font. Columns keep
    /// their proportions and a text that does not fit its column ends in three dots; each page repeats the
    /// headings. Throws what dialog and printer throw.
    static void PrintListView(const PrintServices& services, const ListView& list, WindowHandle owner);
};

}  // namespace pellmark
