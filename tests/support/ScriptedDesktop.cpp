#include "support/ScriptedDesktop.h"

#include <gtest/gtest.h>

namespace pellmark::test {

class ScriptedDesktop::Peer : public FormPeer {
  public:
    Peer(ScriptedDesktop& desktop, Form& form) : desktop_(desktop), form_(form), name_(form.name()) {
        note("create");
        desktop_.loaded_.push_back(&form_);
    }
    ~Peer() override {
        note("destroy");
        std::erase(desktop_.loaded_, &form_);
    }

    WindowHandle handle() const override { return reinterpret_cast<WindowHandle>(this); }
    void embed(const EmbeddedPlace& place) override {
        note("embed", place.parent);
        place_ = place;
    }
    std::optional<EmbeddedPlace> embeddedPlace() const override {
        return desktop_.hostWindowsGone ? std::nullopt : place_;
    }
    void runModal(WindowHandle owner) override {
        note("modal", owner);
        Expected expected;
        if (!desktop_.take("dialog", name_, expected)) return;
        expected.onForm(form_);
        if (!ended_) ADD_FAILURE() << "the script left the dialog " << name_ << " open";
    }
    void runWhile(WindowHandle owner, const std::function<void()>& work) override {
        note("while", owner);
        Expected expected;
        if (desktop_.take("dialog", name_, expected)) expected.onForm(form_);
        work();
    }
    void endModal() override { ended_ = true; }
    void popUp(Menu& menu, Control&, Point) override {
        Expected expected;
        if (desktop_.take("menu", menu.name(), expected)) expected.onMenu(menu);
    }

  private:
    void note(const std::string& what) { desktop_.windows_.push_back(what + " " + name_); }
    void note(const std::string& what, WindowHandle other) {
        desktop_.windows_.push_back(what + " " + name_ + " " + std::to_string(other));
    }

    ScriptedDesktop& desktop_;
    Form& form_;
    std::string name_;
    bool ended_ = false;
    std::optional<EmbeddedPlace> place_;
};

ScriptedDesktop::~ScriptedDesktop() {
    for (const Expected& expected : script_)
        ADD_FAILURE() << "never came: " << expected.kind << " " << expected.name;
}

void ScriptedDesktop::expectMessage(const std::string& text, MessageAnswer answer) {
    script_.push_back({"message", text, {}, {}, answer});
}

void ScriptedDesktop::expectDialog(const std::string& name, std::function<void(Form&)> script) {
    script_.push_back({"dialog", name, std::move(script), {}, MessageAnswer::Ok});
}

void ScriptedDesktop::expectMenu(const std::string& name, std::function<void(Menu&)> script) {
    script_.push_back({"menu", name, {}, std::move(script), MessageAnswer::Ok});
}

bool ScriptedDesktop::take(const std::string& kind, const std::string& name, Expected& expected) {
    if (script_.empty() || script_.front().kind != kind || script_.front().name != name) {
        ADD_FAILURE() << "unexpected " << kind << ": " << name
                      << (script_.empty()
                              ? ""
                              : "; expected was " + script_.front().kind + ": " + script_.front().name);
        return false;
    }
    expected = std::move(script_.front());
    script_.pop_front();
    return true;
}

Form* ScriptedDesktop::loaded(const std::string& name) const {
    for (Form* form : loaded_) {
        if (form->name() == name) return form;
    }
    return nullptr;
}

MessageAnswer ScriptedDesktop::showMessage(const MessageBox& message) {
    messages_.push_back(message);
    Expected expected;
    return take("message", message.text, expected) ? expected.answer : MessageAnswer::Cancel;
}

std::unique_ptr<FormPeer> ScriptedDesktop::createPeer(Form& form) {
    return std::make_unique<Peer>(*this, form);
}

}  // namespace pellmark::test
