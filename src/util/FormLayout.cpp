#include "util/FormLayout.h"

#include <algorithm>
#include <functional>

#include "controls/list/ListView.h"

namespace pellmark {

namespace {

void eachWithin(Container& container, const std::function<void(Control&)>& visit) {
    for (Control* child : container.children()) {
        visit(*child);
        switch (child->kind()) {
            case Control::Kind::Frame:
            case Control::Kind::TabStrip:
            case Control::Kind::TabPage:
                eachWithin(static_cast<Container&>(*child), visit);
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
    eachWithin(form, [&](Control& control) {
        if (control.kind() == Control::Kind::ListView) {
            layouts.RestoreListView(static_cast<ListView&>(control));
        } else if (control.kind() == Control::Kind::Splitter) {
            layouts.RestoreSplitter(static_cast<Splitter&>(control));
        }
    });
}

void saveFormLayout(Form& form, cRegDefaults& layouts) {
    layouts.SaveDialog(form);
    eachWithin(form, [&](Control& control) {
        if (control.kind() == Control::Kind::ListView) {
            // A width that nobody chose goes on following the size of the form.
            const auto& list = static_cast<ListView&>(control);
            if (hasChosenWidth(list)) layouts.SaveListView(list);
        } else if (control.kind() == Control::Kind::Splitter) {
            layouts.SaveSplitter(static_cast<Splitter&>(control));
        }
    });
}

}  // namespace pellmark
