#pragma once

#include <windows.h>

#include <functional>
#include <ostream>
#include <string>

#include "com/LoadedServer.h"
#include "com/TestObject.h"
#include "support/win32/ResourceCounts.h"

namespace pellmark {

/// What a process holds of all that a component might leave behind.
struct Holdings {
    test::ResourceCounts objects;
    long threads = 0;
    long temporaryFiles = 0;
    long references = 0;   ///< to the host's object
    double mebibytes = 0;  ///< of memory that is this process's own

    Holdings operator-(const Holdings& before) const;
};
std::ostream& operator<<(std::ostream& out, const Holdings& holdings);

/// What a person does with the component in a day, again and again in one process: both views, every dialog,
/// sorting, finding, refreshing, copying, the commands of the menus, each language in turn. Real windows, the
/// built DLL, and the reference host's knowledge base of its own.
class WorkingDay {
  public:
    WorkingDay();
    WorkingDay(const WorkingDay&) = delete;
    WorkingDay& operator=(const WorkingDay&) = delete;
    ~WorkingDay();

    /// One turn through everything. Throws std::runtime_error when a window that it needs does not come.
    void turn();
    /// How many dialogs, menus and boxes have been open so far.
    int windowsSeen() const { return windowsSeen_; }
    Holdings holdings() const;

  private:
    class Answering;

    void prepareKnowledgeBase();
    void inProcessesView();
    void inCaseView();
    void pickAndEdit();
    void workInList(HWND list, bool ofCase);
    void command(HWND list, int placeFromBelow);
    void answered(WORD key, const std::function<void()>& act);
    HWND listAt(int index) const;

    Apartment apartment_;
    LoadedServer server_;
    HWND window_;
    ComPtr<TestObject> host_ = TestObject::make();
    ComPtr<TestObject> settings_ = TestObject::make();
    ComPtr<TestObject> owner_ = TestObject::make();
    ComPtr<_Application> object_;
    std::string featureType_;
    std::string value_;
    int turns_ = 0;
    int windowsSeen_ = 0;
};

}  // namespace pellmark
