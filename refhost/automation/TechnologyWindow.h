#pragma once

#include <windows.h>

#include <exception>
#include <string>

#include "refhost/automation/ParameterGrid.h"
#include "refhost/technology/OperationEditor.h"

namespace norvex {

/// The window in which people set the technology of one operation: the editor with everything at once, or the
/// step wizard page by page.
class TechnologyWindow {
  public:
    enum class Style { Editor, Wizard };

    /// `materialClass` is what the table of speeds and feeds is asked for first; 0 when nobody knows.
    TechnologyWindow(Style style, OperationEditor editor, char materialClass);
    TechnologyWindow(const TechnologyWindow&) = delete;
    TechnologyWindow& operator=(const TechnologyWindow&) = delete;

    /// Shows the window over its owner until the person closes it. True when the values were taken over.
    bool show(HWND owner);
    const Operation& operation() const { return editor_.operation(); }

  private:
    static INT_PTR CALLBACK procedure(HWND dialog, UINT message, WPARAM wide, LPARAM data);
    INT_PTR handle(UINT message, WPARAM wide, LPARAM data);
    INT_PTR command(int control, int notification);
    void fill();
    void fillMaterials();
    void layOut();
    bool pageIsSound();
    void goTo(int page);
    void accept();
    void takeFromTable();
    void tell(const std::string& reason);
    void afterTrying(const std::string& reason);
    HWND control(int id) const { return GetDlgItem(dialog_, id); }
    bool isWizard() const { return style_ == Style::Wizard; }

    Style style_;
    HostTexts texts_;
    OperationEditor editor_;
    ParameterGrid grid_;
    char materialClass_;
    HWND dialog_ = nullptr;
    SIZE least_{};
    int page_ = 0;
    bool isRefused_ = false;  ///< the line below the grid says why, in red
    std::exception_ptr failure_;
};

}  // namespace norvex
