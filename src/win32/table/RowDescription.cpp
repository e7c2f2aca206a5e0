#include "win32/table/RowDescription.h"

#include <utility>

#include "win32/WideText.h"

#include <oleacc.h>

namespace pellmark {

namespace {

/// PROPID_ACC_DESCRIPTION, which no import library holds.
constexpr GUID kDescription = {0x4D48DFE4, 0xBD3F, 0x491F, {0xA6, 0x48, 0x49, 0x2D, 0x6F, 0x20, 0xC5, 0x88}};

}  // namespace

RowDescription::RowDescription(HWND list, IAccPropServices* service)
    : list_(list), service_(service), asked_(service != nullptr) {
    if (service_ != nullptr) service_->AddRef();
}

RowDescription::~RowDescription() {
    show(-1, "");
    if (service_ != nullptr) service_->Release();
}

bool RowDescription::hasService() {
    if (!std::exchange(asked_, true)) {
        void* made = nullptr;
        if (SUCCEEDED(::CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                                         IID_IAccPropServices, &made))) {
            service_ = static_cast<IAccPropServices*>(made);
        }
    }
    return service_ != nullptr;
}

void RowDescription::show(int row, const std::string& text) {
    if (row < 0 || text.empty()) row = -1;
    if (row == row_ && (row < 0 || text == text_)) return;
    if (!hasService()) return;
    // Children of a list count from 1.
    if (row_ >= 0)
        service_->ClearHwndProps(list_, static_cast<DWORD>(OBJID_CLIENT), static_cast<DWORD>(row_ + 1),
                                 &kDescription, 1);
    row_ = row;
    text_ = text;
    if (row_ >= 0)
        service_->SetHwndPropStr(list_, static_cast<DWORD>(OBJID_CLIENT), static_cast<DWORD>(row_ + 1),
                                 kDescription, toWide(text_).c_str());
}

}  // namespace pellmark
