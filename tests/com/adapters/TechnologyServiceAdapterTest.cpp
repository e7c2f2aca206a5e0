#include "com/adapters/TechnologyServiceAdapter.h"

#include <gtest/gtest.h>

#include "com/adapters/ExpectError.h"
#include "com/adapters/ScriptedObject.h"
#include "support/FakeTechnology.h"

namespace pellmark {
namespace {

using test::expectError;
using test::objectValue;
using test::scriptArray;
using test::ScriptedObject;

/// A technology service as a script would write it.
class TechnologyServiceAdapterTest : public testing::Test {
  protected:
    TechnologyServiceAdapterTest() {
        technology_->on(L"CuttingCycleId", VariantArg(std::int16_t{602}))
            .on(L"OperationName", VariantArg("\"Drill\""))
            .on(L"Parameters", [this](const ScriptedObject::Values&) { return parameters_; })
            .on(L"SetValue", [this](const ScriptedObject::Values& values) {
                set_ = values;
                return VariantArg();
            });
        service_->on(L"Create", objectValue(technology_));
    }

    std::unique_ptr<TechnologyObject> create() { return adapter_.create(602, "{P}"); }

    VariantArg parameters_ =
        scriptArray({scriptArray({432, 6, 0, 2, "Drill"}), scriptArray({1101, 2, 2, 1, 80.5}),
                     scriptArray({1301, std::int16_t{2}, 0, 0, VariantArg()})});
    ScriptedObject::Values set_;
    ComPtr<ScriptedObject> service_ = ScriptedObject::make();
    ComPtr<ScriptedObject> technology_ = ScriptedObject::make();
    TechnologyServiceAdapter adapter_{DispatchObject(test::dispatchOf(service_), "Service")};
};

TEST_F(TechnologyServiceAdapterTest, ATechnologyIsCreatedForACycleAndAProcess) {
    ScriptedObject::Values given;
    auto service = ScriptedObject::make();
    service->on(L"Create", [&](const ScriptedObject::Values& values) {
        given = values;
        return objectValue(technology_);
    });
    TechnologyServiceAdapter adapter(DispatchObject(test::dispatchOf(service), "Service"));
    const auto technology = adapter.create(602, "{P}");
    ASSERT_EQ(given.size(), 2U);
    EXPECT_EQ(given[0].get().iVal, 602);
    EXPECT_EQ(Bstr::toUtf8(given[1].get().bstrVal), "{P}");
    EXPECT_EQ(technology->cuttingCycleId(), 602);
    EXPECT_EQ(technology->operationName(), "\"Drill\"");
}

TEST_F(TechnologyServiceAdapterTest, ParametersKeepTheirOrderAndTypes) {
    const auto technology = create();
    ASSERT_EQ(technology->count(), 3);
    EXPECT_EQ(technology->parameter(1).clCode(), 432);
    EXPECT_EQ(technology->parameter(1).kind(), TechnologyParameter::kKindKept);
    EXPECT_EQ(technology->parameter(1).value(), Variant("Drill"));
    EXPECT_EQ(technology->parameter(2).state(), TechnologyParameter::kStateSet);
    EXPECT_EQ(technology->parameter(2).value(), Variant(80.5));
    EXPECT_EQ(technology->parameter(3).value(), Variant());
    EXPECT_EQ(technology_->calls(L"Parameters"), 1);
}

TEST_F(TechnologyServiceAdapterTest, ParametersMayComeAsPackedText) {
    parameters_ = VariantArg("4:11011:21:21:13:0.11:91:61:01:210:1:2 \"x\" 3:");
    const auto technology = create();
    ASSERT_EQ(technology->count(), 2);
    EXPECT_EQ(technology->parameter(1).value(), Variant(0.1));
    EXPECT_EQ(technology->parameterOf(9)->value(), Variant("1:2 \"x\" 3:"));
}

TEST_F(TechnologyServiceAdapterTest, ACodeThatTheTechnologyLacksIsNull) {
    EXPECT_EQ(create()->parameterOf(7), nullptr);
}

TEST_F(TechnologyServiceAdapterTest, APositionOutOfRangeIsAnError) {
    const auto technology = create();
    expectError(errors::kInvalidArgument, "position 0", [&] { technology->parameter(0); });
    expectError(errors::kInvalidArgument, "position 4", [&] { technology->parameter(4); });
}

TEST_F(TechnologyServiceAdapterTest, AValueIsHandedOverInItsTypeAndReadAgain) {
    const auto technology = create();
    TechnologyParameter& speed = *technology->parameterOf(1101);
    speed.setValue(90.25);
    ASSERT_EQ(set_.size(), 2U);
    EXPECT_EQ(set_[0].get().lVal, 1101);
    EXPECT_EQ(set_[1].type(), VT_R8);
    EXPECT_EQ(set_[1].get().dblVal, 90.25);
    speed.setValue(std::string("fast"));
    EXPECT_EQ(set_[1].type(), VT_BSTR);
    speed.setValue(Variant());
    EXPECT_EQ(set_[1].type(), VT_EMPTY);
    parameters_ = scriptArray({scriptArray({1101, 2, 1, 1, 95})});
    EXPECT_EQ(speed.value(), Variant(95.0));
    EXPECT_EQ(speed.state(), 1);
}

TEST_F(TechnologyServiceAdapterTest, HandingValuesOverDoesNotReadTheParametersEachTime) {
    const auto technology = create();
    for (const std::int32_t code : {432, 1101, 1301})
        technology->parameterOf(code)->setValue(std::string("x"));
    EXPECT_EQ(technology_->calls(L"Parameters"), 1);
}

TEST_F(TechnologyServiceAdapterTest, WhatTheEditorChangesIsReadAfterIt) {
    const auto technology = create();
    TechnologyParameter& speed = *technology->parameterOf(1101);
    service_->on(L"Edit", [&](const ScriptedObject::Values& values) {
        EXPECT_EQ(values.at(0).get().pdispVal, test::dispatchOf(technology_).get());
        EXPECT_EQ(values.at(1).get().lVal, 77);
        EXPECT_EQ(speed.value(), Variant(80.5));
        parameters_ = scriptArray({scriptArray({1101, 2, 2, 1, 120}), scriptArray({1102, 2, 2, 1, 5000})});
        return VariantArg(1);
    });
    EXPECT_EQ(adapter_.edit(*technology, 77), TechnologyService::kAccepted);
    EXPECT_EQ(speed.value(), Variant(120.0));
    EXPECT_EQ(technology->count(), 2);
}

TEST_F(TechnologyServiceAdapterTest, AnEditorThatRaisesIsAnErrorWithItsText) {
    const auto technology = create();
    EXCEPINFO details{};
    details.bstrDescription = SysAllocString(L"No licence for the editor");
    details.scode = static_cast<SCODE>(0x800A0000U + 513U);
    service_->failing(L"Edit", DISP_E_EXCEPTION, details);
    expectError(513, "No licence for the editor", [&] { adapter_.edit(*technology, 0); });
}

TEST_F(TechnologyServiceAdapterTest, TheWizardSaysWhetherItWasFinished) {
    const auto technology = create();
    bool answer = true;
    service_->on(L"RunStepWizard", [&](const ScriptedObject::Values&) { return VariantArg(answer); });
    EXPECT_TRUE(adapter_.runStepWizard(*technology, 0));
    answer = false;
    EXPECT_FALSE(adapter_.runStepWizard(*technology, 0));
}

TEST_F(TechnologyServiceAdapterTest, ATechnologyOfAnotherMakeIsRefused) {
    test::FakeTechnology stranger(602);
    expectError(errors::kInvalidArgument, "not created by the host", [&] { adapter_.edit(stranger, 0); });
}

TEST_F(TechnologyServiceAdapterTest, AFileIsReadOperationByOperationWithProgress) {
    auto file = ScriptedObject::make();
    file->on(L"Count", VariantArg(3)).on(L"NextOperation", objectValue(technology_));
    service_->on(L"OpenFile", objectValue(file));
    std::vector<std::pair<int, int>> told;
    const auto operations = adapter_.read("C:\\a.prc", [&](std::int32_t done, std::int32_t all) {
        told.emplace_back(done, all);
        return true;
    });
    EXPECT_EQ(operations.size(), 3U);
    EXPECT_EQ(told, (std::vector<std::pair<int, int>>{{1, 3}, {2, 3}, {3, 3}}));
}

TEST_F(TechnologyServiceAdapterTest, ReadingEndsWhereThePersonCancels) {
    auto file = ScriptedObject::make();
    file->on(L"Count", VariantArg(1000)).on(L"NextOperation", objectValue(technology_));
    service_->on(L"OpenFile", objectValue(file));
    adapter_.read("C:\\a.prc", [](std::int32_t done, std::int32_t) { return done < 2; });
    EXPECT_EQ(file->calls(L"NextOperation"), 2);
}

TEST_F(TechnologyServiceAdapterTest, WritingHandsTheHostsObjectsOverInTheirOrder) {
    TechnologyService::OperationList operations;
    operations.push_back(create());
    operations.push_back(create());
    LONG last = -1;
    service_->on(L"WriteFile", [&](const ScriptedObject::Values& values) {
        EXPECT_EQ(Bstr::toUtf8(values.at(0).get().bstrVal), "C:\\a.prc");
        SafeArrayGetUBound(values.at(1).get().parray, 1, &last);
        return VariantArg(false);
    });
    EXPECT_FALSE(adapter_.write("C:\\a.prc", operations));
    EXPECT_EQ(last, 1);
}

TEST_F(TechnologyServiceAdapterTest, TheDefaultFolderHasNoTrailingSeparator) {
    service_->on(L"DefaultFolder", VariantArg("C:\\Norvex\\Processes\\"));
    EXPECT_EQ(adapter_.defaultFolder(), "C:\\Norvex\\Processes");
}

TEST_F(TechnologyServiceAdapterTest, AHostThatDoesNotCareWhatWasStoredIsNotTold) {
    const auto technology = create();
    adapter_.stored("{S}", *technology);
    EXPECT_EQ(service_->allCalls(), 1);
}

TEST_F(TechnologyServiceAdapterTest, AHostThatCaresIsToldWhatWasStored) {
    const auto technology = create();
    std::string step;
    service_->on(L"StepStored", [&](const ScriptedObject::Values& values) {
        step = Bstr::toUtf8(values.at(0).get().bstrVal);
        return VariantArg();
    });
    adapter_.stored("{S}", *technology);
    EXPECT_EQ(step, "{S}");
}

TEST_F(TechnologyServiceAdapterTest, ParametersThatMakeNoSenseAreErrors) {
    parameters_ = scriptArray({scriptArray({1, 2, 0, 1, "fast"})});
    expectError(errors::kHostInterface, "\"fast\"", [&] { create()->count(); });
    parameters_ = scriptArray({scriptArray({1, 2, 0, 7, "x"})});
    expectError(errors::kHostInterface, "unknown type 7", [&] { create()->count(); });
    parameters_ = scriptArray({scriptArray({1, 2, 0, 0, ""}), scriptArray({1, 2, 0, 0, ""})});
    expectError(errors::kHostInterface, "code 1 twice", [&] { create()->count(); });
    parameters_ = scriptArray({scriptArray({"x", 2, 0, 0, ""})});
    expectError(errors::kHostInterface, "32-bit number", [&] { create()->count(); });
}

}  // namespace
}  // namespace pellmark
