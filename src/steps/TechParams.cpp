#include "steps/TechParams.h"

#include <algorithm>

#include "base/Error.h"

namespace pellmark {

namespace {

[[noreturn]] void throwNoMember(const std::string& index) {
    throw Error(errors::kInvalidArgument, "Pellmark.TechParams", "There is no parameter \"" + index + "\".");
}

}  // namespace

std::shared_ptr<TechParam> TechParams::Add(const std::string& expression, std::int32_t clCode) {
    const auto [at, added] = byKey_.try_emplace(std::to_string(clCode));
    if (!added) return nullptr;
    at->second = std::make_shared<TechParam>();
    at->second->setExpression(expression);
    at->second->setClCode(clCode);
    members_.push_back(at->second);
    return at->second;
}

std::shared_ptr<TechParam> TechParams::Item(std::int32_t position) const {
    if (position < 1 || position > Count()) throwNoMember(std::to_string(position));
    return members_[static_cast<std::size_t>(position) - 1];
}

std::shared_ptr<TechParam> TechParams::Item(const std::string& key) const {
    const auto at = byKey_.find(key);
    if (at == byKey_.end()) throwNoMember(key);
    return at->second;
}

void TechParams::Remove(std::int32_t position) {
    const auto member = Item(position);
    // The key is the code at the time of the adding, whatever the member says now.
    std::erase_if(byKey_, [&](const auto& each) { return each.second == member; });
    members_.erase(members_.begin() + (position - 1));
}

void TechParams::Remove(const std::string& key) {
    const auto member = Item(key);
    byKey_.erase(key);
    std::erase(members_, member);
}

const TechParam* TechParams::find(std::int32_t clCode) const {
    const auto at = byKey_.find(std::to_string(clCode));
    return at == byKey_.end() ? nullptr : at->second.get();
}

}  // namespace pellmark
