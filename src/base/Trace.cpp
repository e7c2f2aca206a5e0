#include "base/Trace.h"

#include "base/Error.h"

namespace pellmark {

std::string describeCurrentException() {
    try {
        throw;
    } catch (const Error& error) {
        return "error " + std::to_string(error.number()) + " from " + error.source() + ": " + error.what();
    } catch (const std::exception& error) {
        return error.what();
    } catch (...) {
        return "unknown exception";
    }
}

}  // namespace pellmark
