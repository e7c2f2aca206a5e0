#pragma once

#include "controls/list/ListView.h"
#include "ports/Printer.h"

namespace pellmark {

/// Draws a report list on the pages of a document and ends it: its headings on each page, then its items, a
/// line each, a text shortened where its column ends. Columns have the widths of the screen, in proportion
/// narrower ones where those together are wider than the page.
void printList(const ListView& list, const Font& font, PrintDocument& document);

}  // namespace pellmark
