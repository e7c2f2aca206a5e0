#include "util/UserInterface.h"

#include <exception>
#include <string>

namespace pellmark {

namespace {

/// What a person is shown of a failure; the trace says more.
std::string descriptionOfCurrentException() {
    try {
        throw;
    } catch (const std::exception& error) {
        return error.what();
    } catch (...) {
        return describeCurrentException();
    }
}

}  // namespace

MessageAnswer UserInterface::show(MessageBox message) const {
    if (message.title.empty()) message.title = texts.title();
    return desktop.showMessage(message);
}

void UserInterface::tellCurrentFailure(std::string_view operation) const {
    const std::string description = descriptionOfCurrentException();
    trap(operations(), operation, [&] { show({description, "", MessageIcon::Critical}); });
}

}  // namespace pellmark
