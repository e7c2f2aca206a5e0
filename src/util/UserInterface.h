#pragma once

#include <string_view>

#include "base/Geometry.h"
#include "base/Operations.h"
#include "ports/Desktop.h"
#include "settings/cRegDefaults.h"
#include "util/Texts.h"

namespace pellmark {

/// Opens the component's help; behind every Help button.
class HelpLauncher {
  public:
    virtual ~HelpLauncher() = default;
    virtual void openHelp(WindowHandle owner) = 0;
};

/// What everything that meets a person needs: a screen, its language, its help, and how that person left it
/// all the last time. The parts are borrowed.
struct UserInterface {
    Desktop& desktop;
    Texts& texts;
    HelpLauncher& help;
    cRegDefaults& layouts;

    const Operations& operations() const { return desktop.operations(); }
    /// Shows a box; without a title it bears the title of the current call.
    MessageAnswer show(MessageBox message) const;
    /// Traces the exception in flight and shows what it says. Call only inside a catch block.
    void tellCurrentFailure(std::string_view operation) const;
};

/// Runs a handler inside a scope. What it throws is traced under its name and told to the person. Returns
/// true when it ran to its end.
template <class Body>
bool trapAndTell(const UserInterface& person, std::string_view operation, Body&& body) noexcept {
    return trap(person.operations(), operation, [&] {
        try {
            body();
        } catch (...) {
            person.tellCurrentFailure(operation);
            throw;
        }
    });
}

/// The same for a person's command; false also when it was refused because another one has not ended.
template <class Body>
bool carryOut(const UserInterface& person, std::string_view operation, Body&& body) noexcept {
    const Operations::Command command(person.operations(), operation);
    return command && trapAndTell(person, operation, body);
}

}  // namespace pellmark
