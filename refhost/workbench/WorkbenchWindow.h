#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "refhost/windows/HostTexts.h"
#include "refhost/workbench/CommandLine.h"
#include "refhost/workbench/HostSession.h"
#include "refhost/workbench/ProcessManager.h"
#include "refhost/workbench/StatusLine.h"
#include "refhost/workbench/WorkbenchMenu.h"

namespace norvex {

/// The workbench's main window: a menu that calls the component, the area that the component's views are
/// placed in, and a status line that says what the last call came to.
class WorkbenchWindow {
  public:
    explicit WorkbenchWindow(const CommandLine& options);
    WorkbenchWindow(const WorkbenchWindow&) = delete;
    WorkbenchWindow& operator=(const WorkbenchWindow&) = delete;
    ~WorkbenchWindow();

    /// Makes the window, opens the knowledge base and the first view, and handles messages until the window
    /// is closed. Throws pellmark::Error when the window or the host's objects cannot be made.
    void run();

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM data);
    LRESULT handle(UINT message, WPARAM wide, LPARAM data);
    /// Not in the constructor: whatever fails, the destructor takes the window away.
    void start();
    void createWindows();
    void layOut();
    void fitView();
    /// Hands on what the system tells top-level windows alone.
    void tellViews(UINT message, WPARAM wide, LPARAM data);
    /// Hands the keyboard on to the view: without a mouse there would be no way from the frame into it.
    void focusView();
    /// Takes the texts and the menu of the host's language.
    void translate();
    /// The title says which knowledge base is open, or that none is.
    void showTitle();
    void command(int id);
    void showFirstView();
    /// Shows a view and keeps how that is done; what the call came to, in words.
    std::string shown(std::function<void()> show);
    void openKnowledgeBase(const std::string& file);
    void askForKnowledgeBase();
    void callForCase(int id);
    /// What a modal call came to, in words.
    std::string outcomeOf(int id, const std::string& result);
    /// Says so in the status line when there is none.
    bool hasKnowledgeBase();
    /// Shows the view that is shown anew, if there is one.
    void reopenView();
    void announceReady();
    /// Runs a call of the host or the component; its failure becomes one message. The status line says what
    /// the call answers, behind its name.
    void trapAndTell(const char* what, const std::function<std::string()>& call);
    void tell(const std::string& failure);

    CommandLine options_;
    HostTexts texts_;
    HWND window_ = nullptr;
    HWND area_ = nullptr;
    StatusLine status_;
    WorkbenchMenu menu_;
    std::unique_ptr<HostSession> session_;
    std::unique_ptr<ProcessManager> manager_;
    int firstShow_ = SW_SHOWNORMAL;
    bool readyPending_ = false;
    std::function<void()> showAgain_;  ///< the view that is shown; empty while there is none
};

}  // namespace norvex
