#include "com/adapters/KnowledgeBaseAdapter.h"

#include <gtest/gtest.h>

#include "Pellmark.h"
#include "automation/Module.h"
#include "base/Error.h"
#include "com/adapters/ExpectError.h"
#include "com/adapters/ScriptedObject.h"

namespace pellmark {
namespace {

constexpr GUID kNodeRecord{0x99bb9e4d, 0x893c, 0x4178, {0xbd, 0x2b, 0xe0, 0xab, 0xce, 0x16, 0x67, 0x69}};

using test::expectError;
using test::objectValue;
using test::scriptArray;
using test::ScriptedObject;

/// A knowledge base as a script would write it, with nothing packed.
class KnowledgeBaseAdapterTest : public testing::Test {
  protected:
    KnowledgeBaseAdapterTest() {
        service_->on(L"IsConnected", VariantArg(true))
            .on(L"UserRights", objectValue(rights_))
            .on(L"ProcessStore", objectValue(processes_))
            .on(L"FeatureCaseStore", objectValue(cases_))
            .on(L"MaterialStore", objectValue(materials_))
            .on(L"ProcessStepStore", objectValue(steps_));
    }

    static VariantArg processArray(const std::string& id, const std::string& name) {
        return scriptArray({id, name, std::int16_t{71}, "about " + name, "Diameter > 3"});
    }

