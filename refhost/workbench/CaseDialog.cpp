#include "refhost/workbench/CaseDialog.h"

#include <charconv>
#include <exception>
#include <map>

#include "automation/Automation.h"
#include "refhost/windows/DialogScroll.h"
#include "refhost/windows/Placing.h"
#include "refhost/workbench/Resources.h"

namespace norvex {

using pellmark::RecordSet;
using pellmark::toWide;

namespace {

constexpr std::int16_t kUnits[] = {pellmark::unit::kNone, pellmark::unit::kInch, pellmark::unit::kMetric};

std::string fieldOf(RecordSet& records, std::size_t record, const char* name) {
    return records.text(record, records.requireField(name));
}

}  // namespace

std::optional<pellmark::CaseDescription> CaseDialog::show(HWND owner) {
    const INT_PTR answer = DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_CASE), owner,
                                           &CaseDialog::procedure, reinterpret_cast<LPARAM>(this));
    if (failure_) std::rethrow_exception(failure_);
    return answer == IDOK ? std::optional(description_) : std::nullopt;
}

INT_PTR CALLBACK CaseDialog::procedure(HWND dialog, UINT message, WPARAM wide, LPARAM data) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, GWLP_USERDATA, data);
        reinterpret_cast<CaseDialog*>(data)->dialog_ = dialog;
    }
    auto* self = reinterpret_cast<CaseDialog*>(GetWindowLongPtrW(dialog, GWLP_USERDATA));
    if (self == nullptr) return FALSE;
    try {
        return self->handle(message, wide);
    } catch (...) {
        self->failure_ = std::current_exception();
        EndDialog(dialog, IDCANCEL);
        return TRUE;
    }
}

INT_PTR CaseDialog::handle(UINT message, WPARAM wide) {
    if (message == WM_INITDIALOG) {
        letScroll(dialog_);
        centreOverOwner(dialog_);
        fill();
        return TRUE;
    }
    return message == WM_COMMAND ? command(LOWORD(wide), HIWORD(wide)) : FALSE;
}

INT_PTR CaseDialog::command(int control, int notification) {
    switch (control) {
        case IDC_NVX_TYPE:
        case IDC_PART_TYPE:
        case IDC_FEATURE_UNIT:
            if (notification == CBN_SELCHANGE) fillFeatureTypes();
            return TRUE;
        case IDC_FEATURE_TYPE:
            if (notification == CBN_SELCHANGE) fillValues();
            return TRUE;
        case IDOK:
            take();
            EndDialog(dialog_, IDOK);
            return TRUE;
        case IDCANCEL:
            EndDialog(dialog_, IDCANCEL);
            return TRUE;
        default:
            return FALSE;
    }
}

void CaseDialog::fill() {
    texts_.translate(dialog_);
    auto& cases = knowledgeBase_.featureCaseStore();
    fillCombo(IDC_NVX_TYPE, *cases.nvxFeatureTypes(), "(any)", nvxTypes_);
    fillCombo(IDC_PART_TYPE, *cases.partTypes(), "(any)", partTypes_);
    fillCombo(IDC_MATERIAL_CLASS, *cases.materialClasses(), "(none)", materialClasses_);
    fillCombo(IDC_PROCESS, *knowledgeBase_.processStore().processes(""), "(none)", processes_);
    fillUnits(IDC_FEATURE_UNIT);
    fillUnits(IDC_PROCESS_UNIT);
    fillFeatureTypes();
}

void CaseDialog::fillFeatureTypes() {
    const auto types = knowledgeBase_.featureCaseStore().featureTypes(
        chosenNvxType(), chosen(IDC_PART_TYPE, partTypes_), chosenUnit(IDC_FEATURE_UNIT));
    fillCombo(IDC_FEATURE_TYPE, *types, "(none)", featureTypes_);
    fillValues();
}

