#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "host/FrmMain.h"
#include "support/PortsHarness.h"
#include "support/win32/PeerHarness.h"
#include "win32/WideText.h"
#include "win32/forms/Win32Desktop.h"

#include <oleacc.h>

namespace pellmark::test {
namespace {

using ::testing::IsEmpty;
using ::testing::Not;

/// What a screen reader is told about a window.
class Spoken {
  public:
    explicit Spoken(HWND window) {
        // At run time: its import library and the one of the identifiers hold the same one.
        static const auto objectOf = reinterpret_cast<decltype(&::AccessibleObjectFromWindow)>(
            ::GetProcAddress(::LoadLibraryW(L"oleacc.dll"), "AccessibleObjectFromWindow"));
        void* object = nullptr;
        if (SUCCEEDED(objectOf(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible, &object)))
            object_ = static_cast<IAccessible*>(object);
    }
    ~Spoken() {
        if (object_ != nullptr) object_->Release();
    }
    Spoken(const Spoken&) = delete;
    Spoken& operator=(const Spoken&) = delete;

    bool isThere() const { return object_ != nullptr; }
    std::string name() const {
        BSTR text = nullptr;
        object_->get_accName(self(), &text);
        const std::string name = text != nullptr ? fromWide({text, ::SysStringLen(text)}) : std::string();
        ::SysFreeString(text);
        return name;
    }
    LONG role() const { return number(&IAccessible::get_accRole); }
    LONG state() const { return number(&IAccessible::get_accState); }
    RECT place() const {
        LONG left = 0;
        LONG top = 0;
        LONG width = 0;
        LONG height = 0;
        object_->accLocation(&left, &top, &width, &height, self());
        return {left, top, left + width, top + height};
    }

  private:
    static VARIANT self() {
        VARIANT child{};
        child.vt = VT_I4;
        child.lVal = CHILDID_SELF;
        return child;
    }
    LONG number(HRESULT (STDMETHODCALLTYPE IAccessible::*ask)(VARIANT, VARIANT*)) const {
        VARIANT answer{};
        (object_->*ask)(self(), &answer);
        return answer.vt == VT_I4 ? answer.lVal : 0;
    }

    IAccessible* object_ = nullptr;
};

class AccessibilityTest : public testing::Test, protected PeerHarness {
  protected:
    AccessibilityTest() {
        form->tabs.setIndex(1);
        embed();
    }
    void TearDown() override { EXPECT_THAT(trace.lines(), IsEmpty()); }
    std::string nameOf(Control& control) const { return Spoken(of(control)).name(); }
};

TEST_F(AccessibilityTest, EveryControlThatTheKeyboardReachesHasAName) {
    for (Control* each :
         std::vector<Control*>{&form->tabs, &form->name, &form->description, &form->values, &form->members,
                               &form->ok, &form->cancel, &form->help, &form->grid}) {
        const Spoken spoken(of(*each));
        ASSERT_TRUE(spoken.isThere()) << each->name();
        EXPECT_THAT(spoken.name(), Not(IsEmpty())) << each->name();
        EXPECT_NE(spoken.role(), 0) << each->name();
    }
}

TEST_F(AccessibilityTest, ABoxStandsBehindTheLabelThatItIsCalledBy) {
    // The box itself answers with what has been typed or chosen; screen readers look at the window before it.
    EXPECT_EQ(::GetWindow(of(form->unit), GW_HWNDPREV), of(form->unitLabel));
    EXPECT_EQ(::GetWindow(of(form->name), GW_HWNDPREV), of(form->nameLabel));
    EXPECT_EQ(nameOf(form->unitLabel), "Unit");
}

TEST_F(AccessibilityTest, AListIsCalledByWhatItStandsInAtThatMoment) {
    EXPECT_EQ(nameOf(form->grid), "Processes");
    form->first.setCaption("Vorg\xC3\xA4nge");
    EXPECT_EQ(nameOf(form->grid), "Vorg\xC3\xA4nge");
    EXPECT_EQ(nameOf(form->values), "Process Case");
    EXPECT_EQ(nameOf(form->tabs), "Sample Form");
}

TEST_F(AccessibilityTest, AButtonIsCalledByItsCaption) {
    EXPECT_EQ(nameOf(form->cancel), "Cancel");
}

TEST_F(AccessibilityTest, StatesFollowTheKeyboardAndTheModel) {
    focus(form->help);
    EXPECT_NE(Spoken(of(form->help)).state() & STATE_SYSTEM_FOCUSED, 0);
    EXPECT_EQ(Spoken(of(form->ok)).state() & STATE_SYSTEM_FOCUSED, 0);
    form->ok.setEnabled(false);
    EXPECT_NE(Spoken(of(form->ok)).state() & STATE_SYSTEM_UNAVAILABLE, 0);
    form->cancel.setVisible(false);
    EXPECT_NE(Spoken(of(form->cancel)).state() & STATE_SYSTEM_INVISIBLE, 0);
}

TEST_F(AccessibilityTest, PlacesAreThoseOnTheScreen) {
    RECT at{};
    ::GetClientRect(of(form->values), &at);
    ::MapWindowPoints(of(form->values), nullptr, reinterpret_cast<POINT*>(&at), 2);
    const RECT told = Spoken(of(form->values)).place();
    EXPECT_TRUE(::EqualRect(&told, &at));
}

TEST_F(AccessibilityTest, CellsCanBeReadAndFoundThroughTheListItself) {
    const HWND list = of(form->values);
    wchar_t text[50] = L"";
    LVITEMW item{};
    item.iSubItem = 1;
    item.pszText = text;
    item.cchTextMax = 50;
    ::SendMessageW(list, LVM_GETITEMTEXTW, 0, reinterpret_cast<LPARAM>(&item));
    EXPECT_EQ(fromWide(text), "M8");
    RECT cell{};
    cell.left = LVIR_BOUNDS;
    cell.top = 1;
    ASSERT_TRUE(::SendMessageW(list, LVM_GETSUBITEMRECT, 0, reinterpret_cast<LPARAM>(&cell)));
    EXPECT_EQ(cell.left, 120) << "behind the first column";
    EXPECT_GT(cell.bottom, cell.top);
}

/// The windows of the main form, both of its views.
class MainFormAccessibilityTest : public testing::Test, protected PortsHarness {
  protected:
    MainFormAccessibilityTest() {
        services_.host.set(host);
        services_.configureTexts(*host, "Norvex - Process Manager");
        host_ = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_CLIPCHILDREN, 0, 0, 1100, 900, nullptr,
                                  nullptr, nullptr, nullptr);
    }
    ~MainFormAccessibilityTest() override {
        main_.unload();
        ::DestroyWindow(host_);
    }
    MainFormAccessibilityTest(const MainFormAccessibilityTest&) = delete;
    MainFormAccessibilityTest& operator=(const MainFormAccessibilityTest&) = delete;

