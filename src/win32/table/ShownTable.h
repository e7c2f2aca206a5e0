#pragma once

#include <functional>
#include <string>

#include "base/Font.h"
#include "base/Geometry.h"
#include "controls/grid/CellStyles.h"

namespace pellmark {

/// A grid or a report list as its window shows it: data rows from 0, shown columns from 0 in the order of
/// the screen. Calls may come after the model has gone; they then answer nothing and do nothing.
class ShownTable {
  public:
    virtual ~ShownTable() = default;

    virtual int columns() const = 0;
    virtual std::string heading(int column) const = 0;
    virtual Twips width(int column) const = 0;
    /// 1 where the rows rise by this column, -1 where they fall, 0 where they stand by something else.
    virtual int sorting(int /*column*/) const { return 0; }
    /// True while the last column is to reach the window's edge at least.
    virtual bool stretchesLast() const = 0;
    /// Takes over the width that the last column is drawn with.
    virtual void userTookWidth(int column, Twips width) = 0;
    virtual void userResized(int column, Twips width) = 0;
    virtual void userMoved(int from, int to) = 0;

    virtual Font font() const = 0;
    virtual int rows() const = 0;
    virtual std::string text(int row, int column) const = 0;
    virtual CellStyle style(int row, int column) const = 0;
    /// False where the selection is drawn in the paler colour.
    virtual bool activeLook() const = 0;

    virtual int current() const = 0;
    virtual void setCurrent(int row) = 0;
    virtual int selectedCount() const = 0;
    /// The first and last row of each run of selected rows, from the top.
    virtual void eachSelected(const std::function<void(int first, int last)>& visit) const = 0;
    virtual bool isSelected(int row) const = 0;
    /// Both ends belong to the rows.
    virtual void setSelected(int first, int last, bool selected) = 0;
    virtual void selectOnly(int first, int last) = 0;
    virtual void clearSelection() = 0;
    virtual void selectAll() = 0;
};

}  // namespace pellmark