void CaseDialog::fillValues() {
    SendDlgItemMessageW(dialog_, IDC_VALUES, LB_RESETCONTENT, 0, 0);
    values_.clear();
    const std::string featureType = chosen(IDC_FEATURE_TYPE, featureTypes_);
    if (featureType.empty()) return;
    auto& cases = knowledgeBase_.featureCaseStore();
    std::map<std::string, std::string> keyNames;
    const auto keys = cases.keys(featureType);
    for (std::size_t at = 0; at < keys->count(); ++at) {
        keyNames[fieldOf(*keys, at, pellmark::field::kId)] = fieldOf(*keys, at, pellmark::field::kName);
    }
    const auto values = cases.values(featureType);
    for (std::size_t at = 0; at < values->count(); ++at) {
        const std::string line = keyNames[fieldOf(*values, at, pellmark::field::kKeyId)] + ": " +
                                 fieldOf(*values, at, pellmark::field::kName);
        SendDlgItemMessageW(dialog_, IDC_VALUES, LB_ADDSTRING, 0,
                            reinterpret_cast<LPARAM>(toWide(line).c_str()));
        values_.push_back(fieldOf(*values, at, pellmark::field::kId));
    }
}

void CaseDialog::take() {
    description_.nvxFeatureType = chosenNvxType();
    description_.partTypeId = chosen(IDC_PART_TYPE, partTypes_);
    description_.unit = chosenUnit(IDC_FEATURE_UNIT);
    description_.featureTypeId = chosen(IDC_FEATURE_TYPE, featureTypes_);
    description_.materialClassId = chosen(IDC_MATERIAL_CLASS, materialClasses_);
    description_.processUnit = chosenUnit(IDC_PROCESS_UNIT);
    description_.processGuid = chosen(IDC_PROCESS, processes_);
    for (std::size_t at = 0; at < values_.size(); ++at) {
        if (SendDlgItemMessageW(dialog_, IDC_VALUES, LB_GETSEL, at, 0) > 0) {
            description_.valueIds.push_back(values_[at]);
        }
    }
}

void CaseDialog::fillCombo(int control, RecordSet& records, const char* none, Ids& ids) {
    const auto add = [&](const std::string& text, const std::string& id) {
        SendDlgItemMessageW(dialog_, control, CB_ADDSTRING, 0,
                            reinterpret_cast<LPARAM>(toWide(text).c_str()));
        ids.push_back(id);
    };
    SendDlgItemMessageW(dialog_, control, CB_RESETCONTENT, 0, 0);
    ids.clear();
    add(texts_.of(none), "");
    for (std::size_t at = 0; at < records.count(); ++at) {
        add(fieldOf(records, at, pellmark::field::kName), fieldOf(records, at, pellmark::field::kId));
    }
    SendDlgItemMessageW(dialog_, control, CB_SETCURSEL, 0, 0);
}

void CaseDialog::fillUnits(int control) {
    for (const char* text : {"(any)", "Inch", "Metric"}) {
        SendDlgItemMessageW(dialog_, control, CB_ADDSTRING, 0,
                            reinterpret_cast<LPARAM>(texts_.wide(text).c_str()));
    }
    SendDlgItemMessageW(dialog_, control, CB_SETCURSEL, 0, 0);
}

std::string CaseDialog::chosen(int control, const Ids& ids) const {
    const LRESULT at = SendDlgItemMessageW(dialog_, control, CB_GETCURSEL, 0, 0);
    return at < 0 || static_cast<std::size_t>(at) >= ids.size() ? std::string()
                                                                : ids[static_cast<std::size_t>(at)];
}

std::int16_t CaseDialog::chosenUnit(int control) const {
    const LRESULT at = SendDlgItemMessageW(dialog_, control, CB_GETCURSEL, 0, 0);
    return at < 0 || at >= static_cast<LRESULT>(std::size(kUnits)) ? pellmark::unit::kNone : kUnits[at];
}

std::int16_t CaseDialog::chosenNvxType() const {
    const std::string id = chosen(IDC_NVX_TYPE, nvxTypes_);
    std::int16_t number = -1;
    std::from_chars(id.data(), id.data() + id.size(), number);
    return number;
}

}  // namespace norvex
