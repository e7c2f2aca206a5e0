#include "win32/table/GridPeer.h"

#include "win32/drag/DragOut.h"
#include "win32/forms/FormWindow.h"

namespace pellmark {

namespace {

constexpr UINT kCommitChoice = WM_APP + 1;
constexpr UINT_PTR kSlowClick = 1;

bool isDown(int key) {
    return ::GetKeyState(key) < 0;
}

}  // namespace

GridPeer::GridPeer(FormWindow& form, Grid& grid, HWND parent)
    : TablePeer(form, grid, std::make_unique<GridTable>(grid, form.surroundings().trace())) {
    create(parent, true);
    description_.emplace(window());
    gridChanged_ = grid.gridChanged.subscribe([this](const GridChange& change) { modelChanged(change); });
    topRowAsked_ = grid.topRowAsked.subscribe([this](int& row) {
        if (window() != nullptr) row = gridTable().gridRow(topRow());
    });
    paintRequested_ = grid.paintRequested.subscribe([this] { ::UpdateWindow(window()); });
    if (table().current() >= 0) scrollTo(table().current());
}

GridPeer::~GridPeer() = default;

void GridPeer::detach() {
    gridChanged_.reset();
    paintRequested_.reset();
    topRowAsked_.reset();
    description_.reset();
    gridTable().detach();
    TablePeer::detach();
    editor_.reset();  // which moves the keyboard: nothing must reach the model any more
}

void GridPeer::rescale() {
    TablePeer::rescale();
    fitEditor();
}

void GridPeer::fitEditor() {
    if (!editor_ || !grid()->isEditing()) return;
    const Cell cell{grid()->editing()->row - grid()->fixedRows(),
                    gridTable().columnOf(grid()->editing()->col)};
    editor_->fit(cellRect(cell), font());
}

void GridPeer::modelChanged(const GridChange& change) {
    if (window() == nullptr) return;
    if (editor_ && !grid()->isEditing()) editor_.reset();
    const int row = change.row < 0 ? -1 : change.row - grid()->fixedRows();
    switch (change.what) {
        case GridChange::What::Cells:
            showRow(row);
            break;
        case GridChange::What::Rows:
            gridTable().takeRows();
            showRows();
            break;
        case GridChange::What::Columns:
            gridTable().takeColumns();
            showColumns();
            break;
        case GridChange::What::Selection:
            if (row < 0) {
                selection().show();
            } else {
                selection().showRow(row);
            }
            break;
        case GridChange::What::Current:
            selection().showCurrent();
            break;
        case GridChange::What::Scroll:
            scrollTo(row);
            break;
        case GridChange::What::Top:
            scrollToTop(row);
            break;
        case GridChange::What::Font:
            showFont();
            break;
        case GridChange::What::All:
            gridTable().takeRows();
            gridTable().takeColumns();
            showFont();
            showAll();
            break;
    }
    describeCurrent();
}

void GridPeer::describeCurrent() {
    if (!description_ || grid() == nullptr) return;
    const int row = grid()->row();
    description_->show(table().current(), row < 0 ? std::string() : grid()->notes(row));
}

// --- what a person does -----------------------------------------------------------------------------------

std::optional<LRESULT> GridPeer::notified(NMHDR& header) {
    if (header.code == LVN_BEGINDRAG) {
        dragOut();
        return 0;
    }
    // The grid's own echo is muted: the window shows already what the person has done to it.
    const bool isSelection = header.code == LVN_ITEMCHANGED || header.code == LVN_ODSTATECHANGED;
    const auto quiet = isSelection ? gridChanged_.mute() : nullptr;
    const auto answer = TablePeer::notified(header);
    if (isSelection) describeCurrent();
    return answer;
}

void GridPeer::cellDoubleClicked(Cell cell) {
    ::KillTimer(window(), kSlowClick);
    if (isEditable(cell)) {
        edit(cell);
    } else {
        grid()->doubleClicked.raise(gridTable().gridRow(cell.row));
    }
}

void GridPeer::headingDoubleClicked(int) {
    grid()->doubleClicked.raise(0);
}

void GridPeer::headingPressed(int column, MouseButton button, POINT at) {
    const int col = gridTable().colOf(column);
    grid()->mousePressed.raise({button, col < 0 ? -1 : 0, col, scale().twips(at)});
}

void GridPeer::headingClicked(int column) {
    if (const int col = gridTable().colOf(column); col >= 0) grid()->headingClicked.raise(col);
}

void GridPeer::pressed(MouseButton button, POINT at) {
    const Cell cell = cellAt(at);
    grid()->mousePressed.raise(
        {button, gridTable().gridRow(cell.row), gridTable().colOf(cell.column), scale().twips(at)});
}

void GridPeer::takeCell(Cell cell, bool onlySelected) {
    if (cell.row < 0) return;
    const int row = gridTable().gridRow(cell.row);
    const int col = gridTable().colOf(cell.column);
    if (onlySelected && !grid()->isSelected(row)) {
        grid()->select(row, col);
    } else {
        grid()->setCurrent(row, col);
    }
}

bool GridPeer::keyDown(int keyCode) {
    if (keyCode == VK_F2 && editByKeyboard()) return true;
    if (control() == nullptr) return true;
    KeyPress press;
    press.keyCode = keyCode;
    press.shift = isDown(VK_SHIFT);
    press.control = isDown(VK_CONTROL);
    grid()->keyPressed.raise(press);
    if (press.handled || control() == nullptr) return true;
    return keyCode == VK_RETURN && !press.shift && !press.control && editByKeyboard();
}

void GridPeer::dragOut() {
    dragged_ = true;
    ::KillTimer(window(), kSlowClick);
    const DialogKeys::Off keysOff(form().keys());
    DragData data;
    grid()->dragStarted.raise(data);
    pellmark::dragOut(data, form().surroundings().trace());
}

// --- editing ----------------------------------------------------------------------------------------------

bool GridPeer::isEditable(Cell cell) const {
    const int col = gridTable().colOf(cell.column);
    return cell.row >= 0 && col >= 0 && grid()->colEditable(col);
}

bool GridPeer::editByKeyboard() {
    const int row = table().current();
    if (row < 0) return false;
    Cell cell{row, gridTable().columnOf(grid()->col())};
    for (int column = 0; !isEditable(cell) && column < table().columns(); ++column)
        cell.column = column;
    if (!isEditable(cell)) return false;
    edit(cell);
    return true;
}

namespace {

/// Held while an edit is being ended.
class EndOnce {
  public:
    explicit EndOnce(bool& ending) : ending_(ending) { ending_ = true; }
    EndOnce(const EndOnce&) = delete;
    EndOnce& operator=(const EndOnce&) = delete;
    ~EndOnce() { ending_ = false; }

