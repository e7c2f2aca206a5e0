#include "controls/Form.h"

#include "desktop/Desktop.h"

namespace pellmark {

Form::Form(Desktop& desktop, std::string name)
    : Container(Kind::Form, nullptr, std::move(name)), desktop_(desktop) {}

Form::~Form() = default;

void Form::load() {
    if (isLoaded()) return;
    abandoned_ = false;
    Form_Load();
    if (abandoned_) return;
    arrange(clientSize_);
    peer_ = desktop_.createPeer(*this);
}

void Form::unload() {
    if (!isLoaded()) return;
    Form_QueryUnload();
    shown_ = false;
    embeddedIn_ = 0;
    if (modal_) {
        // The modal loop is still running on the peer's stack: it goes when showModal returns.
        modal_ = false;
        retiring_ = std::move(peer_);
        retiring_->endModal();
    } else {
        peer_.reset();
    }
}

void Form::embed(WindowHandle parent) {
    load();
    if (!isLoaded()) return;
    shown_ = true;
    embeddedIn_ = parent;
    peer_->embed(parent);
}

void Form::showModal(WindowHandle owner) {
    load();
    if (!isLoaded()) return;
    shown_ = true;
    modal_ = true;
    FormPeer& running = *peer_;
    running.runModal(owner);
    retiring_.reset();
    unload();  // a loop that ended by itself (the host is quitting) must not leave the form shown
}

void Form::popUp(Menu& menu, Control& over, Point at) {
    if (peer_) peer_->popUp(menu, over, at);
}

void Form::close() {
    if (cancelButton_ != nullptr && cancelButton_->visible() && cancelButton_->enabled()) {
        cancelButton_->click();
    } else {
        unload();
    }
}

void Form::resized(Size client) {
    clientSize_ = client;
    arrange(client);
}

}  // namespace pellmark
