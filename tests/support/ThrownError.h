#pragma once

#include "base/Error.h"

namespace pellmark::test {

/// The Error with which a body ends; one with the number 0 when it ends well.
template <class Body>
Error errorOf(Body&& body) {
    try {
        body();
    } catch (const Error& error) {
        return error;
    }
    return Error(0, "", "nothing was thrown");
}

}  // namespace pellmark::test
