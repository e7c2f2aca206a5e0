// Reports what is on the screen to the end-to-end tests: one command per line on the standard input, one line
// of JSON per answer. Mouse and keyboard stay outside (they are the display server's); this program only
// looks.
//
//   tree          every visible window: handle, parent, owner, class, text, screen rectangle, state
//   list HWND     a report list: its headings, and of its first rows the texts, rectangle and state
//   rows HWND     a report list: how many rows there are, how many are selected, which one is focused
//   tabs HWND     a tab strip: the rectangle of each tab and which one is selected
//   combo HWND    a combo box: its entries
//   ticks HWND    a list with check boxes: whether each row is ticked
//   forget        removes the layouts that the component and the host have stored for this user
//   choices HWND  a list box: its entries and the rectangle of each
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iostream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr int kMaxRows = 200;
constexpr UINT kTimeoutMs = 5000;

// Another process's window must not hang this one: a question unanswered in time counts as 0.
LRESULT ask(HWND window, UINT message, WPARAM first = 0, LPARAM second = 0) {
    DWORD_PTR answer = 0;
    SendMessageTimeoutW(window, message, first, second, SMTO_ABORTIFHUNG, kTimeoutMs, &answer);
    return static_cast<LRESULT>(answer);
}

template <typename Pointer>
LPARAM asParameter(Pointer pointer) {
    return reinterpret_cast<LPARAM>(pointer);
}

std::uintptr_t number(const void* handle) {
    return reinterpret_cast<std::uintptr_t>(handle);
}

std::string quoted(const std::wstring& text) {
    std::ostringstream out;
    out << '"';
    for (const wchar_t unit : text) {
        if (unit >= 0x20 && unit < 0x7f && unit != L'"' && unit != L'\\') {
            out << static_cast<char>(unit);
        } else {
            std::array<char, 8> escape{};
            std::snprintf(escape.data(), escape.size(), "\\u%04x", static_cast<unsigned>(unit));
            out << escape.data();
        }
    }
    out << '"';
    return out.str();
}

std::string shown(const RECT& area) {
    std::ostringstream out;
    out << '[' << area.left << ',' << area.top << ',' << area.right - area.left << ','
        << area.bottom - area.top << ']';
    return out.str();
}

// Memory inside the process that owns a window: the common controls read and write their structures there.
// Each way there and back stops that process for some milliseconds, so what a question needs goes and comes
// in one piece.
class RemoteMemory {
  public:
    RemoteMemory(HWND window, std::size_t bytes) {
        DWORD processId = 0;
        GetWindowThreadProcessId(window, &processId);
        process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, processId);
        if (process_ != nullptr) {
            address_ = VirtualAllocEx(process_, nullptr, bytes, MEM_COMMIT, PAGE_READWRITE);
        }
    }
    ~RemoteMemory() {
        if (address_ != nullptr) VirtualFreeEx(process_, address_, 0, MEM_RELEASE);
        if (process_ != nullptr) CloseHandle(process_);
    }
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;

    std::byte* at(std::size_t offset) const { return static_cast<std::byte*>(address_) + offset; }
    template <typename Value>
    void write(std::size_t offset, const std::vector<Value>& values) const {
        WriteProcessMemory(process_, at(offset), values.data(), values.size() * sizeof(Value), nullptr);
    }
    template <typename Value>
    void read(std::size_t offset, std::vector<Value>& values) const {
        ReadProcessMemory(process_, at(offset), values.data(), values.size() * sizeof(Value), nullptr);
    }

  private:
    HANDLE process_ = nullptr;
    void* address_ = nullptr;
};

using TextBuffer = std::array<wchar_t, 512>;

// Structures of one kind in the process that owns a window, each with room for a text there.
template <typename Item>
class RemoteItems {
  public:
    RemoteItems(HWND window, std::vector<Item> items)
        : items_(std::move(items)), memory_(window, items_.size() * (sizeof(Item) + sizeof(TextBuffer))) {}

    // Gives each item the place of its text, through the member that names it.
    void sendWithTexts(wchar_t* Item::*text, int Item::*capacity) {
        for (std::size_t index = 0; index < items_.size(); ++index) {
            items_[index].*text =
                reinterpret_cast<wchar_t*>(memory_.at(textsOffset() + index * sizeof(TextBuffer)));
            items_[index].*capacity = static_cast<int>(TextBuffer().size());
        }
        send();
    }
    void send() { memory_.write(0, items_); }

    LPARAM at(std::size_t index) const { return asParameter(memory_.at(index * sizeof(Item))); }
    std::size_t size() const { return items_.size(); }

