#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "featurecases/cFeatureCase.h"
#include "host/FrmMain.h"
#include "support/PortsHarness.h"

namespace pellmark::test {

/// A Process Case view over holes (two keys) and metric slots, opened as the main form opens it.
class HolesAndSlotsFixture : public testing::Test, protected ServicesHarness {
  protected:
    HolesAndSlotsFixture() {
        base.addNvxFeatureType(3, "Hole features");
        base.addNvxFeatureType(5, "Slots");
        prismatic = base.addPartType("Prismatic");
        turned = base.addPartType("Turned");
        steel = base.addMaterialClass("Steel");
        hole = base.addFeatureType("Hole", 3);
        slot = base.addFeatureType("Slot", 5, prismatic, unit::kMetric);
        diameter = base.addKey(hole, "Diameter");
        d8 = base.addValue(diameter, "8");
        d10 = base.addValue(diameter, "10");
        thread = base.addKey(hole, "Thread");
        m8 = base.addValue(thread, "M8");
        width = base.addKey(slot, "Width");
        w5 = base.addValue(width, "5");
    }
    void open() {
        form_().SetView(FRView::FRProcesscase);
        base.forgetCalls();
    }
    FrmMain& form_() { return main; }
    cFeatureCase& view() { return main.caseView()->featureCase; }
    Grid& grid() { return form_().VSFGProcessCase; }
    Grid& list() { return form_().VSFGProcessCaseResults; }
    void chooseInGrid(int row, const std::string& stored) {
        ASSERT_TRUE(grid().beginEdit(row, FeatureCaseGrid::kValueCol));
        ASSERT_TRUE(grid().commitEdit(stored));
    }
    static std::vector<std::string> textsOf(const ComboBox& combo) {
        std::vector<std::string> texts;
        for (const auto& item : combo.items())
            texts.push_back(item.text);
        return texts;
    }
    std::vector<std::string> typesOffered() {
        std::vector<std::string> texts;
        for (const auto& item :
             grid().comboList(FeatureCaseGrid::kTypeRow, FeatureCaseGrid::kValueCol).items())
            texts.push_back(item.shown);
        return texts;
    }
    std::vector<std::string> keysShown() {
        std::vector<std::string> texts;
        for (int row = 2; row < grid().rows(); ++row)
            texts.push_back(grid().text(row, 0));
        return texts;
    }
    void describeHole() {
        view().SetFeatureCaseUnitGui(unit::kMetric);
        view().SetNvxFeatureTypeGui(3);
        view().SetPartTypeGui(prismatic);
        view().SetFeatureTypeGui(hole);
        view().SetPartMaterialClassGui(steel);
        view().SetProcessUnitGui(unit::kInch);
        view().SetValuesGui({m8, d10});
    }

    FrmMain main{services.forViews()};
    std::string prismatic, turned, steel, hole, slot, diameter, d8, d10, thread, m8, width, w5;
};

}  // namespace pellmark::test
