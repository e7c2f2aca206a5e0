#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "com/adapters/ScriptEngine.h"
#include "com/adapters/TechnologyServiceAdapter.h"
#include "refhost/automation/NorvexLibrary.h"
#include "support/TemporaryFolder.h"

namespace pellmark {
namespace {

using testing::Contains;

/// The component's adapter over the technology service of the sample, a class of VBScript.
class ScriptedTechnologyTest : public testing::Test {
  protected:
    test::NorvexLibrary automation_;
    test::ScriptEngine script_{test::NorvexLibrary::folder() + L"\\samples\\vbscript\\technology.vbs"};
    TechnologyServiceAdapter service_{
        DispatchObject(script_.global(), "Script").call("NewTechnologyService").object()};
    test::TemporaryFolder folder_;
};

TEST_F(ScriptedTechnologyTest, ATechnologyOfAScriptIsReadAndChanged) {
    const auto technology = service_.create(602, "");
    EXPECT_EQ(technology->cuttingCycleId(), 602);
    technology->setOperationName("Drill 6.5");
    EXPECT_EQ(technology->operationName(), "Drill 6.5");
    ASSERT_EQ(technology->count(), 4);
    EXPECT_EQ(technology->parameter(1).kind(), TechnologyParameter::kKindKept);
    EXPECT_EQ(technology->parameter(2).value(), Variant(6.5));
    EXPECT_EQ(technology->parameterOf(1301)->value(), Variant());
    technology->parameterOf(1101)->setValue(95.25);
    EXPECT_EQ(technology->parameterOf(1101)->value(), Variant(95.25));
    EXPECT_EQ(service_.edit(*technology, 0), TechnologyService::kAccepted);
    EXPECT_TRUE(service_.runStepWizard(*technology, 0));
    EXPECT_EQ(technology->parameterOf(1301)->value(), Variant("emulsion"));
}

TEST_F(ScriptedTechnologyTest, AScriptWritesAndReadsItsProcessFiles) {
    TechnologyService::OperationList operations;
    for (const char* name : {"First", "Second"}) {
        operations.push_back(service_.create(602, ""));
        operations.back()->setOperationName(name);
        operations.back()->parameterOf(1001)->setValue(6.5);
    }
    const std::string path = folder_.file("a.prc");
    ASSERT_TRUE(service_.write(path, operations));
    EXPECT_FALSE(service_.write(folder_.file("missing") + "\\a.prc", operations));
    const auto again = service_.read(path, nullptr);
    ASSERT_EQ(again.size(), 2U);
    EXPECT_EQ(again[1]->operationName(), "Second");
    EXPECT_EQ(again[1]->parameterOf(1001)->value(), Variant(6.5));
    EXPECT_FALSE(service_.defaultFolder().empty());
}

TEST_F(ScriptedTechnologyTest, AScriptIsToldWhatWasStored) {
    service_.stored("{S}", *service_.create(602, ""));
    EXPECT_THAT(script_.echoed(), Contains("Stored with {S}: Drill"));
}

}  // namespace
}  // namespace pellmark
