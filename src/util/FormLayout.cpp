#include "util/FormLayout.h"

#include <algorithm>
#include <functional>

#include "controls/list/ListView.h"

namespace pellmark {

namespace {

void eachList(Container& container, const std::function<void(ListView&)>& visit) {
    for (Control* child : container.children()) {
        switch (child->kind()) {
            case Control::Kind::ListView:
                visit(static_cast<ListView&>(*child));
                break;
            case Control::Kind::Frame:
            case Control::Kind::TabStrip:
            case Control::Kind::TabPage:
                eachList(static_cast<Container&>(*child), visit);
                break;
            default:
                break;
        }
    }
}

bool hasChosenWidth(const ListView& list) {
    const auto& columns = list.columnHeaders();
    return std::any_of(columns.begin(), columns.end(),
                       [](const ColumnHeader& column) { return column.widthChosen; });
}

}  // namespace

void restoreFormLayout(Form& form, cRegDefaults& layouts) {
    layouts.RestoreDialog(form);
    eachList(form, [&](ListView& list) { layouts.RestoreListView(list); });
}

void saveFormLayout(Form& form, cRegDefaults& layouts) {
    layouts.SaveDialog(form);
    // A width that nobody chose goes on following the size of the form.
    eachList(form, [&](ListView& list) {
        if (hasChosenWidth(list)) layouts.SaveListView(list);
    });
}

}  // namespace pellmark
