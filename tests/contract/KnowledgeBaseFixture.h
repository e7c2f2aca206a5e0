#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/Error.h"
#include "base/Guid.h"
#include "contract/KnowledgeBaseContract.h"
#include "knowledge/Records.h"

namespace pellmark::test {

using Rows = std::vector<std::vector<std::string>>;

/// GUID text that no base has given out.
inline const std::string kUnknownId = "{0BADF00D-0000-4000-8000-000000000001}";

/// Texts that break what is quoted, cut or converted carelessly.
inline const std::vector<std::string> kNastyTexts{
    "",
    " ",
    "'; DROP TABLE process; --",
    "\"quoted\" and 'single'",
    "line\r\nbreak\ttab\vvertical",
    "100 % _ * ? [a-z] \\ / |",
    "\xC3\x84\xC3\x96\xC3\x9C \xE8\xA8\x98\xE9\x8C\xB2 \xD0\x96",
    "\xF0\x9F\x94\xA9 bolt \xF0\x9F\x91\xA8\xE2\x80\x8D\xF0\x9F\x94\xA7",
    "e\xCC\x81 combining, \xE2\x80\x8F right to left",
    "ends in blanks  ",
};

inline Rows rowsOf(RecordSet& records) {
    Rows rows;
    for (std::size_t i = 0; i < records.count(); ++i) {
        std::vector<std::string> row;
        for (std::size_t j = 0; j < records.fields().size(); ++j)
            row.push_back(records.text(i, j));
        rows.push_back(row);
    }
    return rows;
}

inline std::vector<std::string> column(RecordSet& records, const std::string& name) {
    std::vector<std::string> texts;
    const auto field = records.fieldIndex(name);
    if (!field) return {"no field " + name};
    for (std::size_t i = 0; i < records.count(); ++i)
        texts.push_back(records.text(i, *field));
    return texts;
}

struct Thrown {
    std::int32_t number = 0;
    std::string description;
};

inline Thrown thrownBy(const std::function<void()>& body) {
    try {
        body();
    } catch (const Error& error) {
        return {error.number(), error.description()};
    }
    return {};
}

inline std::string repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

class KnowledgeBaseContract : public testing::TestWithParam<ContractFactory> {
  protected:
    std::unique_ptr<ContractSubject> subject = GetParam().make();
    KnowledgeBaseService& service = subject->service();
    ProcessStore& processes = service.processStore();
    FeatureCaseStore& cases = service.featureCaseStore();
    ProcessStepStore& steps = service.stepStore();

    std::string addProcess(const std::string& name, std::int16_t unitCode = unit::kMetric) {
        return processes.addProcess({"", name, unitCode, "why " + name, "Diameter > 1"});
    }
    std::string addStep(const std::string& processId, const std::string& name, std::int16_t priority) {
        return steps.addStep({"", name, processId, priority, 4});
    }
    std::vector<std::string> orphans() { return column(*processes.orphanProcesses(), "_Id"); }
};

inline std::string factoryName(const testing::TestParamInfo<ContractFactory>& info) {
    return info.param.name;
}

/// Runs the suite once for each knowledge base of the test program.
#define FOR_EVERY_KNOWLEDGE_BASE(suite) \
    INSTANTIATE_TEST_SUITE_P(Every, suite, testing::ValuesIn(contractFactories()), factoryName)

}  // namespace pellmark::test
