// What finding and sorting are on the screen: a line above the grid, keys that reach it and the list, an
// arrow.
#include <gmock/gmock.h>

#include "controls/FindLine.h"
#include "settings/cRegDefaults.h"
#include "support/MemoryRegistry.h"
#include "support/PortableCodePage.h"
#include "support/win32/PeerHarness.h"
#include "util/ListArrangement.h"
#include "win32/WideText.h"

namespace pellmark::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A grid with the line above it, as views have them.
class ListForm : public Form {
  public:
    explicit ListForm(Desktop& desktop) : Form(desktop, "ListForm") {
        setClientSize({9000, 6000});
        setDefaultButton(&ok);
        setCancelButton(&cancel);
        ok.setVisible(false);
        grid.setHeadings("Name|Note");
        grid.setColKey(0, "_Name");
        grid.setColKey(1, "_Note");
        grid.setColWidth(0, 3000);
        records = std::make_shared<MemoryRecordSet>(std::vector<std::string>{"_Id", "_Name", "_Note"});
        for (int i = 0; i < 200; ++i)
            records->addRow({"id" + std::to_string(i), "Tap M" + std::to_string(i),
                             i == 0 ? "a note that is much too long for the column that it stands in" : "x"});
        grid.bind(records);
        for (int row = 1; row < grid.rows(); ++row)
            grid.setRowData(row, records->text(static_cast<std::size_t>(row - 1), 0));
        grid.select(1, 0);
        on_.push_back(line.toggled.subscribe([this] { arrange(clientSize()); }));
        on_.push_back(cancel.clicked.subscribe([this] { ++cancels; }));
        on_.push_back(ok.clicked.subscribe([this] { ++oks; }));
    }
    void arrange(Size client) override {
        line.setBounds({0, 0, client.width, line.taken()});
        arrangeInside(line);
        grid.setBounds({0, line.taken(), client.width, client.height - line.taken() - 600});
        ok.setBounds({0, client.height - 600, 1000, 400});
        cancel.setBounds({1100, client.height - 600, 1000, 400});
    }

    FindLine line{*this, "line"};
    Grid grid{*this, "grid"};
    Button ok{*this, "ok", "OK"};
    Button cancel{*this, "cancel", "Cancel"};
    std::shared_ptr<MemoryRecordSet> records;
    int oks = 0;
    int cancels = 0;

  private:
    std::vector<Subscription> on_;
};

class NoIdle : public Idle {
  public:
    void yield() override {}
};
class NoHelp : public HelpLauncher {
  public:
    void openHelp(WindowHandle) override {}
};

class FindInGridTest : public ::testing::Test, protected PeerHarness {
  protected:
    void TearDown() override {
        list.unload();
        EXPECT_THAT(trace.lines(), IsEmpty());
    }
    void start() {
        list.embed(reinterpret_cast<WindowHandle>(host()));
        ::SetFocus(grid());
        Person::pump();
    }
    HWND window(Control& control) const { return findIn(reinterpret_cast<HWND>(list.handle()), control); }
    static HWND findIn(HWND parent, const Control& control) {
        for (HWND child = ::GetWindow(parent, GW_CHILD); child != nullptr;
             child = ::GetWindow(child, GW_HWNDNEXT)) {
            const ControlPeer* peer = ControlPeer::of(child);
            if (peer != nullptr && peer->control() == &control) return child;
            if (const HWND inner = findIn(child, control)) return inner;
        }
        return nullptr;
    }
    HWND grid() { return window(list.grid); }
    HWND box() { return window(list.line.TxtFind); }
    HWND header() { return reinterpret_cast<HWND>(::SendMessageW(grid(), LVM_GETHEADER, 0, 0)); }
    int shownRows() { return static_cast<int>(::SendMessageW(grid(), LVM_GETITEMCOUNT, 0, 0)); }
    static RECT on(HWND of) {
        RECT rect{};
        ::GetWindowRect(of, &rect);
        return rect;
    }
    static std::string textOf(HWND of) {
        wchar_t text[200] = L"";
        ::GetWindowTextW(of, text, 200);
        return fromWide(text);
    }
    /// 1 where the arrow in a heading points up, -1 where it points down, 0 where there is none.
    int arrow(int column) {
        ::UpdateWindow(header());
        RECT rect{};
        ::SendMessageW(header(), HDM_GETITEMRECT, static_cast<WPARAM>(column),
                       reinterpret_cast<LPARAM>(&rect));
        const HDC screen = ::GetDC(header());
        const auto isDrawn = [&](int dx, int dy) {
            return ::GetPixel(screen, rect.right - 12 + dx, (rect.top + rect.bottom) / 2 + dy) ==
                   ::GetSysColor(COLOR_BTNTEXT);
        };
        const bool below = isDrawn(-3, 2);
        const bool above = isDrawn(-3, -2);
        ::ReleaseDC(header(), screen);
        return static_cast<int>(below) - static_cast<int>(above);
    }
    void refill() {
        const std::string current = list.grid.rowData(list.grid.row());
        const auto shown = arrangement.arranged(list.records);
        const Grid::RedrawOff off(list.grid);
        list.grid.bind(shown);
        for (int row = 1; row < list.grid.rows(); ++row)
            list.grid.setRowData(row, shown->text(static_cast<std::size_t>(row - 1), 0));
        list.grid.select(std::max(list.grid.findRow(current), 1), 0);
    }

