#include "support/ScriptedSystemDialogs.h"

#include <gtest/gtest.h>

namespace pellmark::test {

ScriptedSystemDialogs::~ScriptedSystemDialogs() {
    if (!colors_.empty() || !fonts_.empty() || !prints_.empty() || !pages_.empty())
        ADD_FAILURE() << "an expected dialog never came";
}

void ScriptedSystemDialogs::unexpected(const std::string& kind) {
    ADD_FAILURE() << "unexpected " << kind << " dialog";
}

}  // namespace pellmark::test