    const std::vector<Item>& received() {
        memory_.read(0, items_);
        return items_;
    }
    std::vector<std::wstring> receivedTexts() const {
        std::vector<TextBuffer> buffers(items_.size());
        memory_.read(textsOffset(), buffers);
        std::vector<std::wstring> texts;
        for (TextBuffer& buffer : buffers) {
            buffer.back() = L'\0';
            texts.emplace_back(buffer.data());
        }
        return texts;
    }

  private:
    std::size_t textsOffset() const { return items_.size() * sizeof(Item); }

    std::vector<Item> items_;
    RemoteMemory memory_;
};

std::wstring windowText(HWND window) {
    TextBuffer buffer{};
    ask(window, WM_GETTEXT, buffer.size() - 1, asParameter(buffer.data()));
    return buffer.data();
}

std::string describe(HWND window) {
    std::array<wchar_t, 128> className{};
    GetClassNameW(window, className.data(), static_cast<int>(className.size()));
    RECT area{};
    GetWindowRect(window, &area);
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    const bool known = GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &thread) != FALSE;
    std::ostringstream out;
    out << R"({"handle":)" << number(window) << R"(,"parent":)" << number(GetAncestor(window, GA_PARENT))
        << R"(,"owner":)" << number(GetWindow(window, GW_OWNER)) << R"(,"class":)" << quoted(className.data())
        << R"(,"text":)" << quoted(windowText(window)) << R"(,"area":)" << shown(area) << R"(,"enabled":)"
        << (IsWindowEnabled(window) ? "true" : "false") << R"(,"focus":)"
        << (known && thread.hwndFocus == window ? "true" : "false") << '}';
    return out.str();
}

BOOL CALLBACK collect(HWND window, LPARAM out) {
    auto& found = *reinterpret_cast<std::string*>(out);
    if (IsWindowVisible(window)) found += (found.empty() ? "" : ",") + describe(window);
    return TRUE;
}

BOOL CALLBACK collectWithChildren(HWND window, LPARAM out) {
    if (IsWindowVisible(window)) {
        collect(window, out);
        EnumChildWindows(window, collect, out);
    }
    return TRUE;
}

std::string tree() {
    std::string found;
    EnumWindows(collectWithChildren, asParameter(&found));
    return '[' + found + ']';
}

RECT toScreen(HWND window, RECT area) {
    POINT origin{0, 0};
    ClientToScreen(window, &origin);
    OffsetRect(&area, origin.x, origin.y);
    return area;
}

// The texts of the first rows of a report list, row by row.
std::vector<std::wstring> cellTexts(HWND list, int rows, int columns) {
    std::vector<LVITEMW> questions;
    for (int cell = 0; cell < rows * columns; ++cell) {
        questions.emplace_back().iSubItem = cell % columns;
    }
    RemoteItems<LVITEMW> cells(list, std::move(questions));
    cells.sendWithTexts(&LVITEMW::pszText, &LVITEMW::cchTextMax);
    for (std::size_t cell = 0; cell < cells.size(); ++cell) {
        ask(list, LVM_GETITEMTEXTW, cell / static_cast<std::size_t>(columns), cells.at(cell));
    }
    return cells.receivedTexts();
}

// The rectangles that a control tells by the index of what it holds, on the screen.
std::vector<RECT> areas(HWND window, UINT message, int count, const RECT& question = {}) {
    RemoteItems<RECT> memory(window, std::vector<RECT>(static_cast<std::size_t>(count), question));
    memory.send();
    for (std::size_t index = 0; index < memory.size(); ++index)
        ask(window, message, index, memory.at(index));
    std::vector<RECT> found = memory.received();
    for (RECT& area : found)
        area = toScreen(window, area);
    return found;
}

std::string headings(HWND header, int columns) {
    HDITEMW question{};
    question.mask = HDI_TEXT | HDI_WIDTH;
    RemoteItems<HDITEMW> items(header, std::vector<HDITEMW>(static_cast<std::size_t>(columns), question));
    items.sendWithTexts(&HDITEMW::pszText, &HDITEMW::cchTextMax);
    for (std::size_t column = 0; column < items.size(); ++column) {
        ask(header, HDM_GETITEMW, column, items.at(column));
    }
    const std::vector<std::wstring> texts = items.receivedTexts();
    const std::vector<HDITEMW>& facts = items.received();
    const std::vector<RECT> places = areas(header, HDM_GETITEMRECT, columns);
    std::string out;
    for (std::size_t column = 0; column < items.size(); ++column) {
        out += (column > 0 ? "," : "") + std::string(R"({"text":)") + quoted(texts[column]) + R"(,"width":)" +
               std::to_string(facts[column].cxy) + R"(,"area":)" + shown(places[column]) + '}';
    }
    return '[' + out + ']';
}