    Texts texts{operations};
    NoHelp help;
    NoIdle idle;
    MemoryRegistry registry;
    PortableCodePage codePage;
    cRegDefaults layouts{registry, codePage, "Norvex", "Norvex - Process Manager", trace};
    UserInterface person{desktop, texts, help, layouts};
    ListForm list{desktop};
    ListArrangement arrangement{person, idle, list.grid, list.line};
    Subscription changed = arrangement.changed.subscribe([this] { refill(); });
};

TEST_F(FindInGridTest, CtrlFOpensTheLineAboveTheGridAndTypingNarrowsIt) {
    start();
    const RECT before = on(grid());
    EXPECT_FALSE(::IsWindowVisible(box()));
    Person::press({VK_CONTROL, 'F'});
    EXPECT_TRUE(::IsWindowVisible(box()));
    EXPECT_EQ(::GetFocus(), box());
    EXPECT_GT(on(grid()).top, before.top);
    EXPECT_EQ(on(grid()).bottom, before.bottom);
    EXPECT_LE(on(box()).bottom, on(grid()).top);
    Person::type("m19");
    EXPECT_EQ(shownRows(), 11);
    EXPECT_EQ(textOf(window(list.line.LblFound)), "11 of 200");
    Person::press({VK_BACK});
    EXPECT_EQ(shownRows(), 111);
}

TEST_F(FindInGridTest, DownGoesToTheRowsAndEscapeThereShowsTheWholeListAgain) {
    start();
    Person::press({VK_CONTROL, 'F'});
    Person::type("m19");
    Person::press({VK_DOWN});
    EXPECT_EQ(::GetFocus(), grid());
    Person::press({VK_DOWN});
    Person::press({VK_ESCAPE});
    EXPECT_EQ(shownRows(), 200);
    EXPECT_EQ(list.grid.text(list.grid.row(), 0), "Tap M190");
    EXPECT_FALSE(::IsWindowVisible(box()));
    EXPECT_EQ(::GetFocus(), grid());
}

TEST_F(FindInGridTest, EscapeInTheLineLeavesItAndNotTheDialog) {
    const Meanwhile meanwhile(
        {[this] { return list.isShown() && ::GetActiveWindow() == reinterpret_cast<HWND>(list.handle()); },
         [this] {
             ::SetFocus(grid());
             Person::sendKeys({VK_CONTROL, 'F'});
             return true;
         },
         [this] { return ::GetFocus() == box(); },
         [] {
             Person::sendKeys({VK_ESCAPE});
             return true;
         },
         [this] { return ::GetFocus() == grid() && !list.line.isOpen(); },
         [this] {
             EXPECT_EQ(list.cancels, 0);
             Person::sendKeys({VK_ESCAPE});
             return true;
         },
         [this] {
             if (list.cancels == 0) return false;
             list.unload();
             return true;
         }});
    list.showModal(reinterpret_cast<WindowHandle>(host()));
    EXPECT_TRUE(meanwhile.isDone());
}

