#include "contract/KnowledgeBaseFixture.h"

namespace pellmark::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

/// The optional question "which processes, in which order", of every store that answers it.
class FindProcessesContract : public KnowledgeBaseContract {
  protected:
    std::string add(const std::string& name, const std::string& rule, const std::string& description,
                    std::int16_t unitCode = unit::kMetric) {
        return processes.addProcess({"", name, unitCode, description, rule});
    }
    RowQuery looking(const std::string& text) {
        RowQuery query;
        query.text = text;
        query.fields = {field::kName, field::kRule, field::kDescription};
        return query;
    }
    static RowQuery sorting(const char* by, bool descending = false) {
        RowQuery query;
        query.sortField = by;
        query.descending = descending;
        return query;
    }
    std::vector<std::string> names(const RowQuery& query) {
        const auto found = processes.findProcesses(query);
        if (!found) return {"no answer"};
        EXPECT_FALSE(found->hasMore());
        return column(*found, field::kName);
    }
    std::vector<std::string> named(const std::string& text) { return names(looking(text)); }
};

TEST_P(FindProcessesContract, ATextIsFoundAnywhereInTheFieldsThatAreSearched) {
    add("Tap M10", "", "");
    add("Drill", "Thread = M10x1", "");
    add("Bore", "", "before the M10");
    add("Ream", "d = 10", "");
    EXPECT_THAT(named("M10"), ElementsAre("Bore", "Drill", "Tap M10"));
    RowQuery ofRules = looking("M10");
    ofRules.fields = {field::kRule};
    EXPECT_THAT(names(ofRules), ElementsAre("Drill"));
    ofRules.fields = {field::kRule, field::kName};
    EXPECT_THAT(names(ofRules), ElementsAre("Drill", "Tap M10"));
}

TEST_P(FindProcessesContract, LettersAreFoundWithoutCase) {
    add("Tap m10", "", "");
    add("\xC3\x84tzen", "", "");              // A umlaut
    add("\xD0\x96\xD0\x90\xD0\xA0", "", "");  // Cyrillic
    EXPECT_THAT(named("TAP M"), ElementsAre("Tap m10"));
    EXPECT_THAT(named("\xC3\xA4TZ"), ElementsAre("\xC3\x84tzen"));
    EXPECT_THAT(named("\xC3\xA4"), ElementsAre("\xC3\x84tzen"));
    EXPECT_THAT(named("\xD0\xB6\xD0\xB0\xD1\x80"), ElementsAre("\xD0\x96\xD0\x90\xD0\xA0"));
}

TEST_P(FindProcessesContract, OneAndTwoCharactersAreFoundWhereverTheyStand) {
    add("Bore 7", "", "");
    add("7 up", "", "");
    add("Drill", "d=7", "");
    add("Ream", "", "17");
    add("Tap", "d = 8", "");
    EXPECT_THAT(named("7"), ElementsAre("7 up", "Bore 7", "Drill", "Ream"));
    EXPECT_THAT(named("=7"), ElementsAre("Drill"));
    EXPECT_THAT(named(" 7"), ElementsAre("Bore 7"));
    EXPECT_THAT(named("17"), ElementsAre("Ream"));
}

TEST_P(FindProcessesContract, NoCharacterMeansMoreThanItself) {
    for (const std::string& text : kNastyTexts)
        add("P " + text, "", "");
    add("plain", "", "");
    for (const std::string& text : kNastyTexts) {
        if (text.size() < 2) continue;
        const auto found = named(text);
        EXPECT_THAT(found, testing::Contains("P " + text));
        EXPECT_THAT(found, testing::Not(testing::Contains("plain"))) << text;
    }
    for (const char* text : {"%%%", "___", "*", "name:x", "a OR b", "NEAR(", "-plain"})
        EXPECT_THAT(named(text), testing::Not(testing::Contains("plain"))) << text;
}

TEST_P(FindProcessesContract, WhatIsNowhereIsNotFound) {
    add("Drill", "", "");
    EXPECT_THAT(named("drilll"), IsEmpty());
    EXPECT_THAT(named("zq"), IsEmpty());
    RowQuery nowhere = looking("Drill");
    nowhere.fields.clear();
    EXPECT_THAT(names(nowhere), IsEmpty());
}

TEST_P(FindProcessesContract, AValueThatAPersonSeesAsTheTextCountsAsFound) {
    add("A", "", "metric thread", unit::kInch);
    add("B", "", "", unit::kMetric);
    add("C", "", "", unit::kInch);
    RowQuery query = looking("metric");
    query.values = {{field::kUnit, "71"}};
    EXPECT_THAT(names(query), ElementsAre("A", "B"));
    query.fields.clear();
    EXPECT_THAT(names(query), ElementsAre("B"));
    query.text = "me";
    EXPECT_THAT(names(query), ElementsAre("B"));
}

