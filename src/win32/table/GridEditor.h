#pragma once

#include <functional>
#include <optional>
#include <string>

#include "controls/grid/DisplayList.h"
#include "win32/WindowsApi.h"
#include "win32/controls/WindowHook.h"

namespace pellmark {

/// The box laid over a grid's cell while it is edited: a drop-down list where there are choices, a line of
/// text otherwise. It reports how the person ended it and decides nothing about the value.
class GridEditor : public WindowHook::Owner {
  public:
    /// Next and Previous are commits after which the person wants to go on in another cell of the row.
    enum class End { Commit, Next, Previous, Cancel, LostFocus };
    /// May destroy the editor.
    using Ended = std::function<void(End)>;

    GridEditor(HWND list, const RECT& cell, const DisplayList& choices, const std::string& stored, HFONT font,
               const Operations& operations, Ended ended);
    ~GridEditor();
    GridEditor(const GridEditor&) = delete;
    GridEditor& operator=(const GridEditor&) = delete;

    HWND window() const { return box_; }
    /// The cell has moved, or has another font.
    void fit(const RECT& cell, HFONT font);
    /// The stored value of what the box shows.
    std::string value() const;

  private:
    std::optional<LRESULT> seen(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept override;
    void makeList(const std::string& stored);
    void makeLine(const std::string& stored);
    void end(End how);

    HWND list_;
    DisplayList choices_;
    std::string stored_;
    HWND box_ = nullptr;
    Ended ended_;
    std::optional<WindowHook> hook_;
};

}  // namespace pellmark
