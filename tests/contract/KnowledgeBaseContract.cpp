#include "contract/KnowledgeBaseContract.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Error.h"
#include "base/Guid.h"
#include "processes/Records.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

using Rows = std::vector<std::vector<std::string>>;

/// GUID text that no base has given out.
const std::string kUnknownId = "{0BADF00D-0000-4000-8000-000000000001}";

/// Texts that break what is quoted, cut or converted carelessly.
const std::vector<std::string> kNastyTexts{
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

Rows rowsOf(RecordSet& records) {
    Rows rows;
    for (std::size_t i = 0; i < records.count(); ++i) {
        std::vector<std::string> row;
        for (std::size_t j = 0; j < records.fields().size(); ++j)
            row.push_back(records.text(i, j));
        rows.push_back(row);
    }
    return rows;
}

std::vector<std::string> column(RecordSet& records, const std::string& name) {
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

Thrown thrownBy(const std::function<void()>& body) {
    try {
        body();
    } catch (const Error& error) {
        return {error.number(), error.description()};
    }
    return {};
}

std::string repeated(const std::string& text, int times) {
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

// --- connection and rights
// -----------------------------------------------------------------------------------

TEST_P(KnowledgeBaseContract, AnOpenKnowledgeBaseIsConnected) {
    EXPECT_TRUE(service.isConnected());
}

TEST_P(KnowledgeBaseContract, EachOperationHasItsOwnRight) {
    subject->restrictUser(true, false, true);
    EXPECT_TRUE(service.userRights().may(PermissionEdit));
    EXPECT_FALSE(service.userRights().may(PermissionAdd));
    EXPECT_TRUE(service.userRights().may(PermissionDelete));
    subject->restrictUser(false, true, false);
    EXPECT_FALSE(service.userRights().may(PermissionEdit));
    EXPECT_TRUE(service.userRights().may(PermissionAdd));
    EXPECT_FALSE(service.userRights().may(PermissionDelete));
}

TEST_P(KnowledgeBaseContract, AnOperationWithoutAMeaningIsNeverAllowed) {
    for (const int operation : {0, 4, -1, 1000000}) {
        EXPECT_FALSE(service.userRights().may(operation)) << operation;
    }
}

// --- processes
// -----------------------------------------------------------------------------------------------

TEST_P(KnowledgeBaseContract, AnEmptyBaseListsNoProcess) {
    auto all = processes.processes("");
    EXPECT_EQ(all->count(), 0U);
    EXPECT_EQ(all->text(0, 0), "");
    EXPECT_THAT(all->fields(), ElementsAre("_Id", "_Name", "_Unit", "_Rule", "_Description"));
    ASSERT_TRUE(all->keys().has_value());
}

TEST_P(KnowledgeBaseContract, AnAddedProcessIsReadBackWhole) {
    const ProcessRecord added{"", "Drill 8", unit::kInch, "For steel", "Diameter <= 8"};
    const std::string id = processes.addProcess(added);
    ProcessRecord expected = added;
    expected.Id = id;
    EXPECT_EQ(processes.process(id), expected);
    EXPECT_THAT(rowsOf(*processes.processes(id)),
                ElementsAre(ElementsAre(id, "Drill 8", "70", "Diameter <= 8", "For steel")));
}

TEST_P(KnowledgeBaseContract, TheIdOfANewProcessIsItsOwnAndInRegistryForm) {
    const std::string first = processes.addProcess({kUnknownId, "A", unit::kMetric, "", ""});
    const std::string second = processes.addProcess({kUnknownId, "A", unit::kMetric, "", ""});
    EXPECT_NE(first, second);
    EXPECT_NE(first, kUnknownId);
    ASSERT_TRUE(Guid::parse(first).has_value());
    EXPECT_EQ(Guid::parse(first)->text(), first);
}

TEST_P(KnowledgeBaseContract, AnIdIsFoundInAnyCaseAndWithoutBraces) {
    const std::string id = addProcess("A");
    std::string bare = id.substr(1, id.size() - 2);
    for (char& c : bare)
        c = static_cast<char>(c >= 'A' && c <= 'F' ? c - 'A' + 'a' : c);
    EXPECT_EQ(processes.process(bare).Id, id);
    EXPECT_THAT(column(*processes.processes(bare), "_Id"), ElementsAre(id));
}

TEST_P(KnowledgeBaseContract, AllProcessesComeByNameWithoutCaseAndEqualNamesById) {
    addProcess("beta");
    addProcess("Alpha");
    addProcess("alphabet");
    const std::string one = addProcess("ALPHA");
    const std::string two = addProcess("alpha");
    auto all = processes.processes("");
    const auto names = column(*all, "_Name");
    ASSERT_THAT(names, SizeIs(5));
    EXPECT_THAT((std::vector<std::string>(names.begin(), names.begin() + 3)),
                UnorderedElementsAre("Alpha", "ALPHA", "alpha"));
    EXPECT_THAT((std::vector<std::string>(names.begin() + 3, names.end())), ElementsAre("alphabet", "beta"));
    const auto ids = column(*all, "_Id");
    EXPECT_LT(Guid::parse(ids[0])->bytes, Guid::parse(ids[1])->bytes);
    EXPECT_LT(Guid::parse(ids[1])->bytes, Guid::parse(ids[2])->bytes);
}

TEST_P(KnowledgeBaseContract, KeysAreTheIdsOfAllProcessesInTheOrderOfTheList) {
    for (const char* name : {"c", "a", "b"})
        addProcess(name);
    auto all = processes.processes("");
    const auto before = column(*all, "_Id");
    const auto keys = all->keys();
    ASSERT_TRUE(keys.has_value());
    std::vector<std::string> ids;
    for (const Guid& key : *keys)
        ids.push_back(key.text());
    EXPECT_EQ(ids, before);
    EXPECT_EQ(column(*all, "_Id"), before);
    EXPECT_THAT(column(*all, "_Name"), ElementsAre("a", "b", "c"));
}

TEST_P(KnowledgeBaseContract, AListLongerThanAPageIsReadInAnyOrder) {
    constexpr std::size_t kCount = 700;
    for (std::size_t i = 0; i < kCount; ++i)
        addProcess("P" + std::to_string(1000 + i));
    auto all = processes.processes("");
    ASSERT_EQ(all->count(), kCount);
    EXPECT_EQ(all->text(kCount - 1, 1), "P1699");
    EXPECT_EQ(all->text(0, 1), "P1000");
    ASSERT_THAT(*all->keys(), SizeIs(kCount));
    for (std::size_t i = kCount; i-- > 0;)
        ASSERT_EQ(all->text(i, 1), "P" + std::to_string(1000 + i));
    EXPECT_EQ(all->text(kCount, 1), "");
    EXPECT_EQ(all->text(0, 5), "");
}

TEST_P(KnowledgeBaseContract, AListKeepsItsCountAndOrderWhenProcessesComeAndGo) {
    const std::string gone = addProcess("b");
    const std::string kept = addProcess("c");
    auto all = processes.processes("");
    const auto keys = all->keys();
    ASSERT_TRUE(processes.deleteProcess(gone));
    addProcess("a");
    EXPECT_EQ(all->count(), 2U);
    ASSERT_THAT(*keys, SizeIs(2));
    EXPECT_THAT(all->text(0, 1), testing::AnyOf("", "b"));
    EXPECT_EQ(all->text(1, 0), kept);
    EXPECT_EQ(all->text(1, 1), "c");
    EXPECT_EQ(processes.processes("")->count(), 2U);
}

TEST_P(KnowledgeBaseContract, AListOutlivesTheChangesMadeBeforeItsKeysWereRead) {
    for (const char* name : {"a", "b", "c"})
        addProcess(name);
    auto all = processes.processes("");
    addProcess("aa");
    EXPECT_EQ(all->count(), 3U);
    EXPECT_THAT(*all->keys(), SizeIs(3));
    EXPECT_THAT(column(*all, "_Name"), ElementsAre("a", "b", "c"));
}

TEST_P(KnowledgeBaseContract, OneProcessOfAnUnknownIdIsAnEmptyList) {
    addProcess("A");
    EXPECT_EQ(processes.processes(kUnknownId)->count(), 0U);
    EXPECT_EQ(processes.processes("no id at all")->count(), 0U);
}

TEST_P(KnowledgeBaseContract, ReadingAnUnknownProcessFails) {
    EXPECT_EQ(thrownBy([&] { processes.process(kUnknownId); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { processes.process(""); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { processes.process("7"); }).number, errors::kNotFound);
}

TEST_P(KnowledgeBaseContract, AnUpdateChangesEveryFieldOfThatProcessOnly) {
    const std::string id = addProcess("A");
    const std::string other = addProcess("B");
    const ProcessRecord changed{id, "C", unit::kInch, "d", "r"};
    processes.updateProcess(changed);
    EXPECT_EQ(processes.process(id), changed);
    EXPECT_EQ(processes.process(other).Name, "B");
}

TEST_P(KnowledgeBaseContract, UpdatingAnUnknownProcessFailsAndAddsNone) {
    EXPECT_EQ(thrownBy([&] {
                  processes.updateProcess({kUnknownId, "C", 71, "", ""});
              }).number,
              errors::kNotFound);
    EXPECT_EQ(processes.processes("")->count(), 0U);
}

TEST_P(KnowledgeBaseContract, ManyProcessesAreReadInTheOrderAsked) {
    const std::string a = addProcess("A");
    const std::string b = addProcess("B");
    const auto records = processes.processRecords({b, kUnknownId, a, b, "nonsense"});
    ASSERT_THAT(records, SizeIs(5));
    EXPECT_EQ(records[0]->Name, "B");
    EXPECT_FALSE(records[1].has_value());
    EXPECT_EQ(records[2], processes.process(a));
    EXPECT_EQ(records[3]->Id, b);
    EXPECT_FALSE(records[4].has_value());
    EXPECT_THAT(processes.processRecords({}), IsEmpty());
}

TEST_P(KnowledgeBaseContract, AnyTextSurvives) {
    for (const std::string& text : kNastyTexts) {
        const ProcessRecord added{"", text, unit::kMetric, text, text};
        const std::string id = processes.addProcess(added);
        const ProcessRecord read = processes.process(id);
        EXPECT_EQ(read.Name, text);
        EXPECT_EQ(read.Rule, text);
        EXPECT_EQ(read.Description, text);
        EXPECT_THAT(rowsOf(*processes.processes(id)), ElementsAre(ElementsAre(id, text, "71", text, text)));
        EXPECT_EQ(processes.processRecords({id})[0]->Name, text);
    }
    auto all = processes.processes("");
    EXPECT_THAT(column(*all, "_Name"), testing::UnorderedElementsAreArray(kNastyTexts));
    EXPECT_THAT(column(*all, "_Description"), testing::UnorderedElementsAreArray(kNastyTexts));
}

TEST_P(KnowledgeBaseContract, UnitCodesOfOthersComeBackAsTheyAre) {
    for (const int code : {0, 1, -1, 70, 71, 32767, -32768}) {
        const auto unitCode = static_cast<std::int16_t>(code);
        const std::string id = addProcess("U", unitCode);
        EXPECT_EQ(processes.process(id).Unit, unitCode);
        EXPECT_EQ(processes.processes(id)->text(0, 2), std::to_string(code));
    }
}

TEST_P(KnowledgeBaseContract, TextsOfFullLengthAreKept) {
    const std::string bolt = "\xF0\x9F\x94\xA9";  // two UTF-16 units
    const ProcessRecord full{"", repeated("n", 500), 71, repeated(bolt, 500), repeated("\xC3\xBC", 250)};
    const ProcessRecord read = processes.process(processes.addProcess(full));
    EXPECT_EQ(read.Name, full.Name);
    EXPECT_EQ(read.Rule, full.Rule);
    EXPECT_EQ(read.Description, full.Description);
}

TEST_P(KnowledgeBaseContract, ALongerTextIsRefusedWholeWithItsFieldAndLimit) {
    const std::string id = addProcess("Before");
    const ProcessRecord before = processes.process(id);
    const struct {
        std::string ProcessRecord::*text;
        int limitInUnits;
        std::string field;
    } cases_[] = {{&ProcessRecord::Name, 500, "name"},
                  {&ProcessRecord::Rule, 250, "rule"},
                  {&ProcessRecord::Description, 1000, "description"}};
    for (const auto& each : cases_) {
        ProcessRecord longer = before;
        longer.*each.text = repeated("x", each.limitInUnits + 1);
        for (const auto& change : {std::function<void()>([&] { processes.addProcess(longer); }),
                                   std::function<void()>([&] { processes.updateProcess(longer); })}) {
            const Thrown thrown = thrownBy(change);
            EXPECT_EQ(thrown.number, errors::kValueTooLong) << each.field;
            EXPECT_THAT(thrown.description, HasSubstr(each.field));
            EXPECT_THAT(thrown.description, HasSubstr(std::to_string(each.limitInUnits)));
        }
    }
    EXPECT_EQ(processes.process(id), before);
    EXPECT_EQ(processes.processes("")->count(), 1U);
}

TEST_P(KnowledgeBaseContract, LengthsCountUtf16Units) {
    const std::string bolts = repeated("\xF0\x9F\x94\xA9", 125);  // 250 units, 500 bytes
    addProcess("fits");
    EXPECT_EQ(thrownBy([&] { processes.addProcess({"", "A", 71, "", bolts}); }).number, 0);
    EXPECT_EQ(thrownBy([&] {
                  processes.addProcess({"", "A", 71, "", bolts + "x"});
              }).number,
              errors::kValueTooLong);
}

TEST_P(KnowledgeBaseContract, DeletingAProcessTakesWhatBelongsToIt) {
    const std::string type = subject->addFeatureType("Hole", 1, "", unit::kMetric);
    const std::string id = addProcess("A");
    const std::string other = addProcess("B");
    const std::string step = addStep(id, "Drill", 1);
    const std::string otherStep = addStep(other, "Drill", 1);
    steps.addValue({step, 1, "x"});
    FeatureCaseDescription description;
    description.featureTypeId = type;
    const std::string featureCase = cases.createFeatureCase(description);
    processes.attach(id, featureCase);
    EXPECT_TRUE(processes.deleteProcess(id));
    EXPECT_THAT(column(*processes.processes(""), "_Id"), ElementsAre(other));
    EXPECT_EQ(thrownBy([&] { steps.step(step); }).number, errors::kNotFound);
    EXPECT_EQ(steps.values(step)->count(), 0U);
    EXPECT_EQ(steps.step(otherStep).name, "Drill");
    EXPECT_THAT(orphans(), ElementsAre(other));
}

TEST_P(KnowledgeBaseContract, DeletingAnUnknownProcessIsRefused) {
    const std::string id = addProcess("A");
    EXPECT_FALSE(processes.deleteProcess(kUnknownId));
    EXPECT_FALSE(processes.deleteProcess("nonsense"));
    EXPECT_TRUE(processes.deleteProcess(id));
    EXPECT_FALSE(processes.deleteProcess(id));
}

TEST_P(KnowledgeBaseContract, AProtectedProcessIsNotDeletedButCanBeChanged) {
    const std::string id = addProcess("A");
    subject->protectProcess(id);
    EXPECT_FALSE(processes.deleteProcess(id));
    processes.updateProcess({id, "B", unit::kInch, "", ""});
    EXPECT_EQ(processes.process(id).Name, "B");
    EXPECT_FALSE(processes.deleteProcess(id));
}

// --- materials
// -----------------------------------------------------------------------------------------------

TEST_P(KnowledgeBaseContract, MaterialsComeByNameWithTheirClass) {
    const std::string steel = subject->addMaterialClass("P");
    const std::string cast = subject->addMaterialClass("K");
    const std::string c45 = subject->addMaterial("c45", steel);
    const std::string grey = subject->addMaterial("Cast iron", cast);
    const std::string alloy = subject->addMaterial("42CrMo4", steel);
    auto all = service.materialStore().materials();
    EXPECT_THAT(all->fields(), ElementsAre("_Id", "_Name", "_PartMaterialGroupId"));
    EXPECT_THAT(rowsOf(*all),
                ElementsAre(ElementsAre(alloy, "42CrMo4", steel), ElementsAre(c45, "c45", steel),
                            ElementsAre(grey, "Cast iron", cast)));
}

TEST_P(KnowledgeBaseContract, AProcessKeepsTheMaterialsAddedAndNotRemoved) {
    const std::string steel = subject->addMaterialClass("P");
    const std::string a = subject->addMaterial("A", steel);
    const std::string b = subject->addMaterial("B", steel);
    const std::string id = addProcess("P1");
    EXPECT_EQ(processes.materialsOf(id)->count(), 0U);
    processes.addMaterial(id, b);
    processes.addMaterial(id, a);
    processes.addMaterial(id, a);
    EXPECT_THAT(rowsOf(*processes.materialsOf(id)),
                ElementsAre(ElementsAre(a, "A", steel), ElementsAre(b, "B", steel)));
    processes.removeMaterial(id, a);
    processes.removeMaterial(id, a);
    EXPECT_THAT(column(*processes.materialsOf(id), "_Id"), ElementsAre(b));
    EXPECT_EQ(service.materialStore().materials()->count(), 2U);
}

TEST_P(KnowledgeBaseContract, MaterialsOfAnUnknownProcessAreNone) {
    EXPECT_EQ(processes.materialsOf(kUnknownId)->count(), 0U);
    EXPECT_EQ(processes.materialsOf("")->count(), 0U);
}

TEST_P(KnowledgeBaseContract, AddingAnUnknownMaterialFailsAndRemovingOneDoesNot) {
    const std::string material = subject->addMaterial("A", subject->addMaterialClass("P"));
    const std::string id = addProcess("P1");
    EXPECT_EQ(thrownBy([&] { processes.addMaterial(id, kUnknownId); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { processes.addMaterial(kUnknownId, material); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { processes.removeMaterial(id, kUnknownId); }).number, 0);
    EXPECT_EQ(thrownBy([&] { processes.removeMaterial(kUnknownId, material); }).number, 0);
}

// --- attachments
// ---------------------------------------------------------------------------------------------

class AttachmentContract : public KnowledgeBaseContract {
  protected:
    std::string type = subject->addFeatureType("Hole", 1, "", unit::kMetric);
    std::string key = subject->addKey(type, "Thread");
    std::string otherKey = subject->addKey(type, "Depth");
    std::string m6 = subject->addKeyValue(key, "M6");
    std::string m8 = subject->addKeyValue(key, "M8");
    std::string deep = subject->addKeyValue(otherKey, "deep");

    std::string addCase(const std::vector<std::string>& valueIds,
                        const std::vector<std::string>& processIds = {}) {
        FeatureCaseDescription description;
        description.featureTypeId = type;
        const std::string id = cases.createFeatureCase(description);
        for (const auto& value : valueIds)
            cases.addValue(value, id);
        for (const auto& process : processIds)
            processes.attach(process, id);
        return id;
    }
    std::vector<pNode> ask(const std::vector<std::string>& valueIds, int style = 0,
                           const std::string& materialClass = {}) {
        FeatureCaseDescription description;
        description.featureTypeId = type;
        description.valueIds = valueIds;
        description.materialClassId = materialClass;
        return cases.processesOfValues(description, style);
    }
    std::vector<std::string> namesOf(const std::vector<pNode>& nodes) {
        std::vector<std::string> names;
        for (const pNode& node : nodes)
            names.push_back(node.Name + (node.ExactMatch ? "!" : ""));
        return names;
    }
};

TEST_P(AttachmentContract, AProcessIsAnOrphanUntilItIsAttached) {
    const std::string a = addProcess("A");
    const std::string b = addProcess("B");
    EXPECT_THAT(orphans(), UnorderedElementsAre(a, b));
    const std::string featureCase = addCase({m6}, {a});
    EXPECT_THAT(orphans(), ElementsAre(b));
    EXPECT_TRUE(processes.detach(featureCase, a));
    EXPECT_THAT(orphans(), UnorderedElementsAre(a, b));
}

TEST_P(AttachmentContract, AProcessStaysAttachedUntilItsLastCaseLetsGo) {
    const std::string a = addProcess("A");
    const std::string first = addCase({m6}, {a});
    const std::string second = addCase({m8}, {a});
    EXPECT_TRUE(processes.detach(first, a));
    EXPECT_THAT(orphans(), IsEmpty());
    EXPECT_TRUE(processes.detach(second, a));
    EXPECT_THAT(orphans(), ElementsAre(a));
}

TEST_P(AttachmentContract, AttachingTwiceAndDetachingTwiceAreHarmless) {
    const std::string a = addProcess("A");
    const std::string featureCase = addCase({m6}, {a, a});
    EXPECT_THAT(ask({m6}), SizeIs(1));
    EXPECT_TRUE(processes.detach(featureCase, a));
    EXPECT_TRUE(processes.detach(featureCase, a));
    EXPECT_THAT(orphans(), ElementsAre(a));
}

TEST_P(AttachmentContract, AttachingTheUnknownFailsAndDetachingItDoesNot) {
    const std::string a = addProcess("A");
    const std::string featureCase = addCase({m6});
    EXPECT_EQ(thrownBy([&] { processes.attach(a, kUnknownId); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { processes.attach(kUnknownId, featureCase); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { processes.attach(a, ""); }).number, errors::kNotFound);
    EXPECT_TRUE(processes.detach(kUnknownId, a));
    EXPECT_TRUE(processes.detach(featureCase, kUnknownId));
    EXPECT_THAT(orphans(), ElementsAre(a));
}

TEST_P(AttachmentContract, AFoundProcessCarriesItsStoredFieldsAndItsCase) {
    const std::string a = processes.addProcess({"", "Tap M6", unit::kMetric, "Spiral flute", "Depth < 12"});
    const std::string featureCase = addCase({m6}, {a});
    const pNode expected{a, featureCase, "Tap M6", unit::kMetric, "Depth < 12", "Spiral flute", true};
    EXPECT_THAT(ask({m6}), ElementsAre(expected));
}

TEST_P(AttachmentContract, ProcessesAreFoundThroughEachCaseWithAnyOfTheValuesAndExactlyWithAll) {
    const std::string a = addProcess("A");
    const std::string b = addProcess("B");
    addCase({m6}, {a});
    addCase({m6, deep}, {b, a});
    addCase({m8}, {b});
    EXPECT_THAT(namesOf(ask({m6, deep})), ElementsAre("A", "A!", "B!"));
    EXPECT_THAT(namesOf(ask({m6})), ElementsAre("A!", "A!", "B!"));
    EXPECT_THAT(namesOf(ask({m8, deep})), ElementsAre("A", "B", "B"));
}

TEST_P(AttachmentContract, AskingForNothingOrTheUnknownFindsNothing) {
    addCase({m6}, {addProcess("A")});
    EXPECT_THAT(ask({}), IsEmpty());
    EXPECT_THAT(ask({kUnknownId}), IsEmpty());
    EXPECT_THAT(ask({"nonsense"}), IsEmpty());
    EXPECT_THAT(namesOf(ask({m6, kUnknownId})), ElementsAre("A"));
}

TEST_P(AttachmentContract, AskingForAValueTwiceAsksForItOnce) {
    addCase({m6}, {addProcess("A")});
    EXPECT_THAT(namesOf(ask({m6, m6})), ElementsAre("A!"));
}

TEST_P(AttachmentContract, StyleOneLeavesOutWhatDoesNotApplyToTheMaterialClass) {
    const std::string steel = subject->addMaterialClass("P");
    const std::string cast = subject->addMaterialClass("K");
    const std::string any = addProcess("any");
    const std::string forSteel = addProcess("steel");
    const std::string forCast = addProcess("cast");
    processes.addMaterial(forSteel, subject->addMaterial("C45", steel));
    processes.addMaterial(forCast, subject->addMaterial("GG25", cast));
    addCase({m6}, {any, forSteel, forCast});
    EXPECT_THAT(namesOf(ask({m6}, 0, steel)), ElementsAre("any!", "cast!", "steel!"));
    EXPECT_THAT(namesOf(ask({m6}, 1, steel)), ElementsAre("any!", "steel!"));
    EXPECT_THAT(namesOf(ask({m6}, 1, "")), ElementsAre("any!", "cast!", "steel!"));
    EXPECT_THAT(namesOf(ask({m6}, 1, kUnknownId)), ElementsAre("any!"));
}

TEST_P(AttachmentContract, AnotherStyleIsRefused) {
    EXPECT_EQ(thrownBy([&] { ask({m6}, 2); }).number, errors::kInvalidArgument);
    EXPECT_EQ(thrownBy([&] { ask({m6}, -1); }).number, errors::kInvalidArgument);
}

TEST_P(AttachmentContract, ADeletedProcessIsNoLongerFound) {
    const std::string a = addProcess("A");
    const std::string b = addProcess("B");
    addCase({m6}, {a, b});
    processes.deleteProcess(a);
    EXPECT_THAT(namesOf(ask({m6})), ElementsAre("B!"));
}

// --- feature cases
// -------------------------------------------------------------------------------------------

TEST_P(AttachmentContract, ANewFeatureCaseHasNoValues) {
    const std::string featureCase = addCase({});
    EXPECT_THAT(cases.matches(type, {m6}), ElementsAre(FeatureCaseMatch{featureCase, type, false}));
    EXPECT_THAT(cases.matches(type, {}), ElementsAre(FeatureCaseMatch{featureCase, type, true}));
}

TEST_P(AttachmentContract, MatchesAreAllCasesOfTheTypeOldestFirstAndExactWithTheVeryValues) {
    const std::string one = addCase({m6});
    const std::string both = addCase({deep, m6});
    const std::string again = addCase({m6, deep});
    const std::string otherType = subject->addFeatureType("Pocket", 2, "", unit::kMetric);
    FeatureCaseDescription description;
    description.featureTypeId = otherType;
    cases.createFeatureCase(description);
    EXPECT_THAT(cases.matches(type, {m6, deep}),
                ElementsAre(FeatureCaseMatch{one, type, false}, FeatureCaseMatch{both, type, true},
                            FeatureCaseMatch{again, type, true}));
    EXPECT_THAT(cases.matches(type, {deep}),
                testing::Each(testing::Field(&FeatureCaseMatch::exactMatch, false)));
}

TEST_P(AttachmentContract, MatchesOfNoTypeOrAnUnknownOneAreNone) {
    addCase({m6});
    EXPECT_THAT(cases.matches("-1", {m6}), IsEmpty());
    EXPECT_THAT(cases.matches("", {m6}), IsEmpty());
    EXPECT_THAT(cases.matches(kUnknownId, {m6}), IsEmpty());
}

TEST_P(AttachmentContract, AnUnknownValueIsNeverPartOfAnExactMatch) {
    addCase({m6});
    EXPECT_FALSE(cases.matches(type, {m6, kUnknownId})[0].exactMatch);
    EXPECT_FALSE(cases.matches(type, {m6, "nonsense"})[0].exactMatch);
}

TEST_P(AttachmentContract, AFeatureCaseNeedsAKnownFeatureType) {
    for (const std::string& wrong : {std::string(), std::string("-1"), kUnknownId}) {
        FeatureCaseDescription description;
        description.featureTypeId = wrong;
        EXPECT_EQ(thrownBy([&] { cases.createFeatureCase(description); }).number, errors::kNotFound) << wrong;
    }
}

TEST_P(AttachmentContract, AddingAValueTwiceIsHarmlessAndTheUnknownFails) {
    const std::string featureCase = addCase({m6, m6});
    EXPECT_TRUE(cases.matches(type, {m6})[0].exactMatch);
    EXPECT_EQ(thrownBy([&] { cases.addValue(kUnknownId, featureCase); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { cases.addValue(m6, kUnknownId); }).number, errors::kNotFound);
}

// --- the model behind the filters
// ----------------------------------------------------------------------------

TEST_P(KnowledgeBaseContract, TheModelOfAnEmptyBaseIsEmpty) {
    EXPECT_EQ(cases.nvxFeatureTypes()->count(), 0U);
    EXPECT_EQ(cases.partTypes()->count(), 0U);
    EXPECT_EQ(cases.materialClasses()->count(), 0U);
    EXPECT_EQ(cases.featureTypes(-1, "", -1)->count(), 0U);
    EXPECT_EQ(cases.keys(kUnknownId)->count(), 0U);
    EXPECT_EQ(cases.values("")->count(), 0U);
}

TEST_P(KnowledgeBaseContract, FeatureTypesOfNorvexHaveNumbersForIds) {
    subject->addNvxFeatureType(1, "Hole");
    subject->addNvxFeatureType(12, "Pocket");
    EXPECT_THAT(rowsOf(*cases.nvxFeatureTypes()),
                ElementsAre(ElementsAre("1", "Hole"), ElementsAre("12", "Pocket")));
    EXPECT_THAT(cases.nvxFeatureTypes()->fields(), ElementsAre("_Id", "_Name"));
}

TEST_P(KnowledgeBaseContract, PartTypesAndMaterialClassesComeInTheirUsualOrder) {
    const std::string shaft = subject->addPartType("Shaft");
    const std::string block = subject->addPartType("Block");
    const std::string p = subject->addMaterialClass("P");
    const std::string m = subject->addMaterialClass("M");
    EXPECT_THAT(rowsOf(*cases.partTypes()),
                ElementsAre(ElementsAre(shaft, "Shaft"), ElementsAre(block, "Block")));
    EXPECT_THAT(rowsOf(*cases.materialClasses()), ElementsAre(ElementsAre(p, "P"), ElementsAre(m, "M")));
}

TEST_P(KnowledgeBaseContract, FeatureTypesAreNarrowedByEachPartOfTheQuestion) {
    const std::string shaft = subject->addPartType("Shaft");
    const std::string block = subject->addPartType("Block");
    subject->addFeatureType("hole mm shaft", 1, shaft, unit::kMetric);
    subject->addFeatureType("hole in block", 1, block, unit::kInch);
    subject->addFeatureType("pocket mm block", 2, block, unit::kMetric);
    const auto names = [&](std::int16_t nvx, const std::string& part, std::int16_t unitCode) {
        return column(*cases.featureTypes(nvx, part, unitCode), "_Name");
    };
    EXPECT_THAT(names(-1, "", -1), ElementsAre("hole mm shaft", "hole in block", "pocket mm block"));
    EXPECT_THAT(names(1, "", -1), ElementsAre("hole mm shaft", "hole in block"));
    EXPECT_THAT(names(-1, block, -1), ElementsAre("hole in block", "pocket mm block"));
    EXPECT_THAT(names(-1, "", unit::kMetric), ElementsAre("hole mm shaft", "pocket mm block"));
    EXPECT_THAT(names(1, block, unit::kInch), ElementsAre("hole in block"));
    EXPECT_THAT(names(2, shaft, -1), IsEmpty());
    EXPECT_THAT(names(-1, kUnknownId, -1), IsEmpty());
}

TEST_P(KnowledgeBaseContract, AFeatureTypeWithoutPartTypeOrUnitFitsEveryOne) {
    const std::string shaft = subject->addPartType("Shaft");
    subject->addFeatureType("face", 3, "", unit::kNone);
    EXPECT_EQ(cases.featureTypes(3, shaft, unit::kInch)->count(), 1U);
    EXPECT_EQ(cases.featureTypes(-1, "", unit::kMetric)->count(), 1U);
    EXPECT_EQ(cases.featureTypes(4, shaft, unit::kInch)->count(), 0U);
}

TEST_P(KnowledgeBaseContract, KeysAndTheirValuesComeKeyByKey) {
    const std::string type = subject->addFeatureType("Hole", 1, "", -1);
    const std::string other = subject->addFeatureType("Pocket", 2, "", -1);
    const std::string thread = subject->addKey(type, "Thread");
    const std::string depth = subject->addKey(type, "Depth");
    const std::string radius = subject->addKey(other, "Radius");
    const std::string deep = subject->addKeyValue(depth, "deep");
    const std::string m6 = subject->addKeyValue(thread, "M6");
    subject->addKeyValue(radius, "R2");
    const std::string m8 = subject->addKeyValue(thread, "M8");
    EXPECT_THAT(rowsOf(*cases.keys(type)),
                ElementsAre(ElementsAre(thread, "Thread"), ElementsAre(depth, "Depth")));
    auto values = cases.values(type);
    EXPECT_THAT(values->fields(), ElementsAre("_Id", "_Name", "_KeyId"));
    EXPECT_THAT(rowsOf(*values), ElementsAre(ElementsAre(m6, "M6", thread), ElementsAre(m8, "M8", thread),
                                             ElementsAre(deep, "deep", depth)));
}

// --- steps
// ---------------------------------------------------------------------------------------------------

TEST_P(KnowledgeBaseContract, AnAddedStepIsReadBackWhole) {
    const std::string process = addProcess("A");
    ProcessStepRecord record{"", "Drill", process, 3, 104};
    record.id = steps.addStep(record);
    EXPECT_EQ(steps.step(record.id), record);
    auto list = steps.steps(process);
    EXPECT_THAT(list->fields(), ElementsAre("_Id", "_ProcessId", "_Priority", "_Name", "_NVXCuttingCycleID"));
    EXPECT_THAT(rowsOf(*list), ElementsAre(ElementsAre(record.id, process, "3", "Drill", "104")));
    ASSERT_TRUE(list->keys().has_value());
    EXPECT_EQ(list->keys()->at(0).text(), record.id);
}

TEST_P(KnowledgeBaseContract, StepsComeByPriorityAndEqualOnesAsAdded) {
    const std::string process = addProcess("A");
    for (const auto& [name, priority] : std::vector<std::pair<std::string, std::int16_t>>{
             {"c", 10}, {"a", 2}, {"d", 10}, {"z", -1}, {"b", 2}}) {
        addStep(process, name, priority);
    }
    EXPECT_THAT(column(*steps.steps(process), "_Name"), ElementsAre("z", "a", "b", "c", "d"));
}

TEST_P(KnowledgeBaseContract, NoProcessHasNoSteps) {
    addStep(addProcess("A"), "Drill", 1);
    EXPECT_EQ(steps.steps("")->count(), 0U);
    EXPECT_EQ(steps.steps(kUnknownId)->count(), 0U);
    EXPECT_EQ(steps.steps(addProcess("B"))->count(), 0U);
}

TEST_P(KnowledgeBaseContract, AStepIsChangedInEveryFieldItsProcessIncluded) {
    const std::string from = addProcess("A");
    const std::string to = addProcess("B");
    const std::string id = addStep(from, "Drill", 1);
    const ProcessStepRecord changed{id, "Ream", to, -5, 45};
    steps.updateStep(changed);
    EXPECT_EQ(steps.step(id), changed);
    EXPECT_EQ(steps.steps(from)->count(), 0U);
    EXPECT_EQ(steps.steps(to)->count(), 1U);
}

TEST_P(KnowledgeBaseContract, StepsOfTheUnknownFail) {
    const std::string process = addProcess("A");
    const std::string id = addStep(process, "Drill", 1);
    EXPECT_EQ(thrownBy([&] { steps.step(kUnknownId); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { addStep(kUnknownId, "x", 1); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { addStep("", "x", 1); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] {
                  steps.updateStep({kUnknownId, "x", process, 1, 1});
              }).number,
              errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { steps.updateStep({id, "x", kUnknownId, 1, 1}); }).number, errors::kNotFound);
    EXPECT_EQ(steps.step(id).name, "Drill");
}

TEST_P(KnowledgeBaseContract, TheNameOfAStepHasALimitToo) {
    const std::string process = addProcess("A");
    const std::string id = addStep(process, repeated("n", 500), 1);
    EXPECT_EQ(thrownBy([&] { addStep(process, repeated("n", 501), 1); }).number, errors::kValueTooLong);
    EXPECT_EQ(thrownBy([&] {
                  steps.updateStep({id, repeated("n", 501), process, 1, 1});
              }).number,
              errors::kValueTooLong);
    EXPECT_EQ(steps.steps(process)->count(), 1U);
}

TEST_P(KnowledgeBaseContract, ADeletedStepTakesItsValuesAndIsGone) {
    const std::string process = addProcess("A");
    const std::string id = addStep(process, "Drill", 1);
    const std::string kept = addStep(process, "Ream", 2);
    steps.addValue({id, 5, "x"});
    EXPECT_TRUE(steps.deleteStep(id));
    EXPECT_FALSE(steps.deleteStep(id));
    EXPECT_FALSE(steps.deleteStep("nonsense"));
    EXPECT_EQ(steps.values(id)->count(), 0U);
    EXPECT_THAT(column(*steps.steps(process), "_Id"), ElementsAre(kept));
}

TEST_P(KnowledgeBaseContract, TheNextPriorityIsOneMoreThanTheHighest) {
    const std::string process = addProcess("A");
    EXPECT_EQ(steps.nextPriority(process), 1);
    EXPECT_EQ(steps.nextPriority(kUnknownId), 1);
    addStep(process, "a", 7);
    addStep(process, "b", 3);
    addStep(addProcess("B"), "c", 50);
    EXPECT_EQ(steps.nextPriority(process), 8);
    addStep(process, "d", 32767);
    EXPECT_EQ(steps.nextPriority(process), 32767);
}

TEST_P(KnowledgeBaseContract, ValuesComeByCodeAndKeepAnyText) {
    const std::string id = addStep(addProcess("A"), "Drill", 1);
    std::int32_t code = 2147483647;
    for (const std::string& text : kNastyTexts)
        steps.addValue({id, code--, text});
    steps.addValue({id, -3, repeated("long ", 2000)});
    steps.addValue({id, 432, "0.25"});
    auto values = steps.values(id);
    EXPECT_THAT(values->fields(), ElementsAre("_CLFileCode", "_Value"));
    const Rows rows = rowsOf(*values);
    ASSERT_THAT(rows, SizeIs(kNastyTexts.size() + 2));
    EXPECT_THAT(rows[0], ElementsAre("-3", repeated("long ", 2000)));
    EXPECT_THAT(rows[1], ElementsAre("432", "0.25"));
    EXPECT_THAT(rows.back(), ElementsAre("2147483647", kNastyTexts.front()));
    for (std::size_t i = 0; i < kNastyTexts.size(); ++i)
        EXPECT_EQ(rows[rows.size() - 1 - i][1], kNastyTexts[i]);
}

TEST_P(KnowledgeBaseContract, ASecondValueWithTheSameCodeIsRefused) {
    const std::string process = addProcess("A");
    const std::string id = addStep(process, "Drill", 1);
    const std::string other = addStep(process, "Ream", 2);
    steps.addValue({id, 432, "first"});
    EXPECT_EQ(thrownBy([&] { steps.addValue({id, 432, "second"}); }).number, errors::kNotUnique);
    steps.addValue({other, 432, "its own"});
    EXPECT_THAT(rowsOf(*steps.values(id)), ElementsAre(ElementsAre("432", "first")));
}

TEST_P(KnowledgeBaseContract, AValueIsChangedInPlace) {
    const std::string id = addStep(addProcess("A"), "Drill", 1);
    steps.addValue({id, 432, "first"});
    steps.updateValue({id, 432, "second"});
    EXPECT_THAT(rowsOf(*steps.values(id)), ElementsAre(ElementsAre("432", "second")));
    EXPECT_EQ(thrownBy([&] { steps.updateValue({id, 433, "x"}); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { steps.updateValue({kUnknownId, 432, "x"}); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { steps.addValue({kUnknownId, 432, "x"}); }).number, errors::kNotFound);
}

TEST_P(KnowledgeBaseContract, CuttingCyclesComeInTheOrderOfTheTypesAskedFor) {
    subject->addCuttingCycle(11, "Drill", 6);
    subject->addCuttingCycle(30, "Tap", 101);
    subject->addCuttingCycle(12, "Ream", 8);
    subject->addCuttingCycle(10, "Peck", 6);
    const auto names = [&](const std::vector<int>& types) {
        return column(*steps.cuttingCycles(types), "_Name");
    };
    EXPECT_THAT(names({8, 6}), ElementsAre("Ream", "Peck", "Drill"));
    EXPECT_THAT(names({6, 43, 8}), ElementsAre("Peck", "Drill", "Ream"));
    EXPECT_THAT(names({}), IsEmpty());
    EXPECT_THAT(rowsOf(*steps.cuttingCycles({101})), ElementsAre(ElementsAre("30", "Tap")));
}

// --- two at once
// ---------------------------------------------------------------------------------------------

TEST_P(KnowledgeBaseContract, WhatOneConnectionStoresTheOtherReads) {
    ProcessStore& others = subject->secondService().processStore();
    const std::string id = addProcess("A");
    EXPECT_EQ(others.process(id).Name, "A");
    others.updateProcess({id, "B", unit::kInch, "", ""});
    EXPECT_EQ(processes.process(id).Name, "B");
    EXPECT_TRUE(others.deleteProcess(id));
    EXPECT_FALSE(processes.deleteProcess(id));
}

TEST_P(KnowledgeBaseContract, AnOpenListDoesNotKeepTheOtherConnectionFromWriting) {
    const std::string id = addProcess("A");
    auto all = processes.processes("");
    ProcessStore& others = subject->secondService().processStore();
    const std::string added = others.addProcess({"", "B", unit::kMetric, "", ""});
    EXPECT_TRUE(others.deleteProcess(id));
    EXPECT_EQ(all->count(), 1U);
    EXPECT_THAT(column(*processes.processes(""), "_Id"), ElementsAre(added));
}

TEST_P(KnowledgeBaseContract, TwoConnectionsTakingTurnsLoseNothing) {
    ProcessStore& others = subject->secondService().processStore();
    for (int i = 0; i < 20; ++i) {
        addProcess("A" + std::to_string(10 + i));
        others.addProcess({"", "B" + std::to_string(10 + i), unit::kMetric, "", ""});
    }
    EXPECT_EQ(processes.processes("")->count(), 40U);
    EXPECT_EQ(others.processes("")->count(), 40U);
}

std::string factoryName(const testing::TestParamInfo<ContractFactory>& info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Every, KnowledgeBaseContract, testing::ValuesIn(contractFactories()), factoryName);
INSTANTIATE_TEST_SUITE_P(Every, AttachmentContract, testing::ValuesIn(contractFactories()), factoryName);

}  // namespace
}  // namespace pellmark::test
