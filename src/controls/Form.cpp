#include "controls/Form.h"

#include <utility>

#include "base/Operations.h"

namespace pellmark {

Form::Form(Desktop& desktop, std::string name)
    : Container(Kind::Form, nullptr, std::move(name)), desktop_(desktop) {
    setTabStop(false);
}

Form::~Form() = default;

void Form::load() {
    if (isLoaded()) return;
    abandoned_ = false;
    if (!focusAsked_) focused_ = nullptr;
    Form_Load();
    if (abandoned_) return;
    restoreLayout();
    arrange(clientSize_);
    peer_ = desktop_.createPeer(*this);
    ++windows_;
}

void Form::unload() {
    if (!isLoaded()) return;
    Form_QueryUnload();
    shown_ = false;
    embeddedIn_ = 0;
    if (std::exchange(modal_, false)) {
        // The modal loop is still running on the peer's stack: it goes when showModal returns.
        retiring_ = std::move(peer_);
        retiring_->endModal();
    } else {
        peer_.reset();
    }
}

void Form::windowGone() {
    desktop_.operations().whenIdle([self = std::weak_ptr(self_), gone = windows_] {
        const auto form = self.lock();
        if (form && (*form)->windows_ == gone) (*form)->unload();
    });
}

void Form::embed(const EmbeddedPlace& place) {
    load();
    if (!isLoaded()) return;
    shown_ = true;
    embeddedIn_ = place.parent;
    try {
        peer_->embed(place);
    } catch (...) {
        shown_ = false;
        embeddedIn_ = 0;
        throw;
    }
}

std::optional<EmbeddedPlace> Form::embeddedPlace() const {
    return peer_ && isEmbedded() ? peer_->embeddedPlace() : std::nullopt;
}

/// The state of a modal show. Whatever way it ends, and a loop ends by itself when the host is quitting, the
/// form is not left shown; the form itself may be gone by then.
class Form::ModalShow {
  public:
    explicit ModalShow(Form& form) : form_(form.self_), modal_(form.desktop_.operations()) {
        form.shown_ = true;
        form.modal_ = true;
    }
    ModalShow(const ModalShow&) = delete;
    ModalShow& operator=(const ModalShow&) = delete;
    ~ModalShow() {
        const auto form = form_.lock();
        if (!form) return;
        trap((*form)->desktop_.operations(), "Form::showModal", [&] { (*form)->unload(); });
        (*form)->retiring_.reset();
    }

  private:
    std::weak_ptr<Form*> form_;
    Operations::Modal modal_;
};

void Form::showModal(WindowHandle owner) {
    load();
    if (!isLoaded()) return;
    const ModalShow show(*this);
    peer_->runModal(owner);
}

void Form::showWhile(WindowHandle owner, const std::function<void()>& work) {
    load();
    if (!isLoaded()) return;
    const ModalShow show(*this);
    peer_->runWhile(owner, work);
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

void Form::askFocus(Control& control) {
    focused_ = &control;
    focusAsked_ = true;
}

void Form::focusArrived(Control& control) {
    focused_ = &control;
    focusAsked_ = false;
}

void Form::forget(const Control& control) {
    if (focused_ != &control) return;
    focused_ = nullptr;
    focusAsked_ = false;
}

void Form::setMinimumSize(Size size) {
    if (size == minimumSize_) return;
    minimumSize_ = size;
    changed.raise(ControlChange::MinimumSize);
}

void Form::resized(Size client) {
    clientSize_ = client;
    arrange(client);
}

}  // namespace pellmark
