#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "base/Error.h"

namespace pellmark::test {

/// Expects an Error with this number whose description holds the text.
template <class Body>
void expectError(std::int32_t number, const std::string& text, Body&& body) {
    try {
        body();
        ADD_FAILURE() << "no error was thrown";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), number) << error.description();
        EXPECT_THAT(error.description(), testing::HasSubstr(text));
    }
}

}  // namespace pellmark::test
