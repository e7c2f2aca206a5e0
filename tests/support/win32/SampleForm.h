#pragma once

#include <memory>
#include <string>

#include "controls/Controls.h"
#include "controls/Form.h"
#include "controls/grid/Grid.h"
#include "controls/list/ListView.h"
#include "knowledge/MemoryRecordSet.h"

namespace pellmark::test {

/// A form with one control of every kind, for the tests of the peers and for looking at.
class SampleForm : public Form {
  public:
    explicit SampleForm(Desktop& desktop);

    /// Fills the grid with so many made-up processes.
    void fill(int rows);

    Frame buttons{*this, "buttons"};
    Button ok{buttons, "ok", "OK"};
    Button cancel{buttons, "cancel", "&Cancel"};
    Button help{buttons, "help", "&Help"};

    TabStrip tabs{*this, "tabs"};
    TabPage first{tabs, "first"};
    TabPage second{tabs, "second"};
    Grid grid{first, "grid"};
    Frame filters{second, "filters", "&Filters"};
    Label unitLabel{filters, "unitLabel", "&Unit"};
    ComboBox unit{filters, "unit"};
    Label nameLabel{filters, "nameLabel", "&Name"};
    TextBox name{filters, "name"};
    TextBox description{filters, "description"};
    Grid values{second, "values"};
    ListView members{second, "members"};

    int queryUnloads = 0;
    using Form::setBorderStyle;
    using Form::setCancelButton;
    using Form::setClientSize;
    using Form::setDefaultButton;
    using Form::setHelpButton;
    using Form::setMinimumSize;

  protected:
    void Form_QueryUnload() override { ++queryUnloads; }
};

}  // namespace pellmark::test
