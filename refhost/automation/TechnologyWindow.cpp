#include "refhost/automation/TechnologyWindow.h"

#include <algorithm>
#include <array>

#include "automation/Automation.h"
#include "automation/Module.h"
#include "base/Contrast.h"
#include "base/Error.h"
#include "refhost/automation/CyclePicture.h"
#include "refhost/automation/HostConfiguration.h"
#include "refhost/automation/Resources.h"
#include "refhost/windows/DialogScroll.h"
#include "refhost/windows/Placing.h"

namespace norvex {

namespace {

using pellmark::toWide;

struct Page {
    Group group;
    const char* title;
};

constexpr std::array kPages{Page{Group::Tool, "Tool"}, Page{Group::Cutting, "Speeds and feeds"},
                            Page{Group::Motion, "Depths, retract and coolant"}};
constexpr int kLastPage = static_cast<int>(kPages.size()) - 1;

/// What fills in figures; the wizard offers it on the page of speeds and feeds.
constexpr int kComputing[] = {IDC_TECHNOLOGY_MATERIAL_LABEL, IDC_TECHNOLOGY_MATERIAL, IDC_TECHNOLOGY_TABLE,
                              IDC_TECHNOLOGY_COMPUTE};

constexpr COLORREF kRefusal = RGB(176, 24, 24);

/// In dialog units, like the resource.
constexpr int kWidth = 400;
constexpr int kHeight = 250;
constexpr int kMargin = 7;
constexpr int kSide = 118;  ///< width of the picture and what stands under it
constexpr int kRow = 14;
constexpr int kGap = 4;

void place(HWND window, int left, int top, int width, int height) {
    SetWindowPos(window, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

void showControl(HWND window, bool visible) {
    ShowWindow(window, visible ? SW_SHOWNA : SW_HIDE);
}

}  // namespace

TechnologyWindow::TechnologyWindow(Style style, OperationEditor editor, char materialClass)
    : style_(style),
      texts_(configuration::texts()),
      editor_(std::move(editor)),
      grid_(editor_, texts_),
      materialClass_(materialClass) {}

bool TechnologyWindow::show(HWND owner) {
    const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&classes);
    const INT_PTR answer =
        DialogBoxParamW(pellmark::module::instance(), MAKEINTRESOURCEW(IDD_TECHNOLOGY), owner,
                        &TechnologyWindow::procedure, reinterpret_cast<LPARAM>(this));
    if (failure_) std::rethrow_exception(failure_);
    if (answer < 0) {
        throw pellmark::Error(pellmark::errors::kHostInterface, "Norvex.TechnologyService",
                              "The technology window cannot be opened.");
    }
    return answer == IDOK;
}

INT_PTR CALLBACK TechnologyWindow::procedure(HWND dialog, UINT message, WPARAM wide, LPARAM data) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, GWLP_USERDATA, data);
        reinterpret_cast<TechnologyWindow*>(data)->dialog_ = dialog;
    }
    auto* self = reinterpret_cast<TechnologyWindow*>(GetWindowLongPtrW(dialog, GWLP_USERDATA));
    if (self == nullptr) return FALSE;
    try {
        return self->handle(message, wide, data);
    } catch (...) {
        self->failure_ = std::current_exception();
        EndDialog(dialog, IDCANCEL);
        return TRUE;
    }
}

