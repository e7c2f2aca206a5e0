// What a form shows must be there, at every size that a window may have: with room of its own, within what it
// stands in, and not behind its neighbours. Texts and looks are measured where there are windows.
#include <gtest/gtest.h>

#include "processes/FrmAddEditProcess.h"
#include "processes/FrmAddExistingProcess.h"
#include "processes/FrmEditProcessMaterials.h"
#include "steps/FrmAddEditProcessTechStep.h"
#include "support/CaseHarness.h"
#include "util/FrmFormatColumns.h"
#include "util/FrmProgress.h"

namespace pellmark::test {
namespace {

bool overlap(const Rect& left, const Rect& right) {
    return left.left < right.right() && right.left < left.right() && left.top < right.bottom() &&
           right.top < left.bottom();
}

/// Of a tab strip the pages lie behind each other and fill it.
void expectWhole(const Container& container, Size room) {
    std::vector<const Control*> seen;
    for (const Control* control : container.children()) {
        if (!control->visible()) continue;
        const Rect& at = control->bounds();
        SCOPED_TRACE(control->name() + " in " + container.name());
        EXPECT_GT(at.width, 0);
        EXPECT_GT(at.height, 0);
        EXPECT_GE(at.left, 0);
        EXPECT_GE(at.top, 0);
        EXPECT_LE(at.right(), room.width);
        EXPECT_LE(at.bottom(), room.height);
        for (const Control* other : seen)
            EXPECT_FALSE(overlap(at, other->bounds())) << "over " << other->name();
        if (container.kind() != Control::Kind::TabStrip) seen.push_back(control);
        if (const auto* inner = dynamic_cast<const Container*>(control))
            expectWhole(*inner, {at.width, at.height});
    }
}

class WholeFormsTest : public testing::Test, protected CaseHarness {
  protected:
    WholeFormsTest() {
        process = base.addProcess("Drill");
        base.addFeatureCase(hole, {d8}, {process});
    }
    /// As designed, at its smallest where it can be resized, and on a large screen.
    static void expectWholeAtEverySize(Form& dialog) {
        dialog.load();
        for (const Size& size : {dialog.clientSize(), dialog.minimumSize(), Size{28'000, 15'000}}) {
            SCOPED_TRACE(dialog.name() + " " + std::to_string(size.width));
            dialog.resized(size);
            expectWhole(dialog, size);
        }
    }
    /// What the windows do as they get their sizes; the pages of a tab strip are a little smaller than it is.
    static void layOutInside(Container& container) {
        const Rect& strip = container.bounds();
        for (Control* control : container.children()) {
            if (control->kind() == Control::Kind::TabPage)
                control->setBounds({90, 480, strip.width - 180, strip.height - 570});
            arrangeInside(*control);
            if (auto* inner = dynamic_cast<Container*>(control)) layOutInside(*inner);
        }
    }
    void expectWholeMain() {
        main.TabProcesses.setVisible(main.TabCtrl.index() == 0);
        main.SizerProcessCase.setVisible(main.TabCtrl.index() == 1);
        for (const Size& size : {main.clientSize(), main.minimumSize(), Size{28'000, 15'000}}) {
            SCOPED_TRACE(std::to_string(size.width));
            main.resized(size);
            layOutInside(main);
            expectWhole(main, size);
        }
    }

    std::string process;
};

TEST_F(WholeFormsTest, TheDialogs) {
    openCase({d8});
    FrmAddEditProcess edit(person, base, services.settings, *host, &view(), process, nullptr);
    expectWholeAtEverySize(edit);
    FrmAddExistingProcess members(person, idle, base, view(), main.VSFGProcessCaseResults, "71");
    expectWholeAtEverySize(members);
    FrmEditProcessMaterials materials(person, base, process);
    expectWholeAtEverySize(materials);
    FrmFormatColumns columns(person, main.VSFGProcessCaseResults);
    expectWholeAtEverySize(columns);
}

TEST_F(WholeFormsTest, TheDialogsThatCannotBeResized) {
    openCase({d8});
    frmAddEditProcessTechStep step(services.forViews().steps, process);
    FrmProgress progress(person, idle, "The rows are being printed");
    for (Form* fixed : {static_cast<Form*>(&step), static_cast<Form*>(&progress)}) {
        fixed->load();
        expectWhole(*fixed, fixed->clientSize());
    }
}

TEST_F(WholeFormsTest, TheMainFormInBothViewsWithTheLinesForFindingOpenOrNot) {
    main.load();
    openProcesses();
    expectWholeMain();
    main.FindAllProcesses.open();
    expectWholeMain();
    openCase({d8});
    expectWholeMain();
    main.FindProcessCaseResults.open();
    main.FindProcessStep.open();
    expectWholeMain();
}

}  // namespace
}  // namespace pellmark::test
