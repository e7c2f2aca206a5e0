#include "controls/grid/Grid.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"

namespace pellmark {

using What = GridChange::What;

Grid::Grid(Container& parent, std::string name) : Control(Kind::Grid, &parent, std::move(name)) {}

Grid::~Grid() = default;

// --- shape -------------------------------------------------------------------------------------------------

void Grid::setRows(int rows) {
    RedrawOff off(*this);
    while (this->rows() < rows)
        addRow();
    while (this->rows() > std::max(rows, fixedRows()))
        removeRow(this->rows() - 1);
}

void Grid::setCols(int cols) {
    columns_.resize(cols);
    fixedCols_ = std::min(fixedCols_, columns_.count());
    cells_.matchFields(columns_);
    notify({What::Columns});
}

void Grid::setFixedCols(int cols) {
    fixedCols_ = std::clamp(cols, 0, columns_.count());
    notify({What::Columns});
}

void Grid::setHeadings(const std::string& headings) {
    const std::vector<std::string> texts = split(headings, '|');
    columns_.resize(static_cast<int>(texts.size()));
    for (int col = 0; col < cols(); ++col)
        columns_.at(col).heading = texts[static_cast<std::size_t>(col)];
    cells_.matchFields(columns_);
    notify({What::Columns});
}

// --- columns -----------------------------------------------------------------------------------------------

void Grid::setColKey(int col, const std::string& key) {
    columns_.at(col).key = key;
    cells_.matchFields(columns_);
}

void Grid::setColWidth(int col, Twips width) {
    change(columns_.at(col).width, std::max(width, 0), What::Columns);
}

void Grid::setWidthsChosen(bool chosen) {
    change(widthsChosen_, chosen, What::Columns);
}

void Grid::setColHidden(int col, bool hidden) {
    change(columns_.at(col).hidden, hidden, What::Columns);
}

void Grid::setColPosition(int col, int position) {
    if (columns_.positionOf(col) == position) return;
    columns_.move(col, position);
    notify({What::Columns});
}

void Grid::setColPositions(std::vector<ColPosition> wanted) {
    // From the left: a column that is put in its place is moved no more by those that follow.
    std::stable_sort(wanted.begin(), wanted.end(), [](const ColPosition& left, const ColPosition& right) {
        return left.position < right.position;
    });
    RedrawOff off(*this);
    for (const ColPosition& each : wanted)
        setColPosition(each.col, each.position);
}

void Grid::setColComboList(int col, const std::string& list) {
    columns_.at(col).list = DisplayList(list);
    notify({What::Cells});
}

void Grid::setColEditable(int col, bool editable) {
    columns_.at(col).editable = editable;
}

void Grid::setRowComboList(int row, int col, const std::string& list) {
    if (!rows_.isData(row) || !columns_.contains(col)) return;
    cells_.setList(rows_.slotOf(row), col, list);
    notify({What::Cells, row});
}

const DisplayList& Grid::comboList(int row, int col) const {
    const DisplayList* own = rows_.isData(row) ? cells_.list(rows_.slotOf(row), col) : nullptr;
    return own != nullptr ? *own : columns_.at(col).list;
}

void Grid::setSortMark(const SortMark& mark) {
    change(sortMark_, mark, What::Columns);
}

void Grid::userResizedColumn(int col, Twips width) {
    {
        const RedrawOff off(*this);
        setColWidth(col, width);
        setWidthsChosen(true);
    }
    colResized.raise(col);
}

void Grid::userTookWidth(int col, Twips width) {
    columns_.at(col).width = std::max(width, 0);
    widthsChosen_ = true;
}

void Grid::userMovedColumn(int col, int position) {
    setColPosition(col, position);
    colMoved.raise(col);
}

// --- data --------------------------------------------------------------------------------------------------

void Grid::bind(std::shared_ptr<RecordSet> records) {
    cancelEdit();
    const std::size_t count = records ? records->count() : 0;
    cells_.bind(std::move(records));
    cells_.matchFields(columns_);
    const bool hadCurrent = row() >= 0;
    selection_.reset();
    rows_.order().reset(count);
    styles_.clear();
    col_ = 0;
    notify({What::All});
    if (hadCurrent) currentMoved();
}

std::string Grid::text(int row, int col) const {
    if (!columns_.contains(col) || row < 0 || row >= rows()) return {};
    if (row < fixedRows()) return row == 0 ? columns_.at(col).heading : std::string();
    return cells_.text(rows_.slotOf(row), col);
}

std::string Grid::displayText(int row, int col) const {
    std::string shown;
    appendDisplayText(row, col, shown);
    return shown;
}

void Grid::appendDisplayText(int row, int col, std::string& out) const {
    if (!rows_.isData(row) || !columns_.contains(col)) {
        out += text(row, col);
        return;
    }
    const std::size_t slot = rows_.slotOf(row);
    const DisplayList& list = comboList(row, col);
    if (list.empty()) {
        cells_.appendText(slot, col, out);
    } else {
        out += list.shownFor(cells_.text(slot, col));
    }
}

void Grid::setText(int row, int col, std::string value) {
    if (!columns_.contains(col) || row < 0 || row >= rows()) return;
    if (row < fixedRows()) {
        columns_.at(col).heading = std::move(value);
        notify({What::Columns});
        return;
    }
    cells_.setText(rows_.slotOf(row), col, std::move(value));
    notify({What::Cells, row});
}

std::string Grid::rowData(int row) const {
    return rows_.isData(row) ? cells_.key(rows_.slotOf(row)) : std::string();
}

void Grid::setRowData(int row, const std::string& data) {
    if (rows_.isData(row)) cells_.setKey(rows_.slotOf(row), data);
}

void Grid::setRowDataFromColumn(int col) {
    if (!columns_.contains(col)) return;
    cells_.setKeysFromColumn(col, rows_.order());
}

int Grid::findRow(std::string_view rowData) const {
    const auto slot = cells_.find(rowData, rows_.order());
    return slot ? rows_.rowOf(*slot) : -1;
}

int Grid::findRow(const Guid& rowData) const {
    const auto slot = cells_.find(rowData, rows_.order());
    return slot ? rows_.rowOf(*slot) : -1;
}

int Grid::addRow() {
    rows_.order().append();
    notify({What::Rows});
    return rows() - 1;
}

void Grid::removeRow(int row) {
    if (!rows_.isData(row)) return;
    if (editing_ && editing_->row >= row) cancelEdit();
    const bool wasCurrent = selection_.remove(row);
    rows_.order().remove(rows_.slotOf(row));
    notify({What::Rows});
    if (wasCurrent) currentMoved();
}

// --- appearance --------------------------------------------------------------------------------------------

void Grid::setFont(const Font& font) {
    change(font_, font, What::Font);
}

CellStyle Grid::style(int row, int col) const {
    return rows_.isData(row) ? styles_.at(rows_.slotOf(row), col) : CellStyle{};
}

void Grid::setStyle(int row, int col, const std::function<void(CellStyle&)>& change) {
    if (!rows_.isData(row) || !columns_.contains(col)) return;
    const std::size_t slot = rows_.slotOf(row);
    CellStyle style = styles_.at(slot, col);
    change(style);
    styles_.set(slot, col, style);
    notify({What::Cells, row});
}

void Grid::setForeColor(int row, int col, Color color) {
    setStyle(row, col, [color](CellStyle& style) { style.fore = color; });
}

void Grid::setBackColor(int row, int col, Color color) {
    setStyle(row, col, [color](CellStyle& style) { style.back = color; });
}

void Grid::setItalic(int row, int col, bool italic) {
    setStyle(row, col, [italic](CellStyle& style) { style.italic = italic; });
}

void Grid::setPicture(int row, int col, int picture) {
    setStyle(row, col, [picture](CellStyle& style) { style.picture = picture; });
}

void Grid::setNote(int row, int col, const std::string& note) {
    setStyle(row, col, [&note](CellStyle& style) { style.note = note; });
}

std::string Grid::notes(int row) const {
    std::string all;
    for (int col = 0; col < cols(); ++col) {
        const std::string note = style(row, col).note;
        if (!note.empty()) all += (all.empty() ? "" : ", ") + note;
    }
    return all;
}

void Grid::setColumnForeColor(int col, Color color) {
    if (!columns_.contains(col)) return;
    styles_.changeColumn(col, [color](CellStyle& style) {
        style.fore = color;
        style.note.clear();
    });
    notify({What::Cells});
}

void Grid::setActiveLook(bool active) {
    change(activeLook_, active, What::Cells);
}

// --- current cell and selection ----------------------------------------------------------------------------

void Grid::select(int row, int col) {
    selection_.clear();
    if (const auto block = rows_.dataBetween(row, row)) selection_.set(*block, true);
    notify({What::Selection});
    setCurrent(row, col);
}

void Grid::setCurrent(int row, int col) {
    const bool otherRow = selection_.setCurrent(row);
    col_ = columns_.contains(col) ? col : 0;
    notify({What::Current});
    if (otherRow) currentMoved();
}

void Grid::showCell(int row, int) {
    if (rows_.isData(row)) notify({What::Scroll, row});
}

int Grid::topRow() {
    int top = fixedRows();
    topRowAsked.raise(top);
    return top;
}

void Grid::setTopRow(int row) {
    if (rows_.isData(row)) notify({What::Top, row});
}

void Grid::setSelected(int row1, int row2, bool selected) {
    const auto block = rows_.dataBetween(row1, row2);
    if (!block || (row1 == row2 && isSelected(row1) == selected)) return;
    selection_.set(*block, selected);
    notify({What::Selection, row1 == row2 ? row1 : -1});
}

void Grid::selectOnly(int row1, int row2) {
    const auto block = rows_.dataBetween(row1, row2);
    if (!block) {
        clearSelection();
        return;
    }
    selection_.selectOnly(*block);
    notify({What::Selection});
}

void Grid::selectAll() {
    if (hasData()) setSelected(fixedRows(), rows() - 1, true);
}

void Grid::selectBlock(int row1, int col1, int row2, int) {
    selection_.clear();
    const auto block = rows_.dataBetween(row1, row2);
    if (block) selection_.set(*block, true);
    notify({What::Selection});
    if (block) setCurrent(std::clamp(row1, block->first, block->last), col1);
}

void Grid::clearSelection() {
    selection_.clear();
    notify({What::Selection});
}

// --- in-place editing --------------------------------------------------------------------------------------

bool Grid::beginEdit(int row, int col) {
    if (editing_ || !rows_.isData(row) || !columns_.contains(col) || !columns_.at(col).editable) return false;
    const std::string id = rowData(row);
    const std::string before = text(row, col);
    CellEdit edit{row, col, before, false};
    beforeEdit.raise(edit);
    // Whoever was asked may have let others act: the row may be another one by now, or gone.
    const bool isSame = rows_.isData(row) && rowData(row) == id && text(row, col) == before;
    if (edit.cancel || editing_ || !isSame) return false;
    editing_ = edit;
    return true;
}

bool Grid::commitEdit(const std::string& value) {
    if (!editing_) return false;
    const int row = editing_->row;
    const int col = editing_->col;
    if (value != editing_->text) {
        CellEdit edit{row, col, value, false};
        validateEdit.raise(edit);
        // Where the rows have changed meanwhile, the edit has ended with them.
        if (edit.cancel || !editing_) return false;
        editing_.reset();
        setText(row, col, edit.text);
        afterEdit.raise(row, col);
        return true;
    }
    editing_.reset();
    return true;
}

void Grid::cancelEdit() {
    editing_.reset();
}

// --- redrawing ---------------------------------------------------------------------------------------------

template <typename T>
void Grid::change(T& property, const T& value, What what) {
    if (property == value) return;
    property = value;
    notify({what});
}

void Grid::notify(GridChange change) {
    if (held_.isHolding()) {
        held_.hold(change);
    } else {
        gridChanged.raise(change);
    }
}

void Grid::currentMoved() {
    if (!held_.isHolding()) rowChanged.raise();
}

void Grid::redrawOff() {
    if (held_.begin()) currentBefore_ = {row(), rowData(row())};
}

void Grid::redrawOn() {
    if (!held_.end()) return;
    const bool moved = currentBefore_ != Current{row(), rowData(row())};
    for (const GridChange& change : held_.take()) {
        const bool scrolls = change.what == What::Scroll || change.what == What::Top;
        if (!scrolls || rows_.isData(change.row)) gridChanged.raise(change);
    }
    if (moved) rowChanged.raise();
}

}  // namespace pellmark