    ComPtr<ScriptedObject> service_ = ScriptedObject::make();
    ComPtr<ScriptedObject> rights_ = ScriptedObject::make();
    ComPtr<ScriptedObject> processes_ = ScriptedObject::make();
    ComPtr<ScriptedObject> cases_ = ScriptedObject::make();
    ComPtr<ScriptedObject> materials_ = ScriptedObject::make();
    ComPtr<ScriptedObject> steps_ = ScriptedObject::make();
    KnowledgeBaseAdapter adapter_{DispatchObject(test::dispatchOf(service_), "Service")};
};

TEST_F(KnowledgeBaseAdapterTest, APartOfTheServiceIsAskedForOnce) {
    rights_->on(L"IsAllowed", VariantArg(true));
    EXPECT_TRUE(adapter_.userRights().may(PermissionEdit));
    EXPECT_TRUE(adapter_.userRights().may(PermissionAdd));
    EXPECT_EQ(service_->calls(L"UserRights"), 1);
}

TEST_F(KnowledgeBaseAdapterTest, AServiceThatIsNotConnectedNeedNotOfferItsParts) {
    auto bare = ScriptedObject::make();
    bare->on(L"IsConnected", VariantArg(false));
    KnowledgeBaseAdapter adapter(DispatchObject(test::dispatchOf(bare), "Service"));
    EXPECT_FALSE(adapter.isConnected());
    expectError(errors::kHostInterface, "Service.ProcessStore is missing",
                [&] { adapter.processStore().processes(""); });
}

TEST_F(KnowledgeBaseAdapterTest, AProcessMayComeAsAnArrayOfValues) {
    processes_->on(L"Process", processArray("{1}", "Bore"));
    EXPECT_EQ(adapter_.processStore().process("{1}"),
              (ProcessRecord{"{1}", "Bore", 71, "about Bore", "Diameter > 3"}));
}

TEST_F(KnowledgeBaseAdapterTest, AProcessMayComeAsPackedText) {
    processes_->on(L"Process", VariantArg("3:{1}4:Bore2:700:0:"));
    EXPECT_EQ(adapter_.processStore().process("{1}"), (ProcessRecord{"{1}", "Bore", 70, "", ""}));
}

TEST_F(KnowledgeBaseAdapterTest, AProcessMayComeAsARecordSetWithItsFieldsInAnyOrder) {
    auto records = ScriptedObject::make();
    records->on(L"Fields", VariantArg("_Rule|_Name|_Extra|_Unit|_Description|_Id"))
        .on(L"Count", VariantArg(1))
        .on(L"Page", VariantArg("1:r1:n1:x2:711:d1:i"));
    processes_->on(L"Process", objectValue(records));
    EXPECT_EQ(adapter_.processStore().process("i"), (ProcessRecord{"i", "n", 71, "d", "r"}));
}

TEST_F(KnowledgeBaseAdapterTest, ARecordWithTooFewValuesIsAnError) {
    processes_->on(L"Process", scriptArray({"{1}", "Bore"}));
    expectError(errors::kHostInterface, "a record of 2 values instead of 5",
                [&] { adapter_.processStore().process("{1}"); });
}

TEST_F(KnowledgeBaseAdapterTest, TwoRecordsWhereOneBelongsAreAnError) {
    processes_->on(L"Process", scriptArray({processArray("{1}", "Bore"), processArray("{2}", "Ream")}));
    expectError(errors::kHostInterface, "did not answer with one record, but with 2.",
                [&] { adapter_.processStore().process("{1}"); });
}

TEST_F(KnowledgeBaseAdapterTest, RecordsAndValuesMixedInOneArrayAreAnError) {
    processes_->on(L"Process", scriptArray({"{1}", scriptArray({"Bore"}), 71, "", ""}));
    cases_->on(L"Matches", scriptArray({scriptArray({"c", "t", true}), "c"}));
    steps_->on(L"TechnologySources", scriptArray({1, scriptArray({2})}));
    constexpr const char* kMixed = "mixed records and values in one array";
    expectError(errors::kHostInterface, kMixed, [&] { adapter_.processStore().process("{1}"); });
    expectError(errors::kHostInterface, kMixed, [&] { adapter_.featureCaseStore().matches("t", {}); });
    expectError(errors::kHostInterface, kMixed, [&] { adapter_.stepStore().technologySources({"a", "b"}); });
}

TEST_F(KnowledgeBaseAdapterTest, AFlagMayComeAsANumberOrAWord) {
    cases_->on(L"Matches", VariantArg("1:a1:t1:11:b1:t4:True1:c1:t1:01:d1:t5:False1:e1:t0:"));
    EXPECT_EQ(
        adapter_.featureCaseStore().matches("t", {}),
        (std::vector<FeatureCaseMatch>{
            {"a", "t", true}, {"b", "t", true}, {"c", "t", false}, {"d", "t", false}, {"e", "t", false}}));
}

TEST_F(KnowledgeBaseAdapterTest, AUnitThatIsNoNumberIsAnError) {
    processes_->on(L"Process", scriptArray({"{1}", "Bore", "metric", "", ""}));
    expectError(errors::kHostInterface, "\"metric\"", [&] { adapter_.processStore().process("{1}"); });
}

TEST_F(KnowledgeBaseAdapterTest, ManyProcessesAreOneCallWhereTheServiceOffersIt) {
    processes_->on(L"ProcessRecords", VariantArg("1:a1:x2:700:0:0:0:0:0:0:1:c1:z2:710:0:"));
    const auto records = adapter_.processStore().processRecords({"a", "b", "c"});
    ASSERT_EQ(records.size(), 3U);
    EXPECT_EQ(records[0]->Name, "x");
    EXPECT_FALSE(records[1].has_value());
    EXPECT_EQ(records[2]->Unit, 71);
    EXPECT_EQ(processes_->allCalls(), 1);
}

TEST_F(KnowledgeBaseAdapterTest, ManyProcessesAreAskedForOneByOneOtherwise) {
    processes_->on(L"Process", processArray("a", "x"));
    const auto records = adapter_.processStore().processRecords({"a", "a"});
    ASSERT_EQ(records.size(), 2U);
    EXPECT_EQ(records[1]->Name, "x");
    EXPECT_EQ(processes_->calls(L"Process"), 2);
}

TEST_F(KnowledgeBaseAdapterTest, AProcessThatIsGoneIsNothingAmongMany) {
    EXCEPINFO details{};
    details.scode = static_cast<SCODE>(0x800A0000U + 26101U);
    processes_->failing(L"Process", DISP_E_EXCEPTION, details);
    const auto records = adapter_.processStore().processRecords({"a"});
    ASSERT_EQ(records.size(), 1U);
    EXPECT_FALSE(records[0].has_value());
}

TEST_F(KnowledgeBaseAdapterTest, NoProcessesAskedForIsNoCall) {
    EXPECT_TRUE(adapter_.processStore().processRecords({}).empty());
    EXPECT_EQ(processes_->allCalls(), 0);
}

TEST_F(KnowledgeBaseAdapterTest, AnAnswerOfAnotherLengthIsAnError) {
    processes_->on(L"ProcessRecords", VariantArg(""));
    expectError(errors::kHostInterface, "one record per id",
                [&] { adapter_.processStore().processRecords({"a"}); });
}

TEST_F(KnowledgeBaseAdapterTest, FoundProcessesMayComeAsAnArrayOfArrays) {
    cases_->on(L"ProcessesOfValues", scriptArray({scriptArray({"p", "c", "Bore", 70, "r", "d", true}),
                                                  scriptArray({"q", "c", "Ream", 71, "", "", false})}));
    const auto nodes = adapter_.featureCaseStore().processesOfValues({}, 0);
    ASSERT_EQ(nodes.size(), 2U);
    EXPECT_EQ(nodes[0], (pNode{"p", "c", "Bore", 70, "r", "d", true}));
    EXPECT_FALSE(nodes[1].ExactMatch);
}

/// Processes found as an array of the component's own record, as a host with the type library makes it. Made
/// anew for each answer: copying such an array is not safe under every version of Wine.
VariantArg arrayOfNodes(const std::vector<pNode>& nodes) {
    const std::wstring program = module::pathOf(nullptr);
    const std::wstring library = program.substr(0, program.find_last_of(L'\\') + 1) + L"Pellmark.dll";
    ComPtr<ITypeLib> types;
    ComPtr<ITypeInfo> type;
    ComPtr<IRecordInfo> description;
    if (FAILED(LoadTypeLibEx(library.c_str(), REGKIND_NONE, types.receive())) ||
        FAILED(types->GetTypeInfoOfGuid(kNodeRecord, type.receive())) ||
        FAILED(GetRecordInfoFromTypeInfo(type.get(), description.receive()))) {
        throw std::runtime_error("the record is not described");
    }
    VariantArg array;
    array.get().parray =
        SafeArrayCreateVectorEx(VT_RECORD, 0, static_cast<ULONG>(nodes.size()), description.get());
    array.get().vt = VT_ARRAY | VT_RECORD;
    auto* record = static_cast<::pNode*>(array.get().parray->pvData);
    for (const pNode& node : nodes) {
        *record++ = {Bstr(node.id).release(),
                     Bstr(node.FeatureCaseId).release(),
                     Bstr(node.Name).release(),
                     node.unit,
                     Bstr(node.Rule).release(),
                     Bstr(node.Description).release(),
                     node.ExactMatch ? VARIANT_TRUE : VARIANT_FALSE};
    }
    return array;
}

TEST_F(KnowledgeBaseAdapterTest, FoundProcessesMayComeAsAnArrayOfTheComponentsRecord) {
    const std::vector<pNode> nodes{{"p", "c", "Bohren \xC3\x98 8", 70, "r", "d", true},
                                   {"q", "c", "Ream", 71, "", "", false}};
    cases_->on(L"ProcessesOfValues", [&](const ScriptedObject::Values&) { return arrayOfNodes(nodes); });
    EXPECT_EQ(adapter_.featureCaseStore().processesOfValues({}, 0), nodes);
}

TEST_F(KnowledgeBaseAdapterTest, NoFoundProcessesMayComeAsAnEmptyArrayOfThatRecord) {
    cases_->on(L"ProcessesOfValues", [](const ScriptedObject::Values&) { return arrayOfNodes({}); });
    EXPECT_TRUE(adapter_.featureCaseStore().processesOfValues({}, 0).empty());
}

TEST_F(KnowledgeBaseAdapterTest, RecordsInThePlaceOfValuesAreAnError) {
    cases_->on(L"ProcessesOfValues", [](const ScriptedObject::Values&) {
        VariantArg records;
        records.get().parray = SafeArrayCreateVector(VT_VARIANT, 0, 1);
        records.get().vt = VT_ARRAY | VT_VARIANT;
        // as many as a record has values
        *static_cast<VARIANT*>(records.get().parray->pvData) = arrayOfNodes(std::vector<pNode>(7)).release();
        return records;
    });
    expectError(errors::kHostInterface, "has structures where values belong",
                [&] { adapter_.featureCaseStore().processesOfValues({}, 0); });
}

TEST_F(KnowledgeBaseAdapterTest, ARecordOfAnotherKindIsAnErrorThatNamesTheMember) {
    processes_->on(L"Process", [](const ScriptedObject::Values&) { return arrayOfNodes({pNode{}}); });
    expectError(errors::kHostInterface, "ProcessStore.Process answered with an array that has structures of",
                [&] { adapter_.processStore().process("{1}"); });
}

/// The member's answer is an array that a host destroyed half.
class SpoiledArrayTest : public KnowledgeBaseAdapterTest {
  protected:
    static VariantArg spoiled(VariantArg array) {
        SafeArrayDestroyData(array.get().parray);
        return array;
    }
    // answered shallow, since no copy can be made of it
    void answer(const VARIANT& value) {
        cases_->on(L"ProcessesOfValues", [value](const ScriptedObject::Values&) {
            VARIANT shallow = value;
            return VariantArg::adopt(shallow);
        });
    }
    void expectRefused(const char* why) {
        expectError(errors::kHostInterface, why,
                    [&] { adapter_.featureCaseStore().processesOfValues({}, 0); });
    }
};

TEST_F(SpoiledArrayTest, ItIsAnErrorThatNamesTheMember) {
    answer(spoiled(scriptArray({"a"})).release());
    expectRefused("FeatureCaseStore.ProcessesOfValues answered with an array that has lost its elements");
}

TEST_F(SpoiledArrayTest, ItIsAnErrorOfStructures) {
    answer(spoiled(arrayOfNodes({pNode{}})).release());
    expectRefused("has lost its elements");
}

TEST_F(SpoiledArrayTest, ItIsAnErrorInsideAnotherArray) {
    VariantArg outer = scriptArray({VariantArg()});
    static_cast<VARIANT*>(outer.get().parray->pvData)[0] = spoiled(scriptArray({"a"})).release();
    answer(outer.release());
    expectRefused("has lost its elements");
}

TEST_F(SpoiledArrayTest, ItIsAnErrorByReference) {
    VariantArg array = spoiled(scriptArray({"a"}));
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_ARRAY | VT_VARIANT;
    reference.pparray = &array.get().parray;
    answer(reference);
    expectRefused("FeatureCaseStore.ProcessesOfValues answered with an array that has lost its elements");
}

TEST_F(SpoiledArrayTest, ItIsAnErrorInsideAnArrayThatIsAReference) {
    VariantArg outer = scriptArray({VariantArg()});
    static_cast<VARIANT*>(outer.get().parray->pvData)[0] = spoiled(scriptArray({"a"})).release();
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_ARRAY | VT_VARIANT;
    reference.pparray = &outer.get().parray;
    answer(reference);
    EXPECT_THROW(adapter_.featureCaseStore().processesOfValues({}, 0), Error);
}

TEST_F(KnowledgeBaseAdapterTest, AnArrayAtTheGreatestIndexIsReadToItsEnd) {
    VariantArg array = scriptArray({scriptArray({"p", "c", "Bore", 70, "r", "d", true})});
    array.get().parray->rgsabound[0].lLbound = 0x7FFFFFFF;
    cases_->on(L"ProcessesOfValues", array);
    EXPECT_EQ(adapter_.featureCaseStore().processesOfValues({}, 0).size(), 1U);
}

TEST_F(KnowledgeBaseAdapterTest, AnEmptyArrayIsNoProcesses) {
    cases_->on(L"ProcessesOfValues", scriptArray({}));
    EXPECT_TRUE(adapter_.featureCaseStore().processesOfValues({}, 0).empty());
}

TEST_F(KnowledgeBaseAdapterTest, ValueIdsGoAsAnArrayThatScriptsCanTakeApart) {
    VARTYPE type = VT_EMPTY;
    cases_->on(L"Matches", [&](const ScriptedObject::Values& values) {
        type = values.at(1).type();
        return VariantArg("1:c1:t1:1");
    });
    const auto found = adapter_.featureCaseStore().matches("t", {"v1", "v2"});
    EXPECT_EQ(type, VT_ARRAY | VT_VARIANT);
    EXPECT_EQ(found, (std::vector<FeatureCaseMatch>{{"c", "t", true}}));
}

TEST_F(KnowledgeBaseAdapterTest, RecordsThatAreNoRecordsAreAnError) {
    cases_->on(L"ProcessesOfValues", VariantArg(7));
    expectError(errors::kHostInterface,
                "ProcessesOfValues did not answer with records, but with the number 7.",
                [&] { adapter_.featureCaseStore().processesOfValues({}, 0); });
}

TEST_F(KnowledgeBaseAdapterTest, AQueryThatAnswersNothingIsAnError) {
    materials_->on(L"Materials", VariantArg(ComPtr<IDispatch>()));
    expectError(errors::kHostInterface, "Service.MaterialStore.Materials",
                [&] { adapter_.materialStore().materials(); });
}

TEST_F(KnowledgeBaseAdapterTest, WithoutTheMemberForSourcesEveryStepCountsAsStoredWithTheStep) {
    EXPECT_EQ(adapter_.stepStore().technologySources({"a", "b"}),
              std::vector<TechnologySource>(2, TechnologySource::DbStep));
    EXPECT_EQ(steps_->allCalls(), 0);
}

TEST_F(KnowledgeBaseAdapterTest, TheSourcesOfManyStepsAreOneCall) {
    std::string asked;
    steps_->on(L"TechnologySources", [&](const ScriptedObject::Values& values) {
        asked = Bstr::toUtf8(values.at(0).get().bstrVal);
        return VariantArg("1:51:01:3");
    });
    EXPECT_EQ(
        adapter_.stepStore().technologySources({"a", "bc", "d"}),
        (std::vector{TechnologySource::User, TechnologySource::CalcoraComputed, TechnologySource::DbStep}));
    EXPECT_EQ(asked, "1:a2:bc1:d");
    EXPECT_EQ(steps_->allCalls(), 1);
}

TEST_F(KnowledgeBaseAdapterTest, SourcesMayComeAsAnArrayOfNumbers) {
    steps_->on(L"TechnologySources", scriptArray({2, std::int16_t{4}, "1"}));
    EXPECT_EQ(adapter_.stepStore().technologySources({"a", "b", "c"}),
              (std::vector{TechnologySource::File, TechnologySource::DbDefaults,
                           TechnologySource::SfdbCalculated}));
}

TEST_F(KnowledgeBaseAdapterTest, ASourceWithoutAMeaningCountsAsStoredWithTheStep) {
    steps_->on(L"TechnologySources", VariantArg("1:62:-10:"));
    EXPECT_EQ(adapter_.stepStore().technologySources({"a", "b", "c"}),
              std::vector<TechnologySource>(3, TechnologySource::DbStep));
}

TEST_F(KnowledgeBaseAdapterTest, SourcesThatAreNotOnePerStepAreAnError) {
    steps_->on(L"TechnologySources", VariantArg("1:6"));
    expectError(errors::kHostInterface, "one source per id", [&] {
        adapter_.stepStore().technologySources({"a", "b"});
    });
}

TEST_F(KnowledgeBaseAdapterTest, NoStepsAskedForIsNoCall) {
    steps_->on(L"TechnologySources", VariantArg(""));
    EXPECT_TRUE(adapter_.stepStore().technologySources({}).empty());
    EXPECT_EQ(steps_->allCalls(), 0);
}

TEST_F(KnowledgeBaseAdapterTest, TypesOfCuttingCyclesGoInTheirOrder) {
    auto records = ScriptedObject::make();
    records->on(L"Fields", VariantArg("_Id|_Name"));
    std::string seen;
    steps_->on(L"CuttingCycles", [&](const ScriptedObject::Values& values) {
        SAFEARRAY* types = values.at(0).get().parray;
        for (LONG at = 0; at < 3; ++at) {
            VariantArg type;
            SafeArrayGetElement(types, &at, type.receive());
            seen += std::to_string(type.get().lVal) + " ";
        }
        return objectValue(records);
    });
    adapter_.stepStore().cuttingCycles({6, 8, 4});
    EXPECT_EQ(seen, "6 8 4 ");
}

}  // namespace
}  // namespace pellmark
