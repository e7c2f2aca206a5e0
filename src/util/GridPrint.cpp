#include "util/GridPrint.h"

#include <functional>

#include "controls/grid/GridPages.h"
#include "util/FrmProgress.h"

namespace pellmark {

namespace {

/// From so many rows on, some pages, a person waits long enough to want to see how far it is.
constexpr int kManyRows = 200;
constexpr int kReportedRows = 100;

using Report = std::function<bool(int done, int all)>;

void printPages(const Grid& grid, const std::string& title, PrintDocument& document, const Report& report) {
    GridPages pages(grid, title, grid.font(), document);
    const bool isPaginated =
        pages.paginate([&](int rows) { return rows % kReportedRows != 0 || report(rows, grid.dataRows()); });
    if (!isPaginated) return;
    for (int page = 0; page < pages.count(); ++page) {
        if (page > 0) document.newPage();
        pages.draw(page);
        if (!report(page + 1, pages.count())) return;
    }
    document.end();
}

}  // namespace

void GridPrint::print(const Grid& grid, const std::string& documentName, WindowHandle owner) {
    PrinterSettings settings = services_.printer.settings();
    settings.orientation = orientationFor(grid);
    services_.printer.setSettings(settings);
    const auto document = services_.askAndBegin(documentName, owner);
    if (!document) return;
    if (grid.dataRows() < kManyRows) {
        printPages(grid, documentName, *document, [](int, int) { return true; });
        return;
    }
    FrmProgress progress(services_.person, services_.idle,
                         services_.person.texts.GetString("The rows are being printed"));
    progress.run(owner, [&] {
        printPages(grid, documentName, *document,
                   [&progress](int done, int all) { return progress.report(done, all); });
    });
}

}  // namespace pellmark
