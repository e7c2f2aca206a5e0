#include "support/win32/SampleForm.h"

#include "base/Text.h"

namespace pellmark::test {

namespace {

/// Rows made up from their number: a million of them cost nothing.
class MadeUpProcesses : public RecordSet {
  public:
    explicit MadeUpProcesses(std::size_t count) : count_(count) {}
    const std::vector<std::string>& fields() const override { return fields_; }
    std::size_t count() override { return count_; }
    std::optional<std::vector<Guid>> keys() override { return std::nullopt; }
    std::string text(std::size_t record, std::size_t field) override {
        switch (field) {
            case 0:
                return std::to_string(record);
            case 1:
                return "Drill M" + std::to_string(record % 40 + 2) + " no. " + std::to_string(record);
            case 2:
                return record % 2 == 0 ? "70" : "71";
            case 3:
                return "DIAMETER > " + std::to_string(record % 17) + " AND DEPTH < 40";
            default:
                return "Centre drill, drill through, chamfer both edges, ream to H7 where asked for";
        }
    }

  private:
    std::vector<std::string> fields_{"_Id", "_Name", "_Unit", "_Rule", "_Description"};
    std::size_t count_;
};

}  // namespace

SampleForm::SampleForm(Desktop& desktop) : Form(desktop, "SampleForm") {
    constexpr Size client{9000, 6000};
    setCaption("Sample Form");
    setClientSize(client);
    setBorderStyle(BorderStyle::Sizable);
    setMinimumSize({4500, 3000});
    tabs.place({120, 120, 8760, 5160}, client, {true, true, true, true});
    first.setCaption("Processes");
    second.setCaption("Process Case");
    constexpr Size page{8600, 4700};
    grid.place({60, 60, 8480, 4580}, page, {true, true, true, true});
    filters.place({60, 60, 4000, 2600}, page, {});
    unitLabel.place({120, 340, 900, 240}, {4000, 2600}, {});
    unit.place({1100, 300, 2700, 345}, {4000, 2600}, {true, true, true, false});
    nameLabel.place({120, 760, 900, 240}, {4000, 2600}, {});
    name.place({1100, 720, 2700, 345}, {4000, 2600}, {true, true, true, false});
    description.setMultiLine(true);
    description.place({1100, 1140, 2700, 1200}, {4000, 2600}, {true, true, true, true});
    values.place({4200, 60, 4340, 2600}, page, {true, true, true, false});
    members.place({60, 2760, 8480, 1880}, page, {true, true, true, true});
    buttons.setBordered(false);
    buttons.place({0, 5340, 9000, 660}, client, {true, false, true, true});
    ok.place({5300, 120, 1095, 375}, {9000, 660}, {false, true, true, false});
    cancel.place({6500, 120, 1095, 375}, {9000, 660}, {false, true, true, false});
    help.place({7700, 120, 1095, 375}, {9000, 660}, {false, true, true, false});
    help.setToolTip("Opens the help");
    setDefaultButton(&ok);
    setCancelButton(&cancel);
    setHelpButton(&help);

    unit.setItems({{"Inch", 70, ""}, {"Metric", 71, ""}});
    grid.setHeadings("Id|Name|Unit|Rule|Description");
    const char* keys[] = {"_Id", "_Name", "_Unit", "_Rule", "_Description"};
    for (int col = 0; col < 5; ++col)
        grid.setColKey(col, keys[col]);
    grid.setColHidden(0, true);
    grid.setColWidth(1, 2400);
    grid.setColWidth(3, 2600);
    grid.setColWidth(4, 2600);
    grid.setColComboList(2, "#70;Inch|#71;Metric");

    values.setHeadings("Key|Value");
    values.setColWidth(0, 1800);
    values.setColWidth(1, 2200);
    values.setColEditable(1, true);
    values.setRows(4);
    values.setText(1, 0, "Thread");
    values.setText(1, 1, "M8");
    values.setRowComboList(1, 1, "M6|M8|M10");
    values.setText(2, 0, "Tolerance");
    values.setText(2, 1, "H7");
    values.setText(3, 0, "Remark");
}

void SampleForm::fill(int rows) {
    grid.bind(std::make_shared<MadeUpProcesses>(static_cast<std::size_t>(rows)));
    if (rows > 0) grid.select(1, 0);
}

}  // namespace pellmark::test
