#include "base/Operations.h"

#include <deque>
#include <utility>

namespace pellmark {

struct Operations::State {
    explicit State(Trace& where) : trace(where) {}

    Trace& trace;
    int depth = 0;
    bool busy = false;  ///< a command is running in the topmost window
    std::deque<std::function<void()>> putOff;

    void carryOut(const std::function<void()>& action) noexcept {
        trap(trace, "Operations::whenIdle", [&] { action(); });
    }
};

Operations::Operations(Trace& trace) : state_(std::make_shared<State>(trace)) {}

Trace& Operations::trace() const {
    return state_->trace;
}

bool Operations::running() const {
    return state_->depth > 0;
}

void Operations::whenIdle(std::function<void()> action) const {
    if (running()) {
        state_->putOff.push_back(std::move(action));
        return;
    }
    const Scope scope(*this);  // what it asks for in its turn comes after it
    state_->carryOut(action);
}

Operations::Scope::Scope(const Operations& operations) : state_(operations.state_) {
    ++state_->depth;
}

Operations::Scope::~Scope() {
    // The actions still run inside this scope: what they put off in their turn comes after them, here.
    while (state_->depth == 1 && !state_->putOff.empty()) {
        const std::function<void()> action = std::move(state_->putOff.front());
        state_->putOff.pop_front();
        state_->carryOut(action);
    }
    --state_->depth;
}

Operations::Modal::Modal(const Operations& operations)
    : scope_(operations), state_(operations.state_), outerBusy_(std::exchange(state_->busy, false)) {}

Operations::Modal::~Modal() {
    state_->busy = outerBusy_;
}

Operations::Command::Command(const Operations& operations, std::string_view operation)
    : scope_(operations), state_(operations.state_), accepted_(!state_->busy) {
    if (accepted_) {
        state_->busy = true;
    } else {
        state_->trace.record(operation, "refused: an earlier command has not ended yet");
    }
}

Operations::Command::~Command() {
    if (accepted_) state_->busy = false;
}

}  // namespace pellmark
