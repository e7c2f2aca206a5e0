#pragma once

#include <functional>
#include <string>

#include "automation/Automation.h"
#include "refhost/technology/OperationEditor.h"
#include "refhost/windows/HostTexts.h"

namespace norvex {

/// The list in which people read and change the parameters of an operation. F2, a double click or simply
/// typing edits the value of the row in place; Enter takes it and goes on, Escape leaves it as it was.
class ParameterGrid {
  public:
    /// Borrows both.
    ParameterGrid(OperationEditor& editor, const HostTexts& texts) : editor_(editor), texts_(texts) {}
    ParameterGrid(const ParameterGrid&) = delete;
    ParameterGrid& operator=(const ParameterGrid&) = delete;

    /// Called after each attempt to change a value, with the reason why it was refused or "".
    std::function<void(const std::string& reason)> tried;

    /// Takes over a list view of the dialog.
    void attach(HWND list);
    /// Shows the rows that the editor has now.
    void fill();
    /// Shows what the rows have now.
    void refresh();
    void place(const RECT& area);
    void select(std::size_t row);
    /// Begins to change the value of the selected row; `first` is the character that the person typed.
    void beginEdit(wchar_t first = 0);
    /// Ends it. False when the value is refused; the person is still editing then.
    bool endEdit();
    void cancelEdit();
    /// What the dialog is told by the list. True when the answer in `result` counts.
    bool notified(const NMHDR& header, LRESULT& result);

  private:
    enum class Move { Stay, Down, Up };

    static LRESULT CALLBACK listProcedure(HWND window, UINT message, WPARAM wide, LPARAM data);
    static LRESULT CALLBACK inputProcedure(HWND window, UINT message, WPARAM wide, LPARAM data);
    /// True when the message has been dealt with.
    bool listMessage(UINT message, WPARAM wide);
    bool inputMessage(UINT message, WPARAM wide);
    bool inputKey(WPARAM key);
    bool finish(Move move);
    /// Leaves a little room between the lines, and for the box over a value. The list owns what does it.
    void spaceRows();
    void addColumns();
    void fitColumns();
    void setCell(int row, int column, const std::string& text);
    int selected() const;
    HWND makeInput(const EditorRow& row, const RECT& cell);

    OperationEditor& editor_;
    const HostTexts& texts_;
    HWND list_ = nullptr;
    HWND input_ = nullptr;
    WNDPROC listBefore_ = nullptr;
    WNDPROC inputBefore_ = nullptr;
    int inputRow_ = -1;
    bool isEnding_ = false;
};

}  // namespace norvex
