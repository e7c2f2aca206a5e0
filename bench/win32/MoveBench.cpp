#include "win32/MoveBench.h"

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "win32/BenchWindows.h"

namespace bench {

namespace {

constexpr int kRepetitions = 9;
constexpr int kRepetitionsPassingAllRows = 3;  ///< seconds each in the bare list
constexpr int kManyRows = 100000;              ///< from here on such a move is measured once
constexpr int kMostBareRows = 200000;          ///< of more rows it would take a bare list minutes
constexpr DWORD kLetterForgotten = 700;        ///< milliseconds after which a letter begins a new search
constexpr int kStart = 100;                    ///< the row, counted from 0, from which each move sets out

/// What the owner of a bare list does: it answers texts, and looks for the one that was typed.
LRESULT CALLBACK ownerOfABareList(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                  DWORD_PTR) noexcept {
    if (message != WM_NOTIFY) return ::DefSubclassProc(window, message, wParam, lParam);
    const auto textOf = [](int row) { return L"Drill M" + std::to_wstring(row % 40 + 2); };
    auto& header = *reinterpret_cast<NMHDR*>(lParam);
    if (header.code == LVN_GETDISPINFOW) {
        LVITEMW& item = reinterpret_cast<NMLVDISPINFOW&>(header).item;
        if ((item.mask & LVIF_TEXT) != 0)
            ::lstrcpynW(item.pszText, textOf(item.iItem).c_str(), item.cchTextMax);
        return 0;
    }
    if (header.code == LVN_ODFINDITEMW) {
        const auto& wanted = reinterpret_cast<const NMLVFINDITEMW&>(header);
        const std::wstring typed = wanted.lvfi.psz;
        const auto rows = static_cast<int>(::SendMessageW(header.hwndFrom, LVM_GETITEMCOUNT, 0, 0));
        for (int row = wanted.iStart; row < rows; ++row) {
            if (::CompareStringOrdinal(textOf(row).c_str(), static_cast<int>(typed.size()), typed.c_str(),
                                       static_cast<int>(typed.size()), TRUE) == CSTR_EQUAL)
                return row;
        }
        return -1;
    }
    return ::DefSubclassProc(window, message, wParam, lParam);
}

void hold(int key, bool down) {
    BYTE keys[256] = {};
    ::GetKeyboardState(keys);
    keys[key] = down ? 0x80 : 0;
    ::SetKeyboardState(keys);
}

void setState(HWND list, int row, UINT state, UINT mask) {
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    ::SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

/// A list that a person works: ours or a bare one.
struct Subject {
    HWND list;
    std::function<void()> start;      ///< one row selected
    std::function<void()> selectAll;  ///< what Ctrl+A comes to
};

/// A bare list in a window of its own.
class BareSubject {
  public:
    explicit BareSubject(int rows) : rows_(rows), list_(bareList(host_.window, rows)) {
        ::SetWindowSubclass(host_.window, &ownerOfABareList, 1, 0);
        pump();
    }
    int rows() const { return rows_; }
    Subject subject() const {
        return {list_,
                [list = list_] {
                    constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;
                    ::SetFocus(list);
                    setState(list, -1, 0, LVIS_SELECTED);
                    setState(list, kStart, kBoth, kBoth);
                    ::SendMessageW(list, LVM_SETSELECTIONMARK, 0, kStart);
                    ::SendMessageW(list, LVM_ENSUREVISIBLE, kStart + 4, FALSE);
                },
                [list = list_] { setState(list, -1, LVIS_SELECTED, LVIS_SELECTED); }};
    }

  private:
    Host host_;
    int rows_;
    HWND list_;
};

struct Move {
    const char* name;
    std::function<void(const Subject&)> prepare;
    std::function<void(const Subject&)> perform;
    bool passesAllRows = false;
};

void press(HWND list, WPARAM key) {
    ::SendMessageW(list, WM_KEYDOWN, key, 1);
}

void shiftPress(HWND list, WPARAM key) {
    hold(VK_SHIFT, true);
    press(list, key);
    hold(VK_SHIFT, false);
}

void click(HWND list) {
    RECT row{};
    row.left = LVIR_BOUNDS;
    ::SendMessageW(list, LVM_GETITEMRECT, kStart + 3, reinterpret_cast<LPARAM>(&row));
    const LPARAM at = MAKELPARAM(40, (row.top + row.bottom) / 2);
    ::SendMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, at);
    ::SendMessageW(list, WM_LBUTTONUP, 0, at);
}

std::vector<Move> allMoves() {
    const auto fromOneRow = [](const Subject& subject) { subject.start(); };
    const auto key = [](WPARAM which) {
        return [which](const Subject& subject) { press(subject.list, which); };
    };
    const auto withShift = [](WPARAM which) {
        return [which](const Subject& subject) { shiftPress(subject.list, which); };
    };
    return {
        {"click", fromOneRow, [](const Subject& subject) { click(subject.list); }},
        {"arrow", fromOneRow, key(VK_DOWN)},
        {"Page Down", fromOneRow, key(VK_NEXT)},
        {"End", fromOneRow, key(VK_END)},
        {"Ctrl+End", fromOneRow,
         [](const Subject& subject) {
             hold(VK_CONTROL, true);
             press(subject.list, VK_END);
             hold(VK_CONTROL, false);
         }},
        {"Shift+arrow", fromOneRow, withShift(VK_DOWN)},
        {"Shift+End", fromOneRow, withShift(VK_END), true},
        {"Shift+Home after it",
         [](const Subject& subject) {
             subject.start();
             shiftPress(subject.list, VK_END);
         },
         withShift(VK_HOME), true},
        {"Ctrl+A", fromOneRow, [](const Subject& subject) { subject.selectAll(); }, true},
        {"arrow after it",
         [](const Subject& subject) {
             subject.start();
             subject.selectAll();
         },
         key(VK_DOWN), true},
        {"type-ahead",
         [](const Subject& subject) {
             ::Sleep(kLetterForgotten);
             subject.start();
         },
         [](const Subject& subject) { ::SendMessageW(subject.list, WM_CHAR, L'd', 1); }},
    };
}

double millisecondsOf(const Move& move, const Subject& subject) {
    move.prepare(subject);
    ::UpdateWindow(subject.list);
    LARGE_INTEGER frequency{};
    LARGE_INTEGER before{};
    LARGE_INTEGER after{};
    ::QueryPerformanceFrequency(&frequency);
    ::QueryPerformanceCounter(&before);
    move.perform(subject);
    ::UpdateWindow(subject.list);
    ::QueryPerformanceCounter(&after);
    return 1000.0 * static_cast<double>(after.QuadPart - before.QuadPart) /
           static_cast<double>(frequency.QuadPart);
}

Comparison compare(const Move& move, int rows, const Subject& ours, const Subject& bare) {
    std::vector<double> first;
    std::vector<double> second;
    std::vector<double> ratios;
    int repetitions = kRepetitions;
    if (move.passesAllRows) repetitions = rows >= kManyRows ? 0 : kRepetitionsPassingAllRows;
    for (int i = 0; i <= repetitions; ++i) {
        const double mine = millisecondsOf(move, ours);
        const double theirs = millisecondsOf(move, bare);
        if (i == 0 && repetitions > 0) continue;  // both are warm from here on
        first.push_back(mine);
        second.push_back(theirs);
        ratios.push_back(mine / theirs);
    }
    return {medianOf(first), medianOf(second), medianOf(ratios)};
}

}  // namespace

Table moves(pellmark::Win32Desktop& desktop, const std::vector<int>& sizes) {
    Table table({"move", "rows", "ms", "bare rows", "bare ms", "ratio"});
    for (const int rows : sizes) {
        const Host host;
        pellmark::test::SampleForm form(desktop);
        form.fill(rows);
        form.embed(reinterpret_cast<pellmark::WindowHandle>(host.window));
        const HWND list = listOf(form);
        const Subject ours{list,
                           [&] {
                               ::SetFocus(list);
                               form.grid.select(kStart + 1, 1);
                               form.grid.showCell(kStart + 5, 1);
                           },
                           [list] {
                               hold(VK_CONTROL, true);
                               press(list, 'A');
                               hold(VK_CONTROL, false);
                           }};
        const BareSubject bare(rows);
        const BareSubject fewer(std::min(rows, kMostBareRows));
        for (const Move& move : allMoves()) {
            const BareSubject& other = move.passesAllRows ? fewer : bare;
            const Comparison found = compare(move, rows, ours, other.subject());
            table.add({move.name, std::to_string(rows), number(found.measured, 2),
                       std::to_string(other.rows()), number(found.baseline, 2), number(found.ratio, 2)});
        }
    }
    return table;
}

}  // namespace bench
