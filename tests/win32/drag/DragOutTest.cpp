#include "win32/drag/DragOut.h"

#include <gmock/gmock.h>
#include <ole2.h>

#include "support/win32/PeerHarness.h"
#include "win32/WideText.h"

namespace pellmark::test {
namespace {

/// A window of the host that takes text.
class TextTarget : public IDropTarget {
  public:
    virtual ~TextTarget() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** answer) override {
        const bool known = id == IID_IUnknown || id == IID_IDropTarget;
        *answer = known ? static_cast<IDropTarget*>(this) : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE DragEnter(IDataObject*, DWORD, POINTL, DWORD* effect) override {
        allowed = *effect;
        entered = true;
        *effect = DROPEFFECT_COPY;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE DragOver(DWORD, POINTL, DWORD* effect) override {
        *effect = DROPEFFECT_COPY;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE DragLeave() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Drop(IDataObject* data, DWORD, POINTL, DWORD* effect) override {
        FORMATETC wanted{CF_UNICODETEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
        STGMEDIUM medium{};
        if (SUCCEEDED(data->GetData(&wanted, &medium))) {
            text = fromWide(static_cast<const wchar_t*>(::GlobalLock(medium.hGlobal)));
            ::GlobalUnlock(medium.hGlobal);
            ::ReleaseStgMedium(&medium);
        }
        *effect = DROPEFFECT_COPY;
        return S_OK;
    }

    bool entered = false;
    DWORD allowed = 0;
    std::string text;
};

class DragOutTest : public ::testing::Test, protected PeerHarness {
  protected:
    DragOutTest() {
        embed();
        ::OleInitialize(nullptr);
        ::RegisterDragDrop(hostBox(), &target_);
    }
    ~DragOutTest() override {
        ::RevokeDragDrop(hostBox());
        ::OleUninitialize();
    }
    /// Presses on the third row, drags to the host's box and then does the last step.
    void dragToHost(const Meanwhile::Step& end) {
        const Meanwhile meanwhile({[&] { return started_ > 0; },
                                   [&] {
                                       Person::moveTo(hostBox(), {20 + (wiggle_++ % 3), 8});
                                       return target_.entered;
                                   },
                                   end});
        RECT row{};
        row.left = LVIR_BOUNDS;
        const HWND list = of(form->grid);
        ::SendMessageW(list, LVM_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&row));
        Person::drag(list, {40, row.top + 5}, {90, row.top + 60});
        EXPECT_TRUE(Person::waitUntil([&] { return meanwhile.isDone(); }));
    }

    TextTarget target_;
    int started_ = 0;
    int wiggle_ = 0;
};

TEST_F(DragOutTest, RowsDraggedToTheHostArriveAsTextAndMayOnlyBeCopied) {
    const auto drag = form->grid.dragStarted.subscribe([&](DragData& data) {
        ++started_;
        data.text = form->grid.text(form->grid.row(), 1) + "\tInch";
        data.copyOnly = true;
    });
    dragToHost([] {
        Person::releaseMouse();
        return true;
    });
    EXPECT_EQ(target_.text, "Drill M4 no. 2\tInch");
    EXPECT_EQ(target_.allowed, static_cast<DWORD>(DROPEFFECT_COPY));
    EXPECT_EQ(started_, 1);
}

TEST_F(DragOutTest, TheHostsWindowGoesUnderADrag) {
    const auto drag = form->grid.dragStarted.subscribe([&](DragData& data) {
        ++started_;
        data.text = "text";
    });
    bool wasLoadedMeanwhile = false;
    dragToHost([&] {
        ::DestroyWindow(host());
        wasLoadedMeanwhile = form->isLoaded();
        Person::releaseMouse();
        return true;
    });
    EXPECT_TRUE(Person::waitUntil([&] { return !form->isLoaded(); }));
    EXPECT_TRUE(wasLoadedMeanwhile);
    EXPECT_EQ(form->queryUnloads, 1);
    EXPECT_EQ(target_.text, "");
}

TEST_F(DragOutTest, ADragWithoutDataEndsAtOnce) {
    RecordingTrace quiet;
    dragOut(DragData{}, quiet);
    EXPECT_THAT(quiet.lines(), ::testing::IsEmpty());
}

}  // namespace
}  // namespace pellmark::test