TEST_F(FindInGridTest, EnterReachesTheListUnlessADefaultButtonTakesIt) {
    start();
    std::vector<int> keys;
    const auto heard = list.grid.keyPressed.subscribe([&](KeyPress& key) { keys.push_back(key.keyCode); });
    Person::press({VK_RETURN});
    EXPECT_THAT(keys, ElementsAre(VK_RETURN));
    EXPECT_EQ(list.oks, 0);
    list.ok.setVisible(true);
    Person::press({VK_RETURN});
    EXPECT_THAT(keys, ElementsAre(VK_RETURN));
    EXPECT_EQ(list.oks, 1);
}

TEST_F(FindInGridTest, F2EditsWhereACellCanBeEditedAndIsAKeyLikeOthersOtherwise) {
    start();
    std::vector<int> keys;
    const auto heard = list.grid.keyPressed.subscribe([&](KeyPress& key) { keys.push_back(key.keyCode); });
    Person::press({VK_F2});
    EXPECT_THAT(keys, ElementsAre(VK_F2));
    list.grid.setColEditable(1, true);
    Person::press({VK_F2});
    EXPECT_THAT(keys, ElementsAre(VK_F2));
    EXPECT_TRUE(list.grid.isEditing());
    Person::press({VK_ESCAPE});
}

TEST_F(FindInGridTest, AClickOnAHeadingSortsAndAnArrowSaysSo) {
    start();
    EXPECT_EQ(arrow(0), 0);
    Person::click(header(), {30, 8});
    EXPECT_EQ(list.grid.sortMark(), (SortMark{0, false}));
    EXPECT_EQ(arrow(0), 1);
    EXPECT_EQ(arrow(1), 0);
    Person::click(header(), {60, 8});
    EXPECT_EQ(arrow(0), -1);
    EXPECT_EQ(list.grid.text(1, 0), "Tap M199");
    EXPECT_EQ(list.grid.text(list.grid.row(), 0), "Tap M0") << "the selected row stays selected";
    Person::click(header(), {30, 8});
    EXPECT_EQ(arrow(0), 0);
    EXPECT_EQ(list.grid.text(1, 0), "Tap M0");
}

TEST_F(FindInGridTest, ADoubleClickOnAHeadingIsTwoClicks) {
    start();
    Person::doubleClick(header(), {30, 8});
    EXPECT_EQ(arrow(0), -1);
    EXPECT_EQ(list.grid.text(1, 0), "Tap M199");
}

TEST_F(FindInGridTest, CtrlShiftAndADigitSortByTheKeyboard) {
    start();
    Person::press({VK_CONTROL, VK_SHIFT, '1'});
    EXPECT_EQ(arrow(0), 1);
    Person::press({VK_CONTROL, VK_SHIFT, '0'});
    EXPECT_EQ(arrow(0), 0);
}

TEST_F(FindInGridTest, TheRowAtTheUpperEdgeIsKnownAndCanBeChosen) {
    start();
    EXPECT_EQ(list.grid.topRow(), 1);
    list.grid.setTopRow(57);
    EXPECT_EQ(list.grid.topRow(), 57);
    EXPECT_EQ(::SendMessageW(grid(), LVM_GETTOPINDEX, 0, 0), 56);
    list.grid.setTopRow(10);
    EXPECT_EQ(list.grid.topRow(), 10);
}

TEST_F(FindInGridTest, ALongListIsReadOnlyWhereItIsSeen) {
    start();
    Person::press({VK_CONTROL, 'F'});
    int reads = 0;
    class Counting : public MemoryRecordSet {
      public:
        explicit Counting(int& counter) : MemoryRecordSet({"_Name", "_Note"}), reads_(counter) {
            for (int i = 0; i < 20000; ++i)
                addRow({"n", "x"});
        }
        // What the grid paints comes this way.
        void appendText(std::size_t record, std::size_t field, std::string& out) override {
            ++reads_;
            MemoryRecordSet::appendText(record, field, out);
        }

      private:
        int& reads_;
    };
    const auto many = std::make_shared<Counting>(reads);
    list.grid.bind(many);
    Person::pump();
    ::UpdateWindow(grid());
    EXPECT_GT(reads, 0);
    EXPECT_LT(reads, 400) << "only what is on the screen is read";
}

}  // namespace
}  // namespace pellmark::test
