#pragma once

#include <string>
#include <vector>

#include "controls/grid/Grid.h"
#include "controls/list/CheckList.h"
#include "util/Dialog.h"

namespace pellmark {

/// Lets a person choose which columns of a grid are shown. Columns that only the program needs are not
/// offered.
class FrmFormatColumns : public Dialog {
  public:
    /// What an offered column was like when the dialog opened.
    struct ColumnRecord {
        bool editable = false;
        bool hidden = false;
        std::string key;
        std::string caption;
    };

    /// The grid must outlive the dialog.
    FrmFormatColumns(const UserInterface& person, Grid& grid);

    void CmdOk_Click();
    /// Shows the selected columns and no others, and remembers that; the dialog stays open.
    void CmdApply_Click();
    /// What has been applied stays.
    void CmdCalcel_Click() { CmdCancel_Click(); }

    /// In the order of the list.
    const std::vector<ColumnRecord>& columns() const { return columns_; }

    Frame FrameAvailableFields{*this, "FrameAvailableFields", "Available Fields"};
    CheckList List{FrameAvailableFields, "List"};  ///< selected is shown; item data is the grid's column
    Button CmdOK{*this, "CmdOK", "OK"};
    Button CmdCalcel{*this, "CmdCalcel", "Cancel"};
    Button CmdApply{*this, "CmdApply", "Apply"};
    Button CmdHelp{*this, "CmdHelp", "Help"};

  protected:
    void Form_Load() override;
    void accept() override { CmdOk_Click(); }

  private:
    void listColumns();
    void offer(int col);
    void apply();

    Grid& grid_;
    std::vector<ColumnRecord> columns_;
};

}  // namespace pellmark
