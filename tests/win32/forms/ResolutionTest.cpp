// A window that goes to a screen of another resolution, and comes back.
#include <gmock/gmock.h>

#include <map>
#include <string>

#include "support/win32/PeerHarness.h"
#include "win32/forms/FormWindow.h"

namespace pellmark::test {
namespace {

constexpr UINT kDpiChanged = 0x02E0;
constexpr UINT kDpiChangedAfterParent = 0x02E3;

/// What of one window follows the resolution, in pixels.
struct Look {
    RECT place{};
    LONG font = 0;
    std::vector<int> columns;
    int row = 0;
    int heading = 0;

    bool operator==(const Look& other) const {
        return ::EqualRect(&place, &other.place) && font == other.font && columns == other.columns &&
               row == other.row && heading == other.heading;
    }
};

void PrintTo(const Look& look, std::ostream* out) {
    *out << '(' << look.place.left << ", " << look.place.top << ", " << look.place.right << ", "
         << look.place.bottom << ") font " << look.font << " row " << look.row << " heading " << look.heading
         << " columns";
    for (const int each : look.columns)
        *out << ' ' << each;
}

LONG fontHeightOf(HWND window) {
    LOGFONTW font{};
    const auto handle = reinterpret_cast<HFONT>(::SendMessageW(window, WM_GETFONT, 0, 0));
    return handle != nullptr && ::GetObjectW(handle, sizeof font, &font) != 0 ? -font.lfHeight : 0;
}

Look lookOf(HWND window) {
    Look look;
    ::GetWindowRect(window, &look.place);
    ::MapWindowPoints(nullptr, ::GetParent(window), reinterpret_cast<POINT*>(&look.place), 2);
    look.font = fontHeightOf(window);
    wchar_t kind[64]{};
    ::GetClassNameW(window, kind, 64);
    if (std::wstring(kind) != WC_LISTVIEWW) return look;
    const auto header = reinterpret_cast<HWND>(::SendMessageW(window, LVM_GETHEADER, 0, 0));
    const auto columns = static_cast<int>(::SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
    for (int i = 0; i < columns; ++i)
        look.columns.push_back(
            static_cast<int>(::SendMessageW(window, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(i), 0)));
    RECT heading{};
    ::GetClientRect(header, &heading);
    look.heading = static_cast<int>(heading.bottom);
    RECT row{};
    row.left = LVIR_BOUNDS;
    if (::SendMessageW(window, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row)))
        look.row = static_cast<int>(row.bottom - row.top);
    return look;
}

class ResolutionTest : public ::testing::Test, protected PeerHarness {
  protected:
    ResolutionTest() {
        form->name.setText("Tap M8");
        form->description.setText("First line");
        form->members.setColumnHeaders({{"Members", 3000}, {"Unit", 1500}});
        form->members.userResizedColumn(0, 2345);
    }
    void TearDown() override { EXPECT_THAT(trace.lines(), ::testing::IsEmpty()); }

