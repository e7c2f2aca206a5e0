#include "controls/SpokenName.h"

#include <algorithm>
#include <vector>

#include "controls/Control.h"

namespace pellmark {

namespace {

std::string withoutMarks(const std::string& caption) {
    std::string text;
    for (std::size_t at = 0; at < caption.size(); ++at) {
        if (caption[at] == '&' && ++at == caption.size()) break;
        text += caption[at];
    }
    return text;
}

}  // namespace

const Control* labelBefore(const Control& control) {
    if (control.parent() == nullptr) return nullptr;
    std::vector<Control*> siblings = control.parent()->children();
    std::stable_sort(siblings.begin(), siblings.end(), [](const Control* left, const Control* right) {
        return left->tabIndex() < right->tabIndex();
    });
    const auto self = std::find(siblings.begin(), siblings.end(), &control);
    if (self == siblings.begin() || self == siblings.end()) return nullptr;
    const Control* before = *(self - 1);
    return before->kind() == Control::Kind::Label ? before : nullptr;
}

std::string spokenName(const Control& control) {
    if (!control.caption().empty()) return withoutMarks(control.caption());
    if (const Control* label = labelBefore(control)) return spokenName(*label);
    return control.parent() != nullptr ? spokenName(*control.parent()) : std::string();
}

}  // namespace pellmark
