#include "support/FakeLimits.h"

#include "knowledge/FieldLimits.h"

namespace pellmark::test {

namespace {

constexpr const char* kSource = "KnowledgeBase";

}  // namespace

void checkLengths(const ProcessRecord& record) {
    checkLength(record.Name, limit::kName, "name", kSource);
    checkLength(record.Rule, limit::kRule, "rule", kSource);
    checkLength(record.Description, limit::kDescription, "description", kSource);
}

void checkLengths(const ProcessStepRecord& record) {
    checkLength(record.name, limit::kName, "name", kSource);
}

}  // namespace pellmark::test
