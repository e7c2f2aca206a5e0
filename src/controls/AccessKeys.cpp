#include "controls/AccessKeys.h"

#include <set>
#include <string>

#include "base/CaseFolding.h"
#include "base/Text.h"
#include "controls/Form.h"

namespace pellmark {

namespace {

bool isAscii(char16_t unit, char16_t first, char16_t last) {
    return unit >= first && unit <= last;
}

/// The key of a character, the same for a capital and a small letter; 0 for one that no key types.
char16_t keyOf(char16_t unit) {
    const char16_t key = foldCase(unit);
    if (isAscii(key, u'a', u'z') || isAscii(key, u'0', u'9')) return key;
    const bool isLetterBeyondAscii = key >= 0x00C0 && key < 0x2000 && key != 0x00D7 && key != 0x00F7;
    return isLetterBeyondAscii ? key : u'\0';
}

std::string withAccessKey(const std::string& caption, std::set<char16_t>& taken) {
    std::u16string marked;
    bool found = false;
    for (const char16_t unit : toUtf16(caption)) {
        const char16_t key = keyOf(unit);
        if (!found && key != u'\0' && taken.insert(key).second) {
            marked += u'&';
            found = true;
        }
        marked += unit;
        if (unit == u'&') marked += u'&';
    }
    return toUtf8(marked);
}

void assignWithin(const Container& container, const Form& form, std::set<char16_t>& taken) {
    for (Control* child : container.children()) {
        switch (child->kind()) {
            case Control::Kind::Label:
            case Control::Kind::Button:
                if (child == form.defaultButton() || child == form.cancelButton()) break;
                child->setCaption(withAccessKey(child->caption(), taken));
                break;
            case Control::Kind::Frame:
            case Control::Kind::TabStrip:
            case Control::Kind::TabPage:
                assignWithin(static_cast<const Container&>(*child), form, taken);
                break;
            default:
                break;
        }
    }
}

}  // namespace

void assignAccessKeys(Form& form) {
    std::set<char16_t> taken;
    assignWithin(form, form, taken);
}

}  // namespace pellmark
