#pragma once

#include <windows.h>

#include <string>

namespace norvex {

/// A plain dialog in which the user writes a rule, with the terms that rules know to pick from.
class ExpressionDialog {
  public:
    explicit ExpressionDialog(std::string rule) : rule_(std::move(rule)) {}

    /// Shows the dialog until the user closes it. The rule as it was changed, or "" after a cancel.
    std::string show(HWND owner);

  private:
    static INT_PTR CALLBACK procedure(HWND dialog, UINT message, WPARAM wide, LPARAM data);
    void fill(HWND dialog) const;
    INT_PTR command(HWND dialog, WPARAM wide);
    static void insertTerm(HWND dialog);

    std::string rule_;
};

}  // namespace norvex
