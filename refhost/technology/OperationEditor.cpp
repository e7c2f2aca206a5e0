#include "refhost/technology/OperationEditor.h"

#include <algorithm>
#include <cmath>
#include <utility>

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

OperationEditor::OperationEditor(Operation operation, CuttingTable table, LookUp lookUp)
    : operation_(std::move(operation)), table_(std::move(table)), lookUp_(std::move(lookUp)) {
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

std::string OperationEditor::lookedUp(const std::string& english) const {
    return lookUp_ && !english.empty() ? lookUp_(english) : english;
}

std::string OperationEditor::filled(const char* english, std::vector<Sentence> values) const {
    return Sentence(english, std::move(values)).in([this](const std::string& text) {
        return lookedUp(text);
    });
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
    return filled(sentence("%1 follows from the other values."), {shownCaption(definition)});
}

std::string OperationEditor::takeFromTable(char materialClass) {
    const auto work = workOf(operation_.cycle());
    const CuttingRow* row = work ? table_.find(materialClass, *work) : nullptr;
    if (row == nullptr) {
        return filled(sentence("The table of speeds and feeds has nothing for this material: %1."),
                      {lookedUp(std::string(operation_.cycle().name))});
    }
    std::string reason = lookedUp(norvex::takeFromTable(operation_, *row));
    refreshShown();
    return reason;
}

std::string OperationEditor::computeSpindleSpeed() {
    std::string reason = lookedUp(norvex::computeSpindleSpeed(operation_));
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
    const std::string cutting =
        withUnit(operation_.figure(code::kCuttingSpeed), *definitionOf(code::kCuttingSpeed));
    const std::string diameter =
        withUnit(operation_.figure(code::kToolDiameter), *definitionOf(code::kToolDiameter));
    if (speed == wanted) return filled(sentence("The spindle speed fits %1 at %2."), {cutting, diameter});
    return filled(sentence("%1 at %2 asks for a spindle speed of %3 1/min."),
                  {cutting, diameter, numberText(wanted)});
}

std::string OperationEditor::withUnit(double figure, const Definition& definition) const {
    const std::string unitName = unitText(definition.quantity, operation_.unit());
    const char* const gap = unitName.empty() || definition.quantity == Quantity::Angle ? "" : " ";
    return numberText(figure) + gap + unitName;
}

std::string OperationEditor::reasonAgainst(const Definition& definition, const std::string& text) const {
    if (definition.code == code::kOperationName && text.empty())
        return lookedUp(sentence("The operation needs a name."));
    if (text.empty()) return {};
    if (!definition.isText()) return reasonAgainstFigure(definition, text);
    if (pellmark::utf16Length(text) > pellmark::limit::kName) {
        return filled(sentence("%1 may have %2 characters at most."),
                      {shownCaption(definition), std::to_string(pellmark::limit::kName)});
    }
    const auto list = choices();
    const bool isOffered = std::find(list.begin(), list.end(), text) != list.end();
    if (definition.quantity == Quantity::Choice && !isOffered)
        return filled(sentence("%1 is one of %2."), {shownCaption(definition), listOfChoices()});
    return {};
}

std::string OperationEditor::reasonAgainstFigure(const Definition& definition,
                                                 const std::string& text) const {
    const std::string caption = shownCaption(definition);
    double figure = 0;
    if (!readNumber(text, figure))
        return filled(sentence("%1 must be a number; '%2' is none."), {caption, text});
    const bool isWhole = std::floor(figure) == figure;
    if (definition.quantity == Quantity::Count && !isWhole)
        return filled(sentence("%1 must be a whole number."), {caption});
    const double least = inUnit(definition.least, definition.quantity, operation_.unit());
    const double greatest = inUnit(definition.greatest, definition.quantity, operation_.unit());
    const bool isTooLittle = definition.aboveLeast ? figure <= least : figure < least;
    if (isTooLittle || figure > greatest) {
        const char* const limits = definition.aboveLeast ? sentence("%1 must be more than %2 and at most %3.")
                                                         : sentence("%1 must be at least %2 and at most %3.");
        return filled(limits, {caption, numberText(least), withUnit(greatest, definition)});
    }
    const double diameter = operation_.figure(code::kToolDiameter);
    if (definition.code == code::kWidthOfCut && diameter > 0 && figure > diameter) {
        return filled(sentence("A stepover of %1 is wider than the tool, which has %2."),
                      {withUnit(figure, definition), withUnit(diameter, definition)});
    }
    return {};
}

void OperationEditor::refreshShown() {
    if (operation_.find(code::kFeedRate) == nullptr) return;
    const double rate = feedRateOf(operation_);
    operation_.set(code::kFeedRate, rate > 0 ? Variant(rate) : Variant(), Origin::Default);
}

}  // namespace norvex