INT_PTR TechnologyWindow::handle(UINT message, WPARAM wide, LPARAM data) {
    LRESULT result = 0;
    switch (message) {
        case WM_INITDIALOG:
            fill();
            return FALSE;  // the grid has the focus
        case WM_SIZE:
            layOut();
            return TRUE;
        case WM_GETMINMAXINFO:
            reinterpret_cast<MINMAXINFO*>(data)->ptMinTrackSize = {least_.cx, least_.cy};
            return TRUE;
        case WM_COMMAND:
            return command(LOWORD(wide), HIWORD(wide));
        case WM_DRAWITEM: {
            const auto& draw = *reinterpret_cast<const DRAWITEMSTRUCT*>(data);
            drawCycle(draw.hDC, draw.rcItem, editor_.operation().cycle());
            return TRUE;
        }
        case WM_CTLCOLORSTATIC:
            if (reinterpret_cast<HWND>(data) != control(IDC_TECHNOLOGY_MESSAGE) || !isRefused_) return FALSE;
            SetTextColor(reinterpret_cast<HDC>(wide),
                         pellmark::readableOn(GetSysColor(COLOR_BTNFACE), kRefusal));
            SetBkColor(reinterpret_cast<HDC>(wide), GetSysColor(COLOR_BTNFACE));
            return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_BTNFACE));
        case WM_NOTIFY:
            if (!grid_.notified(*reinterpret_cast<const NMHDR*>(data), result)) return FALSE;
            SetWindowLongPtrW(dialog_, DWLP_MSGRESULT, result);
            return TRUE;
        default:
            return FALSE;
    }
}

void TechnologyWindow::fill() {
    texts_.translate(dialog_);
    RECT units{0, 0, kWidth, kHeight};
    MapDialogRect(dialog_, &units);
    letScroll(dialog_, {units.right, units.bottom});
    centreOverOwner(dialog_);
    // smaller, and headings and refusals would be cut off in some language
    RECT whole{};
    GetWindowRect(dialog_, &whole);
    least_ = {whole.right - whole.left, whole.bottom - whole.top};
    grid_.tried = [this](const std::string& reason) { afterTrying(reason); };
    grid_.attach(control(IDC_TECHNOLOGY_GRID));
    fillMaterials();
    showControl(control(IDC_TECHNOLOGY_BACK), isWizard());
    showControl(control(IDC_TECHNOLOGY_NEXT), isWizard());
    if (isWizard()) {
        SetWindowTextW(control(IDOK), texts_.wide("&Finish").c_str());
        goTo(0);
    } else {
        const std::string title =
            texts_.of("Technology") + " - " + texts_.of(std::string(editor_.operation().cycle().name));
        SetWindowTextW(dialog_, toWide(title).c_str());
        tell({});
    }
    layOut();
    SetFocus(control(IDC_TECHNOLOGY_GRID));
}

void TechnologyWindow::fillMaterials() {
    const HWND combo = control(IDC_TECHNOLOGY_MATERIAL);
    int chosen = 0;
    for (const auto& [letter, name] : editor_.table().classes()) {
        const std::wstring text = toWide(std::string(1, letter) + " - " + name);
        const auto at =
            static_cast<int>(SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str())));
        if (letter == materialClass_) chosen = at;
    }
    SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(chosen), 0);
    const bool cuts = workOf(editor_.operation().cycle()).has_value() && !editor_.table().classes().empty();
    for (const int id : kComputing)
        EnableWindow(control(id), cuts);
}

void TechnologyWindow::layOut() {
    RECT units{kMargin, kRow, kSide, kGap};
    MapDialogRect(dialog_, &units);
    const int margin = units.left;
    const int row = units.top;
    const int side = units.right;
    const int gap = units.bottom;
    const RECT area = contentsOf(dialog_);
    const int left = area.left + margin;
    const int top = area.top + margin;
    const int buttons = area.bottom - margin - row;
    const int message = buttons - gap - row * 2;
    const int right = area.right - margin - side;
    grid_.place({left, top, right - margin, message - gap});
    place(control(IDC_TECHNOLOGY_MESSAGE), left, message, area.right - margin - left, row * 2);

    int bottom = message - gap - row;
    place(control(IDC_TECHNOLOGY_COMPUTE), right, bottom, side, row);
    bottom -= row + gap;
    place(control(IDC_TECHNOLOGY_TABLE), right, bottom, side, row);
    bottom -= row + gap;
    place(control(IDC_TECHNOLOGY_MATERIAL), right, bottom, side, row * 10);
    bottom -= row;
    place(control(IDC_TECHNOLOGY_MATERIAL_LABEL), right, bottom, side, row);
    place(control(IDC_TECHNOLOGY_PICTURE), right, top, side, std::max(bottom - gap - top, 0));

    int end = area.right - margin;
    for (const int id : {IDCANCEL, IDOK, IDC_TECHNOLOGY_NEXT, IDC_TECHNOLOGY_BACK}) {
        const int width = side / 2 - gap / 2;
        end -= width;
        place(control(id), end, buttons, width, row);
        end -= gap;
    }
    InvalidateRect(dialog_, nullptr, TRUE);
}

