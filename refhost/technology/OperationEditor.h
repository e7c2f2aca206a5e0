#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "refhost/technology/CuttingTable.h"
#include "refhost/technology/Operation.h"
#include "refhost/texts/Sentence.h"

namespace norvex {

/// One line of the grid in which people edit an operation.
struct EditorRow {
    std::string caption;
    std::string value;
    std::string unit;
    std::string source;
    bool isEditable = true;  ///< what follows from the others is only shown
    bool isChoice = false;   ///< a list offers its values
};

/// What the editor and the step wizard compute and refuse, without any window. Works on a copy of the
/// operation; who accepts the result takes it from operation(). What it tells a person is looked up; captions
/// and sources of rows are English.
class OperationEditor {
  public:
    /// May be empty: what it tells is English then.
    using LookUp = Sentence::LookUp;

    OperationEditor(Operation operation, CuttingTable table, LookUp lookUp = {});

    /// Shows the parameters of one page of the wizard only; nothing for all of them.
    void showGroup(std::optional<Group> group);
    std::size_t count() const { return shown_.size(); }
    EditorRow row(std::size_t index) const;

    /// Why nobody types into that row; "" where people may.
    std::string lockOf(std::size_t index) const;
    /// Puts what a person typed into a row. Returns why it is impossible; "" when it was done. The row then
    /// keeps what it had.
    std::string setText(std::size_t index, const std::string& typed);
    /// Speed and feed out of the table for a material class. Returns why it is impossible, or "".
    std::string takeFromTable(char materialClass);
    /// Returns why it is impossible, or "".
    std::string computeSpindleSpeed();

    /// What is wrong with the operation as a whole, and in which row of those shown; nothing when it can be
    /// accepted.
    struct Problem {
        std::string reason;
        std::size_t row = 0;
    };
    std::optional<Problem> problem() const;
    /// One line about the figures as they are now.
    std::string hint() const;

    const CuttingTable& table() const { return table_; }
    const Operation& operation() const { return operation_; }

  private:
    const Parameter& parameterAt(std::size_t index) const;
    std::string captionOf(const Definition& definition) const;
    std::string shownCaption(const Definition& definition) const { return lookedUp(captionOf(definition)); }
    std::string lookedUp(const std::string& english) const;
    /// A sentence looked up, with its values.
    std::string filled(const char* english, std::vector<Sentence> values) const;
    std::string textOf(std::int32_t code) const;
    std::string reasonAgainst(const Definition& definition, const std::string& text) const;
    std::string reasonAgainstFigure(const Definition& definition, const std::string& text) const;
    std::string withUnit(double figure, const Definition& definition) const;
    void refreshShown();

    Operation operation_;
    CuttingTable table_;
    LookUp lookUp_;
    std::vector<std::int32_t> shown_;  ///< codes, row by row
};

}  // namespace norvex
