#include "support/ObligingDesktop.h"

#include <optional>

namespace pellmark::test {

class ObligingDesktop::Peer : public FormPeer {
  public:
    Peer(ObligingDesktop& desktop, Form& form) : desktop_(desktop), form_(form) {
        desktop_.loaded_.push_back(&form_);
    }
    ~Peer() override { std::erase(desktop_.loaded_, &form_); }

    WindowHandle handle() const override { return reinterpret_cast<WindowHandle>(this); }
    void embed(const EmbeddedPlace& place) override {
        place_ = place;
        desktop_.shown("embedded " + form_.name());
    }
    std::optional<EmbeddedPlace> embeddedPlace() const override { return place_; }
    void runWhile(WindowHandle, const std::function<void()>& work) override {
        desktop_.shown("progress " + form_.name());
        work();
    }
    void runModal(WindowHandle) override {
        desktop_.shown("dialog " + form_.name());
        if (ended_) return;
        const auto script = desktop_.scripts.find(form_.name());
        if (script != desktop_.scripts.end()) script->second(form_);
        if (!ended_) form_.close();
    }
    void endModal() override { ended_ = true; }
    void popUp(Menu& menu, Control&, Point) override {
        desktop_.shown("menu " + menu.name());
        for (const MenuItem& item : menu.items()) {
            if (item.name == desktop_.menuItem && item.visible && item.enabled && item.command)
                item.command();
        }
    }

  private:
    ObligingDesktop& desktop_;
    Form& form_;
    std::optional<EmbeddedPlace> place_;
    bool ended_ = false;
};

void ObligingDesktop::shown(const std::string& what) {
    if (onShown) onShown(what);
}

Form* ObligingDesktop::loaded(const std::string& name) const {
    for (Form* form : loaded_) {
        if (form->name() == name) return form;
    }
    return nullptr;
}

MessageAnswer ObligingDesktop::showMessage(const MessageBox& message) {
    shown("message " + message.text.substr(0, 20));
    return MessageAnswer::Ok;
}

std::unique_ptr<FormPeer> ObligingDesktop::createPeer(Form& form) {
    return std::make_unique<Peer>(*this, form);
}

}  // namespace pellmark::test
