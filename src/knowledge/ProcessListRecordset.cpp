#include "knowledge/ProcessListRecordset.h"

#include <charconv>

#include "base/Error.h"
#include "base/Ids.h"
#include "knowledge/FieldLimits.h"

namespace pellmark {

namespace {

constexpr const char* kSource = "ProcessListRecordset";
constexpr std::string_view kFilterHead = "(_Unit  = ";

void checkGuid(const std::string& text, const char* field) {
    if (!text.empty() && !Guid::parse(text)) {
        throw Error(errors::kTypeMismatch, kSource,
                    "'" + text + "' in the field " + field + " is not a GUID.");
    }
}

std::optional<std::int32_t> unitOfFilter(std::string_view filter) {
    if (filter.size() <= kFilterHead.size() || !filter.starts_with(kFilterHead) || filter.back() != ')') {
        return std::nullopt;
    }
    const std::string_view number = filter.substr(kFilterHead.size(), filter.size() - kFilterHead.size() - 1);
    std::int32_t value = -1;
    const auto [end, failure] = std::from_chars(number.data(), number.data() + number.size(), value);
    const bool whole = failure == std::errc{} && end == number.data() + number.size();
    return whole && value >= 0 ? std::optional(value) : std::nullopt;
}

}  // namespace

ProcessListRecordset::ProcessListRecordset()
    : rows_({field::kId, field::kFeatureCaseId, field::kName, field::kUnit, field::kRule,
             field::kDescription}) {}

void ProcessListRecordset::addRow(const pNode& node) {
    checkGuid(node.id, field::kId);
    checkGuid(node.FeatureCaseId, field::kFeatureCaseId);
    checkLength(node.Name, limit::kName, "name", kSource);
    checkLength(node.Rule, limit::kRule, "rule", kSource);
    checkLength(node.Description, limit::kDescription, "description", kSource);
    const auto row = static_cast<std::uint32_t>(units_.size());
    rows_.addRow({node.id, registryForm(node.FeatureCaseId), node.Name, std::to_string(node.unit), node.Rule,
                  node.Description});
    units_.push_back(node.unit);
    if (isShown(node.unit)) shown_.push_back(row);
}

void ProcessListRecordset::setFilter(const std::string& filter) {
    const auto unitCode = unitOfFilter(filter);
    if (!filter.empty() && !unitCode) {
        throw Error(errors::kInvalidArgument, kSource, "'" + filter + "' is not a unit filter.");
    }
    filter_ = filter;
    filterUnit_ = unitCode;
    shown_.clear();
    for (std::uint32_t row = 0; row < units_.size(); ++row) {
        if (isShown(units_[row])) shown_.push_back(row);
    }
}

std::string ProcessListRecordset::unitFilter(int unitCode) {
    return unitCode < 0 ? std::string() : std::string(kFilterHead) + std::to_string(unitCode) + ")";
}

std::string ProcessListRecordset::text(std::size_t record, std::size_t field) {
    return record < shown_.size() ? rows_.text(shown_[record], field) : std::string();
}

std::optional<std::vector<Guid>> ProcessListRecordset::keys() {
    auto all = rows_.keys();
    if (!all) return std::nullopt;
    std::vector<Guid> shown;
    shown.reserve(shown_.size());
    for (const std::uint32_t row : shown_)
        shown.push_back((*all)[row]);
    return shown;
}

}  // namespace pellmark
