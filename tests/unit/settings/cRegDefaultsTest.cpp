#include "settings/cRegDefaults.h"

#include <gmock/gmock.h>

#include "support/FormHarness.h"
#include "support/MemoryRegistry.h"
#include "support/PortableCodePage.h"

// What becomes of failures that only a registry in memory can be made to have. What the store does over any
// registry is in the contract tests.
namespace pellmark::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::int32_t kAccessDenied = 5;

class CRegDefaultsTest : public testing::Test, protected FormHarness {
  protected:
    CRegDefaultsTest() {
        form.setBounds({1, 2, 3, 4});
        box.setText("text");
        list.setColumnHeaders({{"Members", 2000}});
        grid.setHeadings("Name");
        grid.setColKey(0, "_Name");
        grid.setColWidth(0, 777);
    }
    ~CRegDefaultsTest() override { EXPECT_EQ(registry.openKeys(), 0) << "a key was left open"; }

    void saveAll() {
        layouts.SaveComboBoxIndex(combo);
        layouts.SaveTextBox(box);
        layouts.SaveListView(list);
        layouts.SaveDialog(form);
        layouts.SaveVSDataGrid(grid);
        layouts.SaveSetting("View", std::int32_t{1});
        layouts.SaveNorvexToolbar(toolbar);
    }

    MemoryRegistry registry;
    PortableCodePage codePage;
    cRegDefaults layouts{registry, codePage, "Norvex", "Title", trace};
    ComboBox combo{form, "Cmb"};
    TextBox box{form, "Txt"};
    ListView list{form, "LV"};
    Grid grid{form, "VSFG"};
    Toolbar toolbar{"Tools"};
};

TEST_F(CRegDefaultsTest, ARegistryThatMayNotBeWrittenIsTracedAndStopsNobody) {
    registry.refuseAccess(kAccessDenied);
    saveAll();
    EXPECT_EQ(trace.lines().size(), 7U);
    EXPECT_THAT(trace.lines(), Each(HasSubstr("26001")));
    EXPECT_THAT(trace.lines()[0], HasSubstr("cRegDefaults::SaveComboBoxIndex"));
    EXPECT_THAT(trace.lines()[4], HasSubstr("cRegDefaults::SaveVSDataGrid"));
}

TEST_F(CRegDefaultsTest, ARegistryThatMayNotBeReadLeavesWhatThereIs) {
    saveAll();
    registry.refuseAccess(kAccessDenied);
    grid.setColWidth(0, 555);
    box.setText("typed");
    layouts.RestoreVSDataGrid(grid);
    layouts.RestoreTextBox(box);
    layouts.RestoreDialog(form);
    layouts.RestoreListView(list);
    layouts.RestoreComboBoxIndex(combo);
    EXPECT_EQ(grid.colWidth(0), 555);
    EXPECT_EQ(box.text(), "typed");
    EXPECT_EQ(form.bounds(), (Rect{1, 2, 3, 4}));
    EXPECT_EQ(std::get<std::int32_t>(layouts.GetSetting("View", std::int32_t{9})), 9);
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(CRegDefaultsTest, AControlThatStandsInNoFormIsTraced) {
    std::unique_ptr<Frame> frame;
    {
        Form gone(desktop, "FrmGone");
        frame = std::make_unique<Frame>(gone, "Frame");
    }
    TextBox lost(*frame, "TxtLost");
    layouts.SaveTextBox(lost);
    layouts.RestoreTextBox(lost);
    const auto told = HasSubstr("The control TxtLost stands in no form");
    EXPECT_THAT(trace.lines(), ElementsAre(told, told));
}

}  // namespace
}  // namespace pellmark::test