INT_PTR TechnologyWindow::command(int id, int notification) {
    switch (id) {
        case IDC_TECHNOLOGY_TABLE:
            takeFromTable();
            return TRUE;
        case IDC_TECHNOLOGY_COMPUTE:
            if (!grid_.endEdit()) return TRUE;
            afterTrying(editor_.computeSpindleSpeed());
            grid_.refresh();
            return TRUE;
        case IDC_TECHNOLOGY_BACK:
            if (grid_.endEdit()) goTo(page_ - 1);
            return TRUE;
        case IDC_TECHNOLOGY_NEXT:
            if (pageIsSound()) goTo(page_ + 1);
            return TRUE;
        case IDOK:
            accept();
            return TRUE;
        case IDCANCEL:
            EndDialog(dialog_, IDCANCEL);
            return TRUE;
        default:
            return notification == 0 ? FALSE : TRUE;
    }
}

void TechnologyWindow::takeFromTable() {
    if (!grid_.endEdit()) return;
    const auto classes = editor_.table().classes();
    const LRESULT chosen = SendMessageW(control(IDC_TECHNOLOGY_MATERIAL), CB_GETCURSEL, 0, 0);
    if (chosen < 0 || chosen >= static_cast<LRESULT>(classes.size())) return;
    afterTrying(editor_.takeFromTable(classes[static_cast<std::size_t>(chosen)].first));
    grid_.refresh();
}

bool TechnologyWindow::pageIsSound() {
    if (!grid_.endEdit()) return false;
    const auto problem = editor_.problem();
    if (!problem) return true;
    grid_.select(problem->row);
    tell(problem->reason);
    SetFocus(control(IDC_TECHNOLOGY_GRID));
    MessageBeep(MB_ICONWARNING);
    return false;
}

void TechnologyWindow::goTo(int page) {
    page_ = std::clamp(page, 0, kLastPage);
    const Page& shown = kPages[static_cast<std::size_t>(page_)];
    editor_.showGroup(shown.group);
    grid_.fill();
    const std::string title = texts_.of("Step wizard") + " - " +
                              texts_.of(std::string(editor_.operation().cycle().name)) + " (" +
                              std::to_string(page_ + 1) + " / " + std::to_string(kPages.size()) + ": " +
                              texts_.of(shown.title) + ")";
    SetWindowTextW(dialog_, toWide(title).c_str());
    for (const int id : kComputing)
        showControl(control(id), shown.group == Group::Cutting);
    EnableWindow(control(IDC_TECHNOLOGY_BACK), page_ > 0);
    EnableWindow(control(IDC_TECHNOLOGY_NEXT), page_ < kLastPage);
    SendMessageW(dialog_, DM_SETDEFID, page_ < kLastPage ? IDC_TECHNOLOGY_NEXT : IDOK, 0);
    SetFocus(control(IDC_TECHNOLOGY_GRID));
    tell({});
}

void TechnologyWindow::accept() {
    if (!pageIsSound()) return;
    // What the pages hold that nobody came to must be sound as well; the first that is not is shown.
    while (isWizard() && page_ < kLastPage) {
        goTo(page_ + 1);
        if (!pageIsSound()) return;
    }
    EndDialog(dialog_, IDOK);
}

void TechnologyWindow::afterTrying(const std::string& reason) {
    tell(reason);
    if (!reason.empty()) MessageBeep(MB_ICONWARNING);
}

void TechnologyWindow::tell(const std::string& reason) {
    isRefused_ = !reason.empty();
    const std::string text = isRefused_ ? reason : editor_.hint();
    SetWindowTextW(control(IDC_TECHNOLOGY_MESSAGE), toWide(text).c_str());
}

}  // namespace norvex
