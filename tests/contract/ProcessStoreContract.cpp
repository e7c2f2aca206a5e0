#include "contract/KnowledgeBaseFixture.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

class ProcessStoreContract : public KnowledgeBaseContract {};

// --- processes --------------------------------------------------------------------------------------------

TEST_P(ProcessStoreContract, AnEmptyBaseListsNoProcess) {
    auto all = processes.processes("");
    EXPECT_EQ(all->count(), 0U);
    EXPECT_EQ(all->text(0, 0), "");
    EXPECT_THAT(all->fields(), ElementsAre("_Id", "_Name", "_Unit", "_Rule", "_Description"));
    ASSERT_TRUE(all->keys().has_value());
}

TEST_P(ProcessStoreContract, AnAddedProcessIsReadBackWhole) {
    const ProcessRecord added{"", "Drill 8", unit::kInch, "For steel", "Diameter <= 8"};
    const std::string id = processes.addProcess(added);
    ProcessRecord expected = added;
    expected.Id = id;
    EXPECT_EQ(processes.process(id), expected);
    EXPECT_THAT(rowsOf(*processes.processes(id)),
                ElementsAre(ElementsAre(id, "Drill 8", "70", "Diameter <= 8", "For steel")));
}

TEST_P(ProcessStoreContract, TheIdOfANewProcessIsItsOwnAndInRegistryForm) {
    const std::string first = processes.addProcess({kUnknownId, "A", unit::kMetric, "", ""});
    const std::string second = processes.addProcess({kUnknownId, "A", unit::kMetric, "", ""});
    EXPECT_NE(first, second);
    EXPECT_NE(first, kUnknownId);
    ASSERT_TRUE(Guid::parse(first).has_value());
    EXPECT_EQ(Guid::parse(first)->text(), first);
}

TEST_P(ProcessStoreContract, AnIdIsFoundInAnyCaseAndWithoutBraces) {
    const std::string id = addProcess("A");
    std::string bare = id.substr(1, id.size() - 2);
    for (char& c : bare)
        c = static_cast<char>(c >= 'A' && c <= 'F' ? c - 'A' + 'a' : c);
    EXPECT_EQ(processes.process(bare).Id, id);
    EXPECT_THAT(column(*processes.processes(bare), "_Id"), ElementsAre(id));
}