  private:
    bool& ending_;
};

}  // namespace

void GridPeer::edit(Cell cell) {
    const int row = gridTable().gridRow(cell.row);
    const int col = gridTable().colOf(cell.column);
    scrollTo(cell);
    if (!grid()->beginEdit(row, col) || control() == nullptr) return;
    const auto ended = [this, cell](GridEditor::End how) {
        trap(form().surroundings().trace(), "GridPeer::endEdit", [&] { endEdit(cell, how); });
    };
    const ActivationContext::Active themed(form().surroundings().theme());
    editor_ = std::make_unique<GridEditor>(window(), cellRect(cell), grid()->comboList(row, col),
                                           grid()->editing()->text, font(),
                                           form().surroundings().operations(), ended);
}

void GridPeer::endEdit(Cell cell, GridEditor::End how) {
    // A handler that says why it refuses a value takes the keyboard to its box: that ends no edit.
    if (grid() == nullptr || !editor_ || ending_) return;
    const int rows = table().rows();
    const std::string id = grid()->rowData(gridTable().gridRow(cell.row));
    {
        const EndOnce once(ending_);
        if (how == GridEditor::End::Cancel) {
            grid()->cancelEdit();
        } else if (!grid()->commitEdit(editor_->value()) && how != GridEditor::End::LostFocus) {
            return;  // refused: the person stays in the cell
        }
        if (grid() == nullptr) return;
        if (grid()->isEditing()) grid()->cancelEdit();
        const auto gone = std::move(editor_);
    }
    // Storing the value may have taken the row away, or the grid.
    const bool isThere = grid() != nullptr && table().rows() == rows && table().current() == cell.row &&
                         grid()->rowData(gridTable().gridRow(cell.row)) == id;
    if (isThere && how == GridEditor::End::Next) editBeside(cell, 1);
    if (isThere && how == GridEditor::End::Previous) editBeside(cell, -1);
}

void GridPeer::editBeside(Cell cell, int step) {
    for (cell.column += step; cell.column >= 0 && cell.column < table().columns(); cell.column += step) {
        if (isEditable(cell)) return edit(cell);
    }
}

// --- messages ---------------------------------------------------------------------------------------------

std::optional<LRESULT> GridPeer::message(UINT message, WPARAM wParam, LPARAM lParam) {
    const POINT at{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    switch (message) {
        case WM_LBUTTONDOWN: {
            const Cell cell = cellAt(at);
            const bool wasCurrent =
                cell.row >= 0 && cell.row == table().current() && ::GetFocus() == window();
            dragged_ = false;
            const LRESULT result = moveSelection(message, wParam, lParam);
            if (control() == nullptr) return result;
            takeCell(cell, false);
            if (control() == nullptr) return result;
            pressed(MouseButton::Left, at);
            // Some versions of the control drag before they return from the press.
            if (control() == nullptr || dragged_ || isDown(VK_CONTROL) || isDown(VK_SHIFT) ||
                !isEditable(cell))
                return result;
            const bool hasChoices =
                !grid()->comboList(gridTable().gridRow(cell.row), gridTable().colOf(cell.column)).empty();
            if (hasChoices) {
                edit(cell);
            } else if (wasCurrent) {
                ::SetTimer(window(), kSlowClick, ::GetDoubleClickTime(), nullptr);
            }
            return result;
        }
        case WM_TIMER:
            if (wParam != kSlowClick) break;
            ::KillTimer(window(), kSlowClick);
            editByKeyboard();
            return 0;
        case WM_RBUTTONDOWN:
            ::SetFocus(window());
            takeCell(cellAt(at), true);
            return 0;
        case WM_RBUTTONUP:
            pressed(MouseButton::Right, at);
            return 0;
        case WM_MBUTTONDOWN:
            pressed(MouseButton::Middle, at);
            return 0;
        case WM_CONTEXTMENU:
            // The mouse has had its turn with the release of the button.
            if (lParam == -1) grid()->contextMenuRequested.raise();
            return 0;
        case WM_KEYDOWN:
            if (keyDown(static_cast<int>(wParam))) return 0;
            break;
        case WM_SYSKEYDOWN:
        case WM_SYSKEYUP:
            if (message == WM_SYSKEYDOWN && wParam == VK_DOWN) {
                // Once the window has seen it, the release of Alt is no longer meant for the host's menu bar.
                defaultMessage(window(), message, wParam, lParam);
                editByKeyboard();
                return 0;
            }
            // Left to the window, its release would open the host's menu bar over the context menu.
            if (wParam != VK_F10 || !isDown(VK_SHIFT)) break;
            if (message == WM_SYSKEYDOWN) grid()->contextMenuRequested.raise();
            return 0;
        case WM_COMMAND:
            if (editor_ && reinterpret_cast<HWND>(lParam) == editor_->window()) {
                // The box takes the choice over only after this notification.
                if (HIWORD(wParam) == CBN_SELENDOK) ::PostMessageW(window(), kCommitChoice, 0, 0);
                return 0;
            }
            break;
        case kCommitChoice:
            if (editor_) ::SetFocus(window());
            return 0;
        case WM_SIZE: {
            const auto answer = TablePeer::message(message, wParam, lParam);
            fitEditor();
            return answer;
        }
        case WM_VSCROLL:
        case WM_HSCROLL:
        case WM_MOUSEWHEEL:
            if (editor_) ::SetFocus(window());  // the box would stay behind
            break;
        default:
            break;
    }
    return TablePeer::message(message, wParam, lParam);
}

std::optional<LRESULT> GridPeer::innerMessage(HWND inner, UINT message, WPARAM wParam, LPARAM lParam) {
    if (editor_ && (message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN)) ::SetFocus(window());
    if (control() == nullptr) return std::nullopt;
    return TablePeer::innerMessage(inner, message, wParam, lParam);
}

}  // namespace pellmark
