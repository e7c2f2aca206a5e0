#include "refhost/automation/ExpressionDialog.h"

#include <commctrl.h>

#include "automation/Automation.h"
#include "automation/Module.h"
#include "refhost/automation/HostConfiguration.h"
#include "refhost/automation/Resources.h"
#include "refhost/windows/DialogScroll.h"
#include "refhost/windows/HostTexts.h"
#include "refhost/windows/Placing.h"

namespace norvex {

namespace {

constexpr const wchar_t* kTerms[] = {
    L"Diameter", L"Depth", L"Width", L"Length", L"CornerRadius", L"Tolerance", L"Thread", L"Ra",  L" = ",
    L" <> ",     L" < ",   L" <= ",  L" > ",    L" >= ",         L" and ",     L" or ",   L"not "};

/// The dialog would select the whole rule whenever the keyboard comes to it, and the next term would take its
/// place.
LRESULT CALLBACK ruleProcedure(HWND rule, UINT message, WPARAM wide, LPARAM data, UINT_PTR id,
                               DWORD_PTR) noexcept {
    const LRESULT result = DefSubclassProc(rule, message, wide, data);
    if (message == WM_NCDESTROY) RemoveWindowSubclass(rule, &ruleProcedure, id);
    return message == WM_GETDLGCODE ? result & ~static_cast<LRESULT>(DLGC_HASSETSEL) : result;
}

int lineHeight(HWND control) {
    const HDC canvas = GetDC(control);
    const HGDIOBJ old =
        SelectObject(canvas, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
    TEXTMETRICW metrics{};
    GetTextMetricsW(canvas, &metrics);
    SelectObject(canvas, old);
    ReleaseDC(control, canvas);
    return static_cast<int>(metrics.tmHeight);
}

/// Shows the scroll bar of the rule where it has more lines than room.
void fitScrollBar(HWND rule) {
    const auto isOverfull = [rule] {
        RECT room{};
        SendMessageW(rule, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&room));
        return SendMessageW(rule, EM_GETLINECOUNT, 0, 0) * lineHeight(rule) > room.bottom - room.top;
    };
    // The bar takes room from the lines, so that whether it is needed shows only without it.
    if (!isOverfull()) ShowScrollBar(rule, SB_VERT, FALSE);
    if (isOverfull()) ShowScrollBar(rule, SB_VERT, TRUE);
}

}  // namespace

std::string ExpressionDialog::show(HWND owner) {
    const INT_PTR answer =
        DialogBoxParamW(pellmark::module::instance(), MAKEINTRESOURCEW(IDD_EXPRESSION), owner,
                        &ExpressionDialog::procedure, reinterpret_cast<LPARAM>(this));
    return answer == IDOK ? rule_ : std::string();
}

INT_PTR CALLBACK ExpressionDialog::procedure(HWND dialog, UINT message, WPARAM wide, LPARAM data) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, GWLP_USERDATA, data);
        letScroll(dialog);
        centreOverOwner(dialog);
        reinterpret_cast<const ExpressionDialog*>(data)->fill(dialog);
        return FALSE;  // the keyboard is at the end of the rule
    }
    auto* self = reinterpret_cast<ExpressionDialog*>(GetWindowLongPtrW(dialog, GWLP_USERDATA));
    return message == WM_COMMAND && self != nullptr ? self->command(dialog, wide) : FALSE;
}

void ExpressionDialog::fill(HWND dialog) const {
    configuration::texts().translate(dialog);
    const HWND terms = GetDlgItem(dialog, IDC_TERMS);
    for (const wchar_t* term : kTerms)
        SendMessageW(terms, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(term));
    const HWND rule = GetDlgItem(dialog, IDC_RULE);
    SetWindowTextW(rule, pellmark::toWide(rule_).c_str());
    fitScrollBar(rule);
    SetWindowSubclass(rule, &ruleProcedure, 1, 0);
    SetFocus(rule);
    const int end = GetWindowTextLengthW(rule);
    SendMessageW(rule, EM_SETSEL, static_cast<WPARAM>(end), end);
}

INT_PTR ExpressionDialog::command(HWND dialog, WPARAM wide) {
    switch (LOWORD(wide)) {
        case IDC_TERMS:
            if (HIWORD(wide) == LBN_DBLCLK) insertTerm(dialog);
            return TRUE;
        case IDC_RULE:
            if (HIWORD(wide) == EN_CHANGE) fitScrollBar(GetDlgItem(dialog, IDC_RULE));
            return TRUE;
        case IDC_INSERT:
            insertTerm(dialog);
            return TRUE;
        case IDOK:
            rule_ = pellmark::fromWide(textOf(GetDlgItem(dialog, IDC_RULE)));
            EndDialog(dialog, IDOK);
            return TRUE;
        case IDCANCEL:
            EndDialog(dialog, IDCANCEL);
            return TRUE;
        default:
            return FALSE;
    }
}

void ExpressionDialog::insertTerm(HWND dialog) {
    const LRESULT chosen = SendDlgItemMessageW(dialog, IDC_TERMS, LB_GETCURSEL, 0, 0);
    if (chosen < 0 || chosen >= static_cast<LRESULT>(std::size(kTerms))) return;
    const HWND rule = GetDlgItem(dialog, IDC_RULE);
    SendMessageW(rule, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(kTerms[chosen]));
    SetFocus(rule);
}

}  // namespace norvex
