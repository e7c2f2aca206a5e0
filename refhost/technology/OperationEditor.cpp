#include "refhost/technology/OperationEditor.h"

#include <algorithm>
#include <cmath>

#include "base/Text.h"
#include "knowledge/Records.h"
#include "refhost/technology/Codes.h"

namespace norvex {

namespace {

using pellmark::Variant;

std::string trimmed(const std::string& text) {
    constexpr const char* kBlanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// What a person types may carry a decimal comma.
std::string withPoint(const std::string& typed) {
    const bool isOneComma = std::count(typed.begin(), typed.end(), ',') == 1;
    return isOneComma && typed.find('.') == std::string::npos ? pellmark::replaced(typed, ',', '.') : typed;
}

std::string listOfChoices() {
    std::string list;
    for (const char* choice : choices())
        list += (list.empty() ? "" : ", ") + std::string(choice);
    return list;
}

}  // namespace

OperationEditor::OperationEditor(Operation operation, CuttingTable table)
    : operation_(std::move(operation)), table_(std::move(table)) {
    showGroup(std::nullopt);
    refreshShown();
}

void OperationEditor::showGroup(std::optional<Group> group) {
    shown_.clear();
    for (const Parameter& parameter : operation_.parameters()) {
        if (!group || parameter.definition->group == *group) shown_.push_back(parameter.code());
    }
}

const Parameter& OperationEditor::parameterAt(std::size_t index) const {
    return *operation_.find(shown_.at(index));
}

EditorRow OperationEditor::row(std::size_t index) const {
    const Parameter& parameter = parameterAt(index);
    const Definition& definition = *parameter.definition;
    const bool isShown = definition.kind == kKindShown;
    const std::string value = textOf(definition.code);
    EditorRow row{captionOf(definition),
                  value,
                  unitText(definition.quantity, operation_.unit()),
                  {},
                  !isShown,
                  definition.quantity == Quantity::Choice};
    if (!value.empty()) row.source = isShown ? originText(Origin::Formula) : originText(parameter.origin);
    return row;
}

/// On the lathe it is the part that turns, and its diameter that counts.
std::string OperationEditor::captionOf(const Definition& definition) const {
    const bool isPart = (operation_.cycle().family & ~static_cast<std::uint32_t>(kOnTheLathe)) == 0;
    if (definition.code == code::kToolDiameter && isPart) return "Part diameter";
    return definition.code == code::kOperationName ? "Operation name" : definition.caption;
}

/// The name is the one under which the step is known; the parameter may still have an older one.
std::string OperationEditor::textOf(std::int32_t code) const {
    return code == code::kOperationName ? operation_.name() : operation_.text(code);
}

std::string OperationEditor::setText(std::size_t index, const std::string& typed) {
    const Definition& definition = *parameterAt(index).definition;
    std::string text = trimmed(typed);
    if (!definition.isText()) text = withPoint(text);
    if (text == textOf(definition.code)) return {};
    if (std::string reason = lockOf(index); !reason.empty()) return reason;
    if (std::string reason = reasonAgainst(definition, text); !reason.empty()) return reason;
    double figure = 0;
    Variant value = text;
    if (text.empty()) {
        value = Variant();
    } else if (!definition.isText() && readNumber(text, figure)) {
        value = figure;
    }
    operation_.set(definition.code, value, Origin::User);
    if (definition.code == code::kOperationName) operation_.setName(text);
    refreshShown();
    return {};
}

std::string OperationEditor::lockOf(std::size_t index) const {
    const Definition& definition = *parameterAt(index).definition;
    if (definition.kind != kKindShown) return {};
    return captionOf(definition) + " follows from the other values.";
}

std::string OperationEditor::takeFromTable(char materialClass) {
    const auto work = workOf(operation_.cycle());
    const CuttingRow* row = work ? table_.find(materialClass, *work) : nullptr;
    if (row == nullptr) {
        return "The table of speeds and feeds has nothing for " +
               pellmark::lowerAscii(operation_.cycle().name) + " in this material.";
    }
    std::string reason = norvex::takeFromTable(operation_, *row);
    refreshShown();
    return reason;
}

std::string OperationEditor::computeSpindleSpeed() {
    std::string reason = norvex::computeSpindleSpeed(operation_);
    refreshShown();
    return reason;
}

std::optional<OperationEditor::Problem> OperationEditor::problem() const {
    for (std::size_t index = 0; index < shown_.size(); ++index) {
        const Definition& definition = *parameterAt(index).definition;
        if (definition.kind == kKindShown) continue;
        std::string reason = reasonAgainst(definition, textOf(definition.code));
        if (!reason.empty()) return Problem{std::move(reason), index};
    }
    return std::nullopt;
}

std::string OperationEditor::hint() const {
    const double wanted = spindleSpeedOf(operation_);
    if (wanted == 0) return {};
    const double speed = operation_.figure(code::kSpindleSpeed);
    const std::string figures =
        withUnit(operation_.figure(code::kCuttingSpeed), *definitionOf(code::kCuttingSpeed)) + " at " +
        withUnit(operation_.figure(code::kToolDiameter), *definitionOf(code::kToolDiameter));
    if (speed == wanted) return "The spindle speed fits " + figures + ".";
    return figures + " asks for a spindle speed of " + numberText(wanted) + " 1/min.";
}

std::string OperationEditor::withUnit(double figure, const Definition& definition) const {
    const std::string unitName = unitText(definition.quantity, operation_.unit());
    const char* const gap = unitName.empty() || definition.quantity == Quantity::Angle ? "" : " ";
    return numberText(figure) + gap + unitName;
}

std::string OperationEditor::reasonAgainst(const Definition& definition, const std::string& text) const {
    if (definition.code == code::kOperationName && text.empty()) return "The operation needs a name.";
    if (text.empty()) return {};
    if (!definition.isText()) return reasonAgainstFigure(definition, text);
    if (pellmark::utf16Length(text) > pellmark::limit::kName) {
        return captionOf(definition) + " may have " + std::to_string(pellmark::limit::kName) +
               " characters at most.";
    }
    const auto list = choices();
    const bool isOffered = std::find(list.begin(), list.end(), text) != list.end();
    if (definition.quantity == Quantity::Choice && !isOffered)
        return captionOf(definition) + " is one of " + listOfChoices() + ".";
    return {};
}

std::string OperationEditor::reasonAgainstFigure(const Definition& definition,
                                                 const std::string& text) const {
    const std::string caption = captionOf(definition);
    double figure = 0;
    if (!readNumber(text, figure)) return caption + " must be a number; \"" + text + "\" is none.";
    const bool isWhole = std::floor(figure) == figure;
    if (definition.quantity == Quantity::Count && !isWhole) return caption + " must be a whole number.";
    const double least = inUnit(definition.least, definition.quantity, operation_.unit());
    const double greatest = inUnit(definition.greatest, definition.quantity, operation_.unit());
    const bool isTooLittle = definition.aboveLeast ? figure <= least : figure < least;
    if (isTooLittle || figure > greatest) {
        return caption + (definition.aboveLeast ? " must be more than " : " must be at least ") +
               numberText(least) + " and at most " + withUnit(greatest, definition) + ".";
    }
    const double diameter = operation_.figure(code::kToolDiameter);
    if (definition.code == code::kWidthOfCut && diameter > 0 && figure > diameter) {
        return "A stepover of " + withUnit(figure, definition) + " is wider than the tool, which has " +
               withUnit(diameter, definition) + ".";
    }
    return {};
}

void OperationEditor::refreshShown() {
    if (operation_.find(code::kFeedRate) == nullptr) return;
    const double rate = feedRateOf(operation_);
    operation_.set(code::kFeedRate, rate > 0 ? Variant(rate) : Variant(), Origin::Default);
}

}  // namespace norvex
