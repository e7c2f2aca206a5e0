#pragma once

#include <memory>
#include <string>

#include "win32/WindowsApi.h"

struct IAccPropServices;

namespace pellmark {

/// What a screen reader says of the current row of a list beyond its texts: the meaning of its colours. It
/// stands at the row as the system's own annotation, so that everything else the list window says of itself
/// stays as it is. Where the system has no such service, nothing happens.
class RowDescription {
  public:
    /// Null for the system's service, which is made when there is something to say.
    explicit RowDescription(HWND list, IAccPropServices* service = nullptr);
    ~RowDescription();
    RowDescription(const RowDescription&) = delete;
    RowDescription& operator=(const RowDescription&) = delete;

    /// `row` counts from 0; a negative row or an empty text takes the last description away.
    void show(int row, const std::string& text);

  private:
    bool hasService();

    HWND list_;
    IAccPropServices* service_;
    bool asked_;
    int row_ = -1;
    std::string text_;
};

}  // namespace pellmark