    HWND window() const { return reinterpret_cast<HWND>(form->handle()); }
    /// An embedded form hears it after its parent.
    void goTo(int dpi) {
        desktop.overrideDpi(dpi);
        ::SendMessageW(window(), kDpiChangedAfterParent, 0, 0);
        Person::pump();
    }
    std::map<std::string, Look> looks() const {
        std::map<std::string, Look> all;
        const Control* controls[] = {&form->buttons,   &form->ok,     &form->help, &form->tabs,
                                     &form->first,     &form->second, &form->grid, &form->filters,
                                     &form->unitLabel, &form->unit,   &form->name, &form->description,
                                     &form->values,    &form->members};
        for (const Control* each : controls)
            all[each->name()] = lookOf(of(*form, *each));
        return all;
    }
};

TEST_F(ResolutionTest, LettersColumnsRowsAndControlsAreTwiceAsLargeOnAScreenTwiceAsFine) {
    embed();
    const auto before = looks();
    goTo(192);
    const auto after = looks();
    for (const char* name :
         {"ok", "help", "grid", "unitLabel", "unit", "name", "description", "values", "members"})
        EXPECT_NEAR(after.at(name).font, 2 * before.at(name).font, 1) << name;
    for (const char* name : {"ok", "help", "filters", "unitLabel", "description"}) {
        const RECT& small = before.at(name).place;
        const RECT& large = after.at(name).place;
        EXPECT_NEAR(large.right - large.left, 2 * (small.right - small.left), 1) << name;
        EXPECT_NEAR(large.bottom - large.top, 2 * (small.bottom - small.top), 1) << name;
    }
    const Look& grid = after.at("grid");
    const Look& gridBefore = before.at("grid");
    ASSERT_EQ(grid.columns.size(), 4U);
    for (const std::size_t column : {0U, 1U, 2U})
        EXPECT_NEAR(grid.columns[column], 2 * gridBefore.columns[column], 1) << column;
    EXPECT_NEAR(grid.row, 2 * gridBefore.row, 4);
    EXPECT_GE(grid.heading, gridBefore.heading * 3 / 2);
    EXPECT_NEAR(after.at("members").columns[0], 2 * before.at("members").columns[0], 1);
    // A box with one line is as high as its letters and borders, not quite twice.
    for (const char* name : {"unit", "name"}) {
        const RECT& small = before.at(name).place;
        const RECT& large = after.at(name).place;
        EXPECT_GE((large.bottom - large.top) * 2, (small.bottom - small.top) * 3) << name;
    }
}

TEST_F(ResolutionTest, EverythingIsAsItWasWhenTheWindowComesBack) {
    embed();
    const auto before = looks();
    const Size size = form->clientSize();
    for (int round = 0; round < 3; ++round) {
        for (const int dpi : {192, 144, 120, 96})
            goTo(dpi);
        EXPECT_EQ(looks(), before);
        EXPECT_EQ(form->clientSize(), size);
    }
}

TEST_F(ResolutionTest, AWindowOnTheFinerScreenFromTheBeginningLooksTheSame) {
    embed();
    goTo(192);
    const auto moved = looks();
    form->unload();
    embed();
    EXPECT_EQ(looks(), moved);
}

TEST_F(ResolutionTest, AnEmbeddedWindowThatIsOnlyResizedNoticesTheScreenToo) {
    embed();
    const auto before = looks();
    desktop.overrideDpi(192);
    RECT at{};
    ::GetWindowRect(window(), &at);
    ::SetWindowPos(window(), nullptr, 0, 0, at.right - at.left + 10, at.bottom - at.top,
                   SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_NEAR(looks().at("ok").font, 2 * before.at("ok").font, 1);
}

TEST_F(ResolutionTest, TheFirstRowsOfTheListAndWhatIsSelectedStay) {
    embed();
    form->grid.select(41, 1);
    const HWND list = of(form->grid);
    ::SendMessageW(list, LVM_ENSUREVISIBLE, 99, FALSE);
    ::SendMessageW(list, LVM_ENSUREVISIBLE, 35, FALSE);
    const auto top = ::SendMessageW(list, LVM_GETTOPINDEX, 0, 0);
    ASSERT_EQ(top, 35);
    goTo(192);
    EXPECT_EQ(::SendMessageW(list, LVM_GETTOPINDEX, 0, 0), top);
    EXPECT_EQ(form->grid.row(), 41);
    EXPECT_EQ(::SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), 40);
    goTo(96);
    EXPECT_EQ(::SendMessageW(list, LVM_GETTOPINDEX, 0, 0), top);
}

TEST_F(ResolutionTest, ACellThatIsBeingEditedGoesOnWithWhatHasBeenTyped) {
    form->tabs.setIndex(1);
    embed();
    focus(form->values);
    const HWND list = of(form->values);
    form->values.setCurrent(2, 1);
    Person::press({VK_F2});
    const HWND box = ::GetFocus();
    ASSERT_EQ(::GetParent(box), list);
    Person::type("h9");
    RECT before{};
    ::GetWindowRect(box, &before);
    goTo(192);
    ASSERT_TRUE(::IsWindow(box));
    EXPECT_EQ(::GetFocus(), box);
    RECT after{};
    ::GetWindowRect(box, &after);
    EXPECT_EQ(after.right - after.left, lookOf(list).columns[1]);
    EXPECT_GT(after.bottom - after.top, (before.bottom - before.top) * 3 / 2);
    EXPECT_NEAR(fontHeightOf(box), fontHeightOf(list), 0);
    Person::press({VK_RETURN});
    EXPECT_EQ(form->values.text(2, 1), "h9");
}

class ModalResolutionTest : public ResolutionTest {
  protected:
    void tell(int dpi, RECT wanted) {
        desktop.overrideDpi(dpi);
        ::SendMessageW(window(), kDpiChanged, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&wanted));
        Person::pump();
    }
    RECT place() const {
        RECT at{};
        ::GetWindowRect(window(), &at);
        return at;
    }
};

TEST_F(ModalResolutionTest, ADialogTakesThePlaceThatTheSystemWantsForIt) {
    form->setBounds({150, 150, 6000, 5250});
    RECT taken{};
    Look button;
    const RECT wanted{20, 30, 20 + 800, 30 + 700};
    showModal([&] {
        tell(192, wanted);
        taken = place();
        button = lookOf(of(form->ok));
    });
    EXPECT_TRUE(::EqualRect(&taken, &wanted));
    EXPECT_NEAR(button.place.right - button.place.left, 146, 1);
    EXPECT_EQ(form->bounds().width, 6000) << "twice the pixels, the same length";
    EXPECT_EQ(form->bounds().height, 5250);
}

TEST_F(ModalResolutionTest, ADialogThatComesBackIsAsItWas) {
    form->setBounds({150, 150, 7000, 5333});
    std::map<std::string, Look> before;
    std::map<std::string, Look> after;
    Rect bounds;
    RECT at{};
    RECT back{};
    showModal([&] {
        before = looks();
        bounds = form->bounds();
        at = place();
        for (int round = 0; round < 3; ++round) {
            tell(192,
                 {at.left, at.top, at.left + 2 * (at.right - at.left), at.top + 2 * (at.bottom - at.top)});
            tell(96, at);
        }
        after = looks();
        back = place();
    });
    EXPECT_EQ(after, before);
    EXPECT_EQ(form->bounds(), bounds);
    EXPECT_TRUE(::EqualRect(&at, &back));
}

TEST_F(ModalResolutionTest, ASmallestDialogMayFollowToACoarserScreen) {
    desktop.overrideDpi(192);
    RECT after{};
    showModal([&] {
        ::SetWindowPos(window(), nullptr, 0, 0, 1, 1, SWP_NOMOVE | SWP_NOZORDER);
        const RECT at = place();
        tell(96, {at.left, at.top, at.left + (at.right - at.left) / 2 + 10,
                  at.top + (at.bottom - at.top) / 2 + 20});
        after = place();
    });
    EXPECT_LT(after.right - after.left, 400) << "its least at 96 dpi is 300 pixels, at 192 600";
}

}  // namespace
}  // namespace pellmark::test
