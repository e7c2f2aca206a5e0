#include "util/FrmFormatColumns.h"

#include <algorithm>
#include <iterator>

namespace pellmark {

namespace {

constexpr Size kClient{5700, 4800};
constexpr Size kFrame{5400, 3990};
constexpr Twips kMargin = 150;
constexpr Twips kCaption = 300;

/// Ids and what else the program keeps in a column of its own. Keys are found in whatever case.
constexpr const char* kExcluded[] = {"_ID",       "_KeyId",      "_PartMaterialGroupId", "FixedRow",
                                     "_Priority", "_MaterialId", "_DefaultTechId",       "_FeatureCaseId"};

}  // namespace

FrmFormatColumns::FrmFormatColumns(const UserInterface& person, Grid& grid)
    : Dialog(person, "FrmFormatColumns"), grid_(grid) {
    setBorderStyle(BorderStyle::SizableToolWindow);
    setClientSize(kClient);
    setMinimumSize({kClient.width, 2700});
    const Anchors all{true, true, true, true};
    FrameAvailableFields.place({kMargin, 120, kFrame.width, kFrame.height}, kClient, all);
    List.place({kMargin, kCaption, kFrame.width - 2 * kMargin, kFrame.height - kCaption - kMargin}, kFrame,
               all);
    addButtons(kClient, CmdOK, CmdCalcel, CmdHelp, &CmdApply);
    on(CmdApply.clicked.subscribe([this] { CmdApply_Click(); }));
}

void FrmFormatColumns::Form_Load() {
    setCaption(GetString("Field Chooser"));
    FrameAvailableFields.setCaption(GetString("Available Fields"));
    CmdApply.setCaption(GetString("Apply"));
    translateButtons(CmdOK, CmdCalcel, CmdHelp);
    List.setFocus();
    loadOrAbandon("FrmFormatColumns::Form_Load", [this] { listColumns(); });
}

void FrmFormatColumns::listColumns() {
    columns_.clear();
    List.clear();
    std::vector<int> excluded;
    std::transform(std::begin(kExcluded), std::end(kExcluded), std::back_inserter(excluded),
                   [this](const char* key) { return grid_.colIndex(key); });
    for (int col = 0; col < grid_.cols(); ++col) {
        if (std::find(excluded.begin(), excluded.end(), col) != excluded.end()) continue;
        // A column that cannot be read is left out; the others can be chosen all the same.
        trap(person().operations(), "FrmFormatColumns::Form_Load", [&] { offer(col); });
    }
    for (int item = 0; item < List.count(); ++item)
        List.setSelected(item, !columns_[static_cast<std::size_t>(item)].hidden);
}

void FrmFormatColumns::offer(int col) {
    columns_.push_back({grid_.colEditable(col), grid_.colHidden(col), grid_.colKey(col), grid_.heading(col)});
    List.addItem(columns_.back().caption, col);
}

void FrmFormatColumns::CmdApply_Click() {
    carryOut("FrmFormatColumns::CmdApply_Click", [this] { apply(); });
}

void FrmFormatColumns::CmdOk_Click() {
    carryOut("FrmFormatColumns::CmdOk_Click", [this] {
        apply();
        unload();
    });
}

void FrmFormatColumns::apply() {
    {
        const Grid::RedrawOff off(grid_);
        for (const CheckList::Item& item : List.items())
            grid_.setColHidden(item.itemData, !item.selected);
    }
    person().layouts.SaveVSDataGrid(grid_);
}

}  // namespace pellmark
