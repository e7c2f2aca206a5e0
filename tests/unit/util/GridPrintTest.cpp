#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/PortsHarness.h"
#include "util/FrmProgress.h"
#include "util/cVSGridOps.h"

namespace pellmark::test {
namespace {

using testing::IsEmpty;

class GridPrintTest : public testing::Test, protected ServicesHarness {
  protected:
    GridPrintTest() {
        grid.setHeadings("Name|Unit");
        grid.setRows(3);
        grid.setText(1, 0, "Drill");
    }
    /// As many rows as fill so many pages.
    void fillPages(int pages) {
        constexpr int kRowsOfAPage = 39;
        grid.setRows(1);
        grid.setRows(1 + pages * kRowsOfAPage);
    }
    void print() { services.gridOps.PrintGrid(grid, "Processes"); }
    RecordingPrinter::Document& document() { return printer.documents.at(0); }

    Grid grid{form, "VSFG"};
};

TEST_F(GridPrintTest, TheDialogComesFirstAndTheDocumentBearsTheName) {
    form.load();
    systemDialogs.expectPrint([](PrinterSettings& settings) {
        settings.copies = 3;
        settings.paperSize = 8;
        settings.printQuality = -2;
        settings.device = "Plotter";
        return true;
    });
    print();
    EXPECT_EQ(systemDialogs.shown.at(0).owner, form.handle());
    EXPECT_EQ(document().name, "Processes");
    EXPECT_EQ(document().settings.copies, 3);
    EXPECT_EQ(document().settings.paperSize, 8);
    EXPECT_EQ(document().settings.printQuality, -2);
    EXPECT_EQ(document().settings.device, "Plotter");
    EXPECT_EQ(document().texts(0).at(0), "Processes");
    EXPECT_TRUE(document().ended);
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(GridPrintTest, TheFontIsTheGrids) {
    grid.setFont({"Arial", 12});
    systemDialogs.expectPrintConfirmed();
    print();
    EXPECT_EQ(document().pages[0].texts[3].font, (Font{"Arial", 12}));
}

TEST_F(GridPrintTest, AWideGridIsProposedSidewaysAndThePersonDecides) {
    grid.setColWidth(0, 20'000);
    systemDialogs.expectPrint([](PrinterSettings& settings) {
        EXPECT_EQ(settings.orientation, Orientation::Landscape);
        settings.orientation = Orientation::Portrait;
        return true;
    });
    print();
    EXPECT_EQ(document().settings.orientation, Orientation::Portrait);
}

TEST_F(GridPrintTest, ANarrowGridIsProposedUprightAgain) {
    PrinterSettings wide;
    wide.orientation = Orientation::Landscape;
    printer.setSettings(wide);
    systemDialogs.expectPrint([](PrinterSettings& settings) {
        EXPECT_EQ(settings.orientation, Orientation::Portrait);
        return true;
    });
    print();
}

TEST_F(GridPrintTest, AChosenRangeOfPagesIsPrintedAsItIsInTheWhole) {
    fillPages(4);
    systemDialogs.expectPrintConfirmed();
    print();
    const RecordingPrinter::Document whole = document();
    ASSERT_EQ(whole.pages.size(), 4U);
    for (const PageRange& pages : {PageRange{2, 3}, {1, 1}, {4, 4}, {3, 99}, {1, 2}}) {
        systemDialogs.expectPrintOf(pages);
        print();
        const RecordingPrinter::Document& part = printer.documents.back();
        const int last = std::min(pages.last, 4);
        ASSERT_EQ(part.pages.size(), static_cast<std::size_t>(last - pages.first + 1));
        for (int page = pages.first; page <= last; ++page) {
            const auto at = static_cast<std::size_t>(page - pages.first);
            EXPECT_EQ(part.texts(at), whole.texts(static_cast<std::size_t>(page) - 1));
            EXPECT_EQ(part.texts(at).back(), std::to_string(page) + " / 4");
            EXPECT_EQ(part.pages[at].lines.size(),
                      whole.pages[static_cast<std::size_t>(page) - 1].lines.size());
        }
        EXPECT_TRUE(part.ended);
    }
}

TEST_F(GridPrintTest, ARangeBehindTheLastPagePrintsNothingAndIsTold) {
    fillPages(2);
    library.translations["Nothing has been printed. Number of pages:"] = "Seiten:";
    systemDialogs.expectPrintOf({3, 4});
    desktop.expectMessage("Seiten: 2");
    print();
    EXPECT_FALSE(document().ended);
    EXPECT_TRUE(document().gone);
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Critical);
}

TEST_F(GridPrintTest, TheNextPrintIsProposedWholeAgain) {
    systemDialogs.expectPrintOf({1, 1});
    print();
    systemDialogs.expectPrintChoice([](PrintChoice& choice) {
        EXPECT_EQ(choice.pages, PageRange{});
        return false;
    });
    print();
}

TEST_F(GridPrintTest, ACancelPrintsNothing) {
    systemDialogs.expectPrintCancelled();
    print();
    EXPECT_THAT(printer.documents, IsEmpty());
}

TEST_F(GridPrintTest, APrinterWhoseQuestionIsCancelledPrintsNothing) {
    printer.givenUp = true;
    systemDialogs.expectPrintConfirmed();
    print();
    EXPECT_THAT(printer.documents, IsEmpty());
    EXPECT_THAT(trace.lines(), IsEmpty());
}

TEST_F(GridPrintTest, WithoutAPrinterThePersonIsTold) {
    printer.installed = false;
    desktop.expectMessage("There is no printer. Install a printer in the system's settings first.");
    print();
}

TEST_F(GridPrintTest, WhatThePrinterFailsIsToldAndTraced) {
    printer.paper = 1;
    grid.setRows(150);
    systemDialogs.expectPrintConfirmed();
    desktop.expectMessage("The printer has no paper.");
    print();
    EXPECT_FALSE(document().ended);
    EXPECT_TRUE(trace.trapped("cVSGridOps::PrintGrid"));
}

TEST_F(GridPrintTest, ADialogThatCannotBeShownIsTold) {
    systemDialogs.failNext(4104);
    desktop.expectMessage("The dialog could not be shown (code 4104).");
    print();
    EXPECT_THAT(printer.documents, IsEmpty());
}

TEST_F(GridPrintTest, ManyRowsShowHowFarTheyAre) {
    grid.setRows(301);
    systemDialogs.expectPrintConfirmed();
    desktop.expectDialog("FrmProgress", [](Form& shown) {
        EXPECT_EQ(static_cast<FrmProgress&>(shown).LblWhat.caption(), "The rows are being printed");
    });
    print();
    EXPECT_TRUE(document().ended);
    EXPECT_EQ(idle.yields, 3 + static_cast<int>(document().pages.size()))
        << "for each hundred rows looked at, then for each page";
}

TEST_F(GridPrintTest, ManyRowsCanBeCancelled) {
    grid.setRows(301);
    systemDialogs.expectPrintConfirmed();
    desktop.expectDialog("FrmProgress",
                         [](Form& shown) { static_cast<FrmProgress&>(shown).CmdCancel.click(); });
    print();
    EXPECT_FALSE(document().ended);
    EXPECT_TRUE(document().gone);
    EXPECT_THAT(trace.lines(), IsEmpty());
}

}  // namespace
}  // namespace pellmark::test
