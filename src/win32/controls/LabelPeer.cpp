#include "win32/controls/LabelPeer.h"

namespace pellmark {

LabelPeer::LabelPeer(FormWindow& form, Label& label, HWND parent) : ControlPeer(form, label) {
    createWindow(parent, WC_STATICW, SS_LEFT);
}

}  // namespace pellmark