TEST_P(FindProcessesContract, NamesAreSortedInNaturalOrder) {
    for (const char* name : {"M10", "m3", "M3x0.5", "M030", "Bore", "drill"})
        add(name, "", "");
    EXPECT_THAT(names(sorting(field::kName)), ElementsAre("Bore", "drill", "m3", "M3x0.5", "M10", "M030"));
    EXPECT_THAT(names(sorting(field::kName, true)),
                ElementsAre("M030", "M10", "M3x0.5", "m3", "drill", "Bore"));
}

TEST_P(FindProcessesContract, TheOtherFieldsAreSortedTooAndEqualOnesAsTheyAreListed) {
    add("D", "d = 10", "two", unit::kInch);
    add("c", "d = 9", "two", unit::kMetric);
    add("B", "", "one", unit::kMetric);
    add("a", "D = 10", "", unit::kInch);
    EXPECT_THAT(names(sorting(field::kRule)), ElementsAre("B", "c", "a", "D"));
    EXPECT_THAT(names(sorting(field::kRule, true)), ElementsAre("D", "a", "c", "B"));
    EXPECT_THAT(names(sorting(field::kDescription)), ElementsAre("a", "B", "c", "D"));
    EXPECT_THAT(names(sorting(field::kUnit)), ElementsAre("a", "D", "B", "c"));
    EXPECT_THAT(names(sorting(field::kUnit, true)), ElementsAre("c", "B", "D", "a"));
}

TEST_P(FindProcessesContract, WhatIsFoundIsSorted) {
    for (const char* name : {"Tap M10", "Tap M3", "Drill 10", "Tap M30"})
        add(name, "", "");
    RowQuery query = looking("tap");
    query.sortField = field::kName;
    EXPECT_THAT(names(query), ElementsAre("Tap M3", "Tap M10", "Tap M30"));
    query.descending = true;
    EXPECT_THAT(names(query), ElementsAre("Tap M30", "Tap M10", "Tap M3"));
    query.text = "m3";
    EXPECT_THAT(names(query), ElementsAre("Tap M30", "Tap M3"));
}

TEST_P(FindProcessesContract, AQueryThatAsksNothingListsAllInTheirOwnOrder) {
    add("b", "", "");
    add("A", "", "");
    EXPECT_THAT(names({}), ElementsAre("A", "b"));
}

TEST_P(FindProcessesContract, ChangesAreFoundAtOnce) {
    const std::string id = add("Tap M3", "", "");
    const std::string other = add("Tap M10", "", "");
    EXPECT_THAT(names(sorting(field::kName)), ElementsAre("Tap M3", "Tap M10"));
    processes.updateProcess({id, "Tap M30", unit::kMetric, "", ""});
    EXPECT_THAT(names(sorting(field::kName)), ElementsAre("Tap M10", "Tap M30"));
    EXPECT_THAT(named("M30"), ElementsAre("Tap M30"));
    EXPECT_THAT(named("30"), ElementsAre("Tap M30"));
    processes.deleteProcess(id);
    EXPECT_THAT(named("M30"), IsEmpty());
    EXPECT_THAT(names(sorting(field::kName)), ElementsAre("Tap M10"));
    service.processStore().addProcess({"", "Tap M2", unit::kMetric, "", ""});
    EXPECT_THAT(names(sorting(field::kName)), ElementsAre("Tap M2", "Tap M10"));
    EXPECT_THAT(named("tap"), ElementsAre("Tap M10", "Tap M2"));
}

TEST_P(FindProcessesContract, ChangesOfAnotherConnectionAreFoundAtOnce) {
    add("Tap M3", "", "");
    EXPECT_THAT(names(sorting(field::kName)), ElementsAre("Tap M3"));
    subject->secondService().processStore().addProcess({"", "Tap M2", unit::kMetric, "", ""});
    EXPECT_THAT(names(sorting(field::kName)), ElementsAre("Tap M2", "Tap M3"));
    EXPECT_THAT(named("M2"), ElementsAre("Tap M2"));
}

TEST_P(FindProcessesContract, TheAnswerIsAWholeRecordSetWithItsKeys) {
    const std::string id = add("Tap M10", "d = 10", "blind", unit::kInch);
    add("Drill", "", "");
    const auto found = processes.findProcesses(looking("M10"));
    EXPECT_THAT(rowsOf(*found), ElementsAre(ElementsAre(id, "Tap M10", "70", "d = 10", "blind")));
    const auto keys = found->keys();
    ASSERT_TRUE(keys.has_value());
    ASSERT_EQ(keys->size(), 1U);
    EXPECT_EQ(keys->front().text(), id);
    EXPECT_EQ(found->text(0, 1), "Tap M10") << "also after the keys were delivered";
}

FOR_EVERY_KNOWLEDGE_BASE(FindProcessesContract);

}  // namespace
}  // namespace pellmark::test
