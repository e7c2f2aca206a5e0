#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "base/Trace.h"

namespace pellmark {

/// What of the component runs at this moment. One per Application object. Everything that may run a person's
/// or the host's code (public call, window message, event, menu command, dialog, drag) runs inside a Scope;
/// hosts call back at any moment, and what they ask for then must not pull the ground from under an operation
/// that is still on the stack. Copies share their state, and a Scope keeps it alive, so that the outermost
/// one may end everything, this object included. For one thread.
class Operations {
    struct State;

  public:
    /// The trace must outlive every scope.
    explicit Operations(Trace& trace);

    Trace& trace() const;

    /// Held while something of the component is on the stack. When the outermost one goes, what was put off
    /// meanwhile happens, in the order in which it was asked for.
    class Scope {
      public:
        explicit Scope(const Operations& operations);
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
        ~Scope();

      private:
        std::shared_ptr<State> state_;
    };
    bool running() const;

    /// Does it at once when nothing is running, otherwise when the outermost scope ends. It must not throw; a
    /// failure is traced.
    void whenIdle(std::function<void()> action) const;

    /// Held while a modal form is up: a person's command there is a new one, although the command that opened
    /// the form has not ended.
    class Modal {
      public:
        explicit Modal(const Operations& operations);
        Modal(const Modal&) = delete;
        Modal& operator=(const Modal&) = delete;
        ~Modal();

      private:
        Scope scope_;
        std::shared_ptr<State> state_;
        bool outerBusy_;
    };

    /// A person's command: one at a time in each window. A second one that arrives because the host lets
    /// messages through while it serves the first (OK pressed twice on a slow store) is refused and traced.
    class Command {
      public:
        Command(const Operations& operations, std::string_view operation);
        Command(const Command&) = delete;
        Command& operator=(const Command&) = delete;
        ~Command();

        explicit operator bool() const { return accepted_; }

      private:
        Scope scope_;
        std::shared_ptr<State> state_;
        bool accepted_;
    };

  private:
    std::shared_ptr<State> state_;
};

/// Runs an operation or event handler that must end quietly, inside a scope. Whatever it throws is recorded
/// under its name. Returns true when the body ran to its end.
template <class Body>
bool trap(const Operations& operations, std::string_view operation, Body&& body) noexcept {
    const Operations::Scope scope(operations);
    return trap(operations.trace(), operation, body);
}

/// The same for a person's command; false also when it was refused.
template <class Body>
bool trapCommand(const Operations& operations, std::string_view operation, Body&& body) noexcept {
    const Operations::Command command(operations, operation);
    return command && trap(operations.trace(), operation, body);
}

}  // namespace pellmark