    void show(FRView view) {
        main_.SetView(view);
        main_.embed(reinterpret_cast<WindowHandle>(host_));
    }
    std::vector<ControlPeer*> peers() const {
        std::vector<ControlPeer*> found;
        const auto add = [](HWND window, LPARAM all) -> BOOL {
            if (ControlPeer* peer = ControlPeer::of(window))
                reinterpret_cast<std::vector<ControlPeer*>*>(all)->push_back(peer);
            return TRUE;
        };
        ::EnumChildWindows(reinterpret_cast<HWND>(main_.handle()), add, reinterpret_cast<LPARAM>(&found));
        return found;
    }
    /// Boxes are called by the label before them.
    static bool needsName(const Control& control) {
        const Control::Kind kind = control.kind();
        const bool isReached = kind == Control::Kind::Button || kind == Control::Kind::Grid ||
                               kind == Control::Kind::Splitter || kind == Control::Kind::TabStrip;
        for (const Control* each = &control; each != nullptr; each = each->parent()) {
            if (!each->visible() && each->kind() != Control::Kind::Form) return false;
        }
        return isReached;
    }

    Win32Desktop windows_{::GetModuleHandleW(nullptr), operations};
    Services services_{platformOn(windows_)};
    HWND host_ = nullptr;
    FrmMain main_{services_.forViews()};
};

TEST_F(MainFormAccessibilityTest, EverythingThatIsNoBoxHasANameOfItsOwn) {
    for (const FRView view : {FRView::FRProcesses, FRView::FRProcesscase}) {
        show(view);
        int asked = 0;
        for (const ControlPeer* peer : peers()) {
            if (!needsName(*peer->control())) continue;
            EXPECT_THAT(Spoken(peer->window()).name(), Not(IsEmpty())) << peer->control()->name();
            ++asked;
        }
        EXPECT_GE(asked, 4);
        main_.unload();
    }
}

TEST_F(MainFormAccessibilityTest, ABarSaysWhatItStandsBetween) {
    show(FRView::FRProcesscase);
    EXPECT_EQ(Spoken(PeerHarness::of(main_, main_.SplitFilters)).name(), "Bar below the filters");
    for (const Splitter* each : {&main_.SplitSteps, &main_.SplitStepsBeside})
        EXPECT_EQ(Spoken(PeerHarness::of(main_, *each)).name(), "Bar between processes and steps");
}

TEST_F(AccessibilityTest, ATextThatIsTooLongForTheAskerIsCutOff) {
    wchar_t text[5] = L"";
    EXPECT_EQ(::GetWindowTextLengthW(of(form->values)), 12);
    EXPECT_EQ(::GetWindowTextW(of(form->values), text, 5), 4);
    EXPECT_STREQ(text, L"Proc");
}

}  // namespace
}  // namespace pellmark::test
