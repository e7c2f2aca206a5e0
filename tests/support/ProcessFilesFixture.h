#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/StepsHarness.h"

namespace pellmark::test {

/// Two processes, and files of steps to open and save.
class ProcessFilesFixture : public testing::Test, protected StepsHarness {
  protected:
    static constexpr const char* kPath = "C:\\Data\\holes.prc";

    ProcessFilesFixture() {
        process = base.addProcess("A");
        other = base.addProcess("B");
        technology.setDefaults(defaults());
        files.makeFolder("C:\\Data");
        start();
    }
    static FakeTechnology defaults() {
        return FakeTechnology(602, "Default").add(1, 1.0).add(2, std::string("text")).add(3, Variant{});
    }
    /// A file of that many operations, large enough for the progress to be shown where asked for.
    void putFile(int count, bool large = false) {
        std::vector<FakeTechnology> all;
        for (int i = 0; i < count; ++i)
            all.push_back(FakeTechnology(602, "op " + std::to_string(i)).add(1, i + 0.5));
        technology.putFile(kPath, all);
        files.makeFile(kPath, std::string(large ? 100'000 : 99'999, 'x'));
    }
    void open(const std::string& path = kPath) {
        fileDialogs.expectOpen(path);
        steps.OpenPrc();
    }
    void save(const std::string& path) {
        fileDialogs.expectSave(path);
        steps.Save();
    }
    std::vector<std::string> storedNames() {
        std::vector<std::string> all;
        for (const auto& step : base.tables().steps)
            all.push_back(step.record.name + " " + std::to_string(step.record.priority));
        return all;
    }

    std::string process, other;
};

}  // namespace pellmark::test
