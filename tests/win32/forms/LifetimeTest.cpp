#include <gmock/gmock.h>

#include "base/Error.h"
#include "controls/Menu.h"
#include "support/win32/PeerHarness.h"

namespace pellmark::test {
namespace {

/// What is open when the host pulls its window, or somebody the form, from under a person's hands.
class LifetimeTest : public ::testing::Test, protected PeerHarness {
  protected:
    class Dialog : public Form {
      public:
        explicit Dialog(Desktop& desktop) : Form(desktop, "Dialog") {
            setCaption("Dialog");
            button.place({100, 100, 1200, 400}, {6000, 4000}, {});
        }
        Button button{*this, "button", "Button"};
        bool failsToLoad = false;
        int queryUnloads = 0;

      protected:
        void Form_Load() override {
            if (failsToLoad) throw Error(5, "Test", "on purpose");
        }
        void Form_QueryUnload() override { ++queryUnloads; }
    };

    HWND window(const Form& shown) const { return reinterpret_cast<HWND>(shown.handle()); }
    WindowHandle owner() const { return reinterpret_cast<WindowHandle>(host()); }
    /// Clicks OK of the embedded sample form, whose handler runs `command`, while `steps` happen.
    void clickOk(const std::function<void()>& command, std::initializer_list<Meanwhile::Step> steps) {
        embed();
        const auto clicked = form->ok.clicked.subscribe(command);
        const HWND button = of(form->ok);
        const Meanwhile meanwhile(steps);
        Person::click(button);
        EXPECT_TRUE(meanwhile.isDone());
    }
    bool destroyHost() {
        ::DestroyWindow(host());
        return true;
    }
};

TEST_F(LifetimeTest, TheHostsWindowGoesUnderADialog) {
    Dialog dialog(desktop);
    bool wasLoadedAfterwards = false;
    clickOk(
        [&] {
            dialog.showModal(owner());
            wasLoadedAfterwards = form->isLoaded();
            form->grid.setText(1, 1, "still there");
        },
        {[&] { return dialog.isLoaded() && ::IsWindowVisible(window(dialog)); },
         [&] { return destroyHost(); }});
    EXPECT_FALSE(dialog.isLoaded());
    EXPECT_TRUE(wasLoadedAfterwards);  // until the command has ended
    EXPECT_FALSE(form->isLoaded());
    EXPECT_EQ(form->queryUnloads, 1);
    EXPECT_THAT(trace.lines(), ::testing::IsEmpty());
}

TEST_F(LifetimeTest, TheHostsWindowGoesUnderAMessageBox) {
    std::optional<MessageAnswer> answer;
    clickOk(
        [&] {
            answer = desktop.showMessage(
                {"Question?", "Lifetime", MessageIcon::Question, MessageButtons::OkCancel});
            form->grid.setText(1, 1, "still there");
        },
        {[&] { return ::FindWindowW(L"#32770", L"Lifetime") != nullptr; }, [&] { return destroyHost(); }});
    EXPECT_EQ(answer, MessageAnswer::Cancel);
    EXPECT_FALSE(form->isLoaded());
    EXPECT_THAT(trace.lines(), ::testing::IsEmpty());
}

TEST_F(LifetimeTest, TheHostsWindowGoesUnderAMenu) {
    Menu menu("menu", "Menu");
    int chosen = 0;
    menu.add("item", "Item", [&] { ++chosen; });
    clickOk(
        [&] {
            form->popUp(menu, form->grid, {300, 300});
            form->grid.setText(1, 1, "still there");
        },
        {[&] { return visibleWindowOfClass(L"#32768") != nullptr; }, [&] { return destroyHost(); }});
    EXPECT_EQ(chosen, 0);
    EXPECT_FALSE(form->isLoaded());
    EXPECT_THAT(trace.lines(), ::testing::IsEmpty());
}

TEST_F(LifetimeTest, TheFormGoesUnderItsOwnMenu) {
    Menu menu("menu", "Menu");
    menu.add("item", "Item", [] {});
    HWND shown = nullptr;
    clickOk(
        [&] {
            shown = window(*form);
            form->popUp(menu, form->grid, {300, 300});
        },
        {[&] { return visibleWindowOfClass(L"#32768") != nullptr; },
         [&] {
             form.reset();
             ::EndMenu();
             return true;
         }});
    EXPECT_FALSE(::IsWindow(shown));
}

TEST_F(LifetimeTest, AModalFormIsDestroyedInItsOwnLoop) {
    auto dialog = std::make_unique<Dialog>(desktop);
    HWND shown = nullptr;
    const Meanwhile meanwhile({[&] { return dialog->isLoaded() && ::IsWindowVisible(window(*dialog)); },
                               [&] {
                                   shown = window(*dialog);
                                   dialog.reset();
                                   return true;
                               }});
    Dialog* running = dialog.get();
    running->showModal(owner());
    EXPECT_TRUE(meanwhile.isDone());
    EXPECT_FALSE(::IsWindow(shown));
    EXPECT_TRUE(::IsWindowEnabled(host()));
}

TEST_F(LifetimeTest, AModalFormIsDestroyedByItsOwnButton) {
    auto dialog = std::make_unique<Dialog>(desktop);
    HWND shown = nullptr;
    const auto clicked = dialog->button.clicked.subscribe([&] { dialog.reset(); });
    const Meanwhile meanwhile({[&] { return dialog->isLoaded() && ::IsWindowVisible(window(*dialog)); },
                               [&] {
                                   shown = window(*dialog);
                                   const HWND button = ::GetWindow(shown, GW_CHILD);
                                   Person::sendClick(button, Person::middleOf(button), false);
                                   return true;
                               }});
    Dialog* running = dialog.get();
    running->showModal(owner());
    EXPECT_EQ(dialog, nullptr);
    EXPECT_FALSE(::IsWindow(shown));
    EXPECT_TRUE(::IsWindowEnabled(host()));
}

TEST_F(LifetimeTest, AFormThatFailsToLoadIsNotShownAndLeavesNothingSet) {
    Dialog dialog(desktop);
    dialog.failsToLoad = true;
    EXPECT_THROW(dialog.showModal(owner()), Error);
    EXPECT_FALSE(dialog.isLoaded());
    EXPECT_FALSE(dialog.isShown());
    EXPECT_TRUE(::IsWindowEnabled(host()));
    EXPECT_FALSE(operations.running());
}

TEST_F(LifetimeTest, AHandlerThatThrowsInAModalFormLeavesItOpen) {
    Dialog dialog(desktop);
    const auto clicked = dialog.button.clicked.subscribe([] { throw Error(5, "Test", "on purpose"); });
    const Meanwhile meanwhile({[&] { return dialog.isLoaded() && ::IsWindowVisible(window(dialog)); },
                               [&] {
                                   const HWND button = ::GetWindow(window(dialog), GW_CHILD);
                                   Person::sendClick(button, Person::middleOf(button), false);
                                   return true;
                               },
                               [&] {
                                   if (trace.lines().empty()) return false;
                                   dialog.unload();
                                   return true;
                               }});
    dialog.showModal(owner());
    EXPECT_TRUE(meanwhile.isDone());
    EXPECT_TRUE(trace.trapped("ControlPeer::procedure"));
    EXPECT_EQ(dialog.queryUnloads, 1);
}

TEST_F(LifetimeTest, AFormIsDestroyedWhileACellIsBeingEdited) {
    embed();
    form->tabs.setIndex(1);
    focus(form->values);
    form->values.select(2, 0);
    Person::press({VK_F2});
    ASSERT_TRUE(form->values.isEditing());
    form.reset();
    Person::pump();
    EXPECT_THAT(trace.lines(), ::testing::IsEmpty());
}

TEST_F(LifetimeTest, WhatIsPutOffHappensWhenTheWindowsProcedureHasReturned) {
    bool was = true;
    clickOk(
        [&] {
            operations.whenIdle([&] { form.reset(); });
            was = form != nullptr;
        },
        {});
    EXPECT_TRUE(was);
    EXPECT_EQ(form, nullptr);
}

}  // namespace
}  // namespace pellmark::test
