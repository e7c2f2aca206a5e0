#include "win32/drag/DragOut.h"

#include <string>

#include "win32/WindowsApi.h"
#include "win32/drag/DragDataObject.h"

namespace pellmark {

namespace {

/// Goes on while the left button is down and ends with Escape.
class DropSource : public IDropSource {
  public:
    virtual ~DropSource() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** answer) override {
        if (answer == nullptr) return E_POINTER;
        *answer = nullptr;
        if (id != IID_IUnknown && id != IID_IDropSource) return E_NOINTERFACE;
        *answer = static_cast<IDropSource*>(this);
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL escape, DWORD keys) override {
        if (escape || (keys & MK_RBUTTON) != 0) return DRAGDROP_S_CANCEL;
        return (keys & MK_LBUTTON) != 0 ? S_OK : DRAGDROP_S_DROP;
    }
    HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD) override { return DRAGDROP_S_USEDEFAULTCURSORS; }

  private:
    ULONG references_ = 1;
};

/// Dragging needs the thread's OLE state, which is the host's to keep: ours lasts as long as the drag.
class OleState {
  public:
    OleState() : result_(::OleInitialize(nullptr)) {}
    ~OleState() {
        if (SUCCEEDED(result_)) ::OleUninitialize();
    }
    OleState(const OleState&) = delete;
    OleState& operator=(const OleState&) = delete;
    HRESULT result() const { return result_; }

  private:
    HRESULT result_;
};

}  // namespace

void dragOut(const DragData& data, Trace& trace) {
    if (data.text.empty() && data.files.empty()) return;
    const OleState ole;
    if (FAILED(ole.result())) {
        trace.record("dragOut", "no drag on this thread, result " + std::to_string(ole.result()));
        return;
    }
    IDataObject* offered = DragDataObject::create(data);
    auto* source = new DropSource();
    const DWORD allowed = data.copyOnly ? DROPEFFECT_COPY : DROPEFFECT_COPY | DROPEFFECT_MOVE;
    DWORD effect = DROPEFFECT_NONE;
    const HRESULT result = ::DoDragDrop(offered, source, allowed, &effect);
    if (FAILED(result)) trace.record("dragOut", "the drag failed, result " + std::to_string(result));
    source->Release();
    offered->Release();
}

}  // namespace pellmark