std::string list(HWND window) {
    const auto header = reinterpret_cast<HWND>(ask(window, LVM_GETHEADER));
    const int columns = static_cast<int>(ask(header, HDM_GETITEMCOUNT));
    const int count = static_cast<int>(ask(window, LVM_GETITEMCOUNT));
    const int rows = std::min(count, kMaxRows);
    const std::vector<std::wstring> texts = cellTexts(window, rows, columns);
    const std::vector<RECT> places = areas(window, LVM_GETITEMRECT, rows, RECT{LVIR_BOUNDS, 0, 0, 0});
    std::ostringstream out;
    out << R"({"headings":)" << headings(header, columns) << R"(,"count":)" << count << R"(,"rows":[)";
    for (int row = 0; row < rows; ++row) {
        out << (row > 0 ? "," : "") << R"({"cells":[)";
        for (int column = 0; column < columns; ++column) {
            out << (column > 0 ? "," : "") << quoted(texts[static_cast<std::size_t>(row * columns + column)]);
        }
        const auto state =
            ask(window, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED | LVIS_FOCUSED);
        out << R"(],"area":)" << shown(places[static_cast<std::size_t>(row)]) << R"(,"selected":)"
            << ((state & LVIS_SELECTED) != 0 ? "true" : "false") << R"(,"focused":)"
            << ((state & LVIS_FOCUSED) != 0 ? "true" : "false") << '}';
    }
    out << "]}";
    return out.str();
}

std::string rows(HWND window) {
    std::ostringstream out;
    out << R"({"count":)" << ask(window, LVM_GETITEMCOUNT) << R"(,"selected":)"
        << ask(window, LVM_GETSELECTEDCOUNT) << R"(,"focused":)"
        << ask(window, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED) << '}';
    return out.str();
}

std::string ticks(HWND window) {
    const int count = static_cast<int>(ask(window, LVM_GETITEMCOUNT));
    std::string out;
    for (int row = 0; row < count; ++row) {
        const auto state = ask(window, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_STATEIMAGEMASK);
        out += std::string(row > 0 ? "," : "") + (state == INDEXTOSTATEIMAGEMASK(2) ? "true" : "false");
    }
    return '[' + out + ']';
}

std::string forget() {
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Orvane\\Norvex\\Workbench");
    const LSTATUS outcome = RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Orvane\\Applications");
    return std::to_string(outcome);
}

std::string tabs(HWND window) {
    const int count = static_cast<int>(ask(window, TCM_GETITEMCOUNT));
    std::ostringstream out;
    out << R"({"selected":)" << ask(window, TCM_GETCURSEL) << R"(,"areas":[)";
    bool first = true;
    for (const RECT& area : areas(window, TCM_GETITEMRECT, count)) {
        out << (first ? "" : ",") << shown(area);
        first = false;
    }
    out << "]}";
    return out.str();
}

std::string combo(HWND window) {
    const int count = static_cast<int>(ask(window, CB_GETCOUNT));
    std::ostringstream out;
    out << '[';
    for (int entry = 0; entry < count; ++entry) {
        TextBuffer text{};
        if (ask(window, CB_GETLBTEXTLEN, static_cast<WPARAM>(entry)) < static_cast<LRESULT>(text.size())) {
            ask(window, CB_GETLBTEXT, static_cast<WPARAM>(entry), asParameter(text.data()));
        }
        out << (entry > 0 ? "," : "") << quoted(text.data());
    }
    out << ']';
    return out.str();
}

std::string choices(HWND window) {
    const int count = static_cast<int>(ask(window, LB_GETCOUNT));
    std::ostringstream out;
    out << '[';
    for (int entry = 0; entry < count; ++entry) {
        TextBuffer text{};
        RECT area{};
        ask(window, LB_GETTEXT, static_cast<WPARAM>(entry), asParameter(text.data()));
        ask(window, LB_GETITEMRECT, static_cast<WPARAM>(entry), asParameter(&area));
        out << (entry > 0 ? "," : "") << R"({"text":)" << quoted(text.data()) << R"(,"area":)"
            << shown(toScreen(window, area)) << '}';
    }
    out << ']';
    return out.str();
}

std::string answer(const std::string& line) {
    std::istringstream words(line);
    std::string command;
    std::uintptr_t handle = 0;
    words >> command >> handle;
    const auto window = reinterpret_cast<HWND>(handle);
    if (command == "tree") return tree();
    if (command == "list") return list(window);
    if (command == "rows") return rows(window);
    if (command == "ticks") return ticks(window);
    if (command == "forget") return forget();
    if (command == "tabs") return tabs(window);
    if (command == "combo") return combo(window);
    if (command == "choices") return choices(window);
    return R"({"error":"unknown command"})";
}

}  // namespace

int main() {
    std::string line;
    while (std::getline(std::cin, line))
        std::cout << answer(line) << std::endl;
    return 0;
}