TEST_P(ProcessStoreContract, AllProcessesComeByNameWithoutCaseAndEqualNamesById) {
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

TEST_P(ProcessStoreContract, KeysAreTheIdsOfAllProcessesInTheOrderOfTheList) {
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

TEST_P(ProcessStoreContract, AListLongerThanAPageIsReadInAnyOrder) {
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

TEST_P(ProcessStoreContract, AListKeepsItsCountAndOrderWhenProcessesComeAndGo) {
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

TEST_P(ProcessStoreContract, AListOutlivesTheChangesMadeBeforeItsKeysWereRead) {
    for (const char* name : {"a", "b", "c"})
        addProcess(name);
    auto all = processes.processes("");
    addProcess("aa");
    EXPECT_EQ(all->count(), 3U);
    EXPECT_THAT(*all->keys(), SizeIs(3));
    EXPECT_THAT(column(*all, "_Name"), ElementsAre("a", "b", "c"));
}

TEST_P(ProcessStoreContract, OneProcessOfAnUnknownIdIsAnEmptyList) {
    addProcess("A");
    EXPECT_EQ(processes.processes(kUnknownId)->count(), 0U);
    EXPECT_EQ(processes.processes("no id at all")->count(), 0U);
}

TEST_P(ProcessStoreContract, ReadingAnUnknownProcessFails) {
    EXPECT_EQ(thrownBy([&] { processes.process(kUnknownId); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { processes.process(""); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { processes.process("7"); }).number, errors::kNotFound);
}

TEST_P(ProcessStoreContract, AnUpdateChangesEveryFieldOfThatProcessOnly) {
    const std::string id = addProcess("A");
    const std::string other = addProcess("B");
    const ProcessRecord changed{id, "C", unit::kInch, "d", "r"};
    processes.updateProcess(changed);
    EXPECT_EQ(processes.process(id), changed);
    EXPECT_EQ(processes.process(other).Name, "B");
}

TEST_P(ProcessStoreContract, UpdatingAnUnknownProcessFailsAndAddsNone) {
    EXPECT_EQ(thrownBy([&] {
                  processes.updateProcess({kUnknownId, "C", 71, "", ""});
              }).number,
              errors::kNotFound);
    EXPECT_EQ(processes.processes("")->count(), 0U);
}

TEST_P(ProcessStoreContract, ManyProcessesAreReadInTheOrderAsked) {
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

TEST_P(ProcessStoreContract, AnyTextSurvives) {
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

TEST_P(ProcessStoreContract, UnitCodesOfOthersComeBackAsTheyAre) {
    for (const int code : {0, 1, -1, 70, 71, 32767, -32768}) {
        const auto unitCode = static_cast<std::int16_t>(code);
        const std::string id = addProcess("U", unitCode);
        EXPECT_EQ(processes.process(id).Unit, unitCode);
        EXPECT_EQ(processes.processes(id)->text(0, 2), std::to_string(code));
    }
}

TEST_P(ProcessStoreContract, TextsOfFullLengthAreKept) {
    const std::string bolt = "\xF0\x9F\x94\xA9";  // two UTF-16 units
    const ProcessRecord full{"", repeated("n", 500), 71, repeated(bolt, 500), repeated("\xC3\xBC", 250)};
    const ProcessRecord read = processes.process(processes.addProcess(full));
    EXPECT_EQ(read.Name, full.Name);
    EXPECT_EQ(read.Rule, full.Rule);
    EXPECT_EQ(read.Description, full.Description);
}

TEST_P(ProcessStoreContract, ALongerTextIsRefusedWholeWithItsFieldAndLimit) {
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

TEST_P(ProcessStoreContract, LengthsCountUtf16Units) {
    const std::string bolts = repeated("\xF0\x9F\x94\xA9", 125);  // 250 units, 500 bytes
    addProcess("fits");
    EXPECT_EQ(thrownBy([&] { processes.addProcess({"", "A", 71, "", bolts}); }).number, 0);
    EXPECT_EQ(thrownBy([&] {
                  processes.addProcess({"", "A", 71, "", bolts + "x"});
              }).number,
              errors::kValueTooLong);
}

TEST_P(ProcessStoreContract, DeletingAProcessTakesWhatBelongsToIt) {
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

TEST_P(ProcessStoreContract, DeletingAnUnknownProcessIsRefused) {
    const std::string id = addProcess("A");
    EXPECT_FALSE(processes.deleteProcess(kUnknownId));
    EXPECT_FALSE(processes.deleteProcess("nonsense"));
    EXPECT_TRUE(processes.deleteProcess(id));
    EXPECT_FALSE(processes.deleteProcess(id));
}

TEST_P(ProcessStoreContract, AProtectedProcessIsNotDeletedButCanBeChanged) {
    const std::string id = addProcess("A");
    subject->protectProcess(id);
    EXPECT_FALSE(processes.deleteProcess(id));
    processes.updateProcess({id, "B", unit::kInch, "", ""});
    EXPECT_EQ(processes.process(id).Name, "B");
    EXPECT_FALSE(processes.deleteProcess(id));
}

// --- materials --------------------------------------------------------------------------------------------

TEST_P(ProcessStoreContract, MaterialsComeByNameWithTheirClass) {
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

TEST_P(ProcessStoreContract, AProcessKeepsTheMaterialsAddedAndNotRemoved) {
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

TEST_P(ProcessStoreContract, MaterialsOfAnUnknownProcessAreNone) {
    EXPECT_EQ(processes.materialsOf(kUnknownId)->count(), 0U);
    EXPECT_EQ(processes.materialsOf("")->count(), 0U);
}

TEST_P(ProcessStoreContract, AddingAnUnknownMaterialFailsAndRemovingOneDoesNot) {
    const std::string material = subject->addMaterial("A", subject->addMaterialClass("P"));
    const std::string id = addProcess("P1");
    EXPECT_EQ(thrownBy([&] { processes.addMaterial(id, kUnknownId); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { processes.addMaterial(kUnknownId, material); }).number, errors::kNotFound);
    EXPECT_EQ(thrownBy([&] { processes.removeMaterial(id, kUnknownId); }).number, 0);
    EXPECT_EQ(thrownBy([&] { processes.removeMaterial(kUnknownId, material); }).number, 0);
}

FOR_EVERY_KNOWLEDGE_BASE(ProcessStoreContract);

}  // namespace
}  // namespace pellmark::test
