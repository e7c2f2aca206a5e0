#pragma once

#include <functional>
#include <string>

#include "controls/grid/DisplayList.h"
#include "win32/WindowsApi.h"

namespace pellmark {

/// The box laid over a grid's cell while it is edited: a drop-down list where there are choices, a line of
/// text otherwise. It reports how the person ended it and decides nothing about the value.
class GridEditor {
  public:
    enum class End { Commit, Cancel, LostFocus };
    /// May destroy the editor.
    using Ended = std::function<void(End)>;

    GridEditor(HWND list, const RECT& cell, const DisplayList& choices, const std::string& stored, HFONT font,
               Ended ended);
    ~GridEditor();
    GridEditor(const GridEditor&) = delete;
    GridEditor& operator=(const GridEditor&) = delete;

    HWND window() const { return box_; }
    /// The stored value of what the box shows.
    std::string value() const;

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR editor) noexcept;
    void makeList(const RECT& cell, const std::string& stored);
    void makeLine(const RECT& cell, const std::string& stored);
    void end(End how);

    HWND list_;
    DisplayList choices_;
    std::string stored_;
    HWND box_ = nullptr;
    Ended ended_;
};

}  // namespace pellmark
