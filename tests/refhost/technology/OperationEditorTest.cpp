#include "refhost/technology/OperationEditor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "refhost/technology/Codes.h"

namespace norvex {
namespace {

using pellmark::TechnologySource;
using pellmark::Variant;
using testing::HasSubstr;
namespace unit = pellmark::unit;

CuttingTable table() {
    return CuttingTable({{'P', "steel", Work::Drill, 90, 0.02, true},
                         {'P', "steel", Work::Mill, 160, 0.006, true},
                         {'P', "steel", Work::FaceMill, 220, 0.2, false},
                         {'P', "steel", Work::Tap, 12, 0, false},
                         {'N', "aluminium", Work::Drill, 220, 0.03, true}});
}

struct OperationEditorTest : testing::Test {
    OperationEditor editor = of(cycle::kDrilling);

    static OperationEditor of(std::int16_t cycleId, std::int16_t unitCode = unit::kMetric) {
        return {Operation::withDefaults(cycleId, unitCode), table()};
    }
    std::size_t at(const std::string& caption) const {
        for (std::size_t row = 0; row < editor.count(); ++row) {
            if (editor.row(row).caption == caption) return row;
        }
        ADD_FAILURE() << "no row " << caption;
        return 0;
    }
    std::string value(const std::string& caption) const { return editor.row(at(caption)).value; }
    std::string source(const std::string& caption) const { return editor.row(at(caption)).source; }
    std::string type(const std::string& caption, const std::string& text) {
        return editor.setText(at(caption), text);
    }
    TechnologySource from() const { return editor.operation().source(); }
};

TEST_F(OperationEditorTest, ARowHasCaptionValueUnitAndSource) {
    const EditorRow row = editor.row(at("Cutting speed"));
    EXPECT_EQ(row.value, "80");
    EXPECT_EQ(row.unit, "m/min");
    EXPECT_EQ(row.source, "Default");
    EXPECT_TRUE(row.isEditable);
    EXPECT_FALSE(row.isChoice);
    EXPECT_TRUE(editor.row(at("Coolant")).isChoice);
    EXPECT_EQ(editor.row(0).caption, "Operation name");
}

TEST_F(OperationEditorTest, InInchEverythingIsInInch) {
    editor = of(cycle::kDrilling, unit::kInch);
    EXPECT_EQ(value("Tool diameter"), "0.3937");
    EXPECT_EQ(editor.row(at("Tool diameter")).unit, "in");
    EXPECT_EQ(value("Cutting speed"), "262");
    EXPECT_EQ(editor.row(at("Cutting speed")).unit, "ft/min");
    EXPECT_EQ(editor.row(at("Feed rate")).unit, "in/min");
}

TEST_F(OperationEditorTest, UntouchedValuesAreTheDefaults) {
    EXPECT_EQ(from(), TechnologySource::DbDefaults);
    EXPECT_EQ(type("Cutting speed", " 80 "), "");
    EXPECT_EQ(from(), TechnologySource::DbDefaults) << "the same value typed again is no change";
}

TEST_F(OperationEditorTest, WhatAPersonTypesIsTheUsers) {
    EXPECT_EQ(type("Cutting speed", "95,5"), "");
    EXPECT_EQ(value("Cutting speed"), "95.5");
    EXPECT_EQ(source("Cutting speed"), "User");
    EXPECT_EQ(from(), TechnologySource::User);
    EXPECT_EQ(editor.operation().find(code::kCuttingSpeed)->value, Variant(95.5));
    EXPECT_EQ(editor.operation().find(code::kCuttingSpeed)->state(), 2);
}

TEST_F(OperationEditorTest, WhatItTellsAPersonIsLookedUpWithItsParts) {
    const std::map<std::string, std::string> german{
        {"Tool diameter", "Werkzeugdurchmesser"},
        {"Drilling", "Bohren"},
        {"%1 must be more than %2 and at most %3.", "Mehr als %2 bis %3: %1."},
        {"%1 must be a number; '%2' is none.", "'%2' ist keine Zahl: %1, 100%"},
        {"The table of speeds and feeds has nothing for this material: %1.", "Nichts: %1"},
        {"The spindle speed needs a cutting speed and a diameter.", "Erst die anderen."}};
    editor = OperationEditor(editor.operation(), table(), [&](const std::string& english) {
        const auto found = german.find(english);
        return found == german.end() ? english : found->second;
    });
    EXPECT_EQ(type("Tool diameter", "0"), "Mehr als 0 bis 500 mm: Werkzeugdurchmesser.");
    EXPECT_EQ(type("Tool diameter", "%1"), "'%1' ist keine Zahl: Werkzeugdurchmesser, 100%");
    EXPECT_EQ(editor.takeFromTable('H'), "Nichts: Bohren");
    EXPECT_EQ(type("Tool diameter", ""), "");
    EXPECT_EQ(editor.computeSpindleSpeed(), "Erst die anderen.");
}

TEST_F(OperationEditorTest, AnEmptyCellTakesTheValueAway) {
    EXPECT_EQ(type("Point angle", ""), "");
    EXPECT_EQ(editor.operation().find(code::kToolPointAngle)->value, Variant());
    EXPECT_EQ(source("Point angle"), "");
}

TEST_F(OperationEditorTest, OnTheLatheTheDiameterIsThePartsAndTheSpindleFollowsIt) {
    editor = of(4302);
    EXPECT_EQ(value("Part diameter"), "50");
    EXPECT_EQ(type("Part diameter", "0"), "Part diameter must be more than 0 and at most 500 mm.");
    EXPECT_EQ(editor.computeSpindleSpeed(), "");
    EXPECT_EQ(value("Spindle speed"), "1020");  // 160000 / (pi * 50)
}

TEST_F(OperationEditorTest, TheNameIsTheOperationsName) {
    EXPECT_EQ(value("Operation name"), "Drilling");
    EXPECT_EQ(type("Operation name", "Drill 6.8"), "");
    EXPECT_EQ(editor.operation().name(), "Drill 6.8");
    EXPECT_EQ(editor.operation().text(code::kOperationName), "Drill 6.8");
    EXPECT_EQ(type("Operation name", "  "), "The operation needs a name.");
    EXPECT_EQ(value("Operation name"), "Drill 6.8");
}

TEST_F(OperationEditorTest, AStepThatWasRenamedIsShownUnderItsNewName) {
    Operation operation = Operation::withDefaults(cycle::kDrilling, unit::kMetric);
    operation.set(code::kOperationName, std::string("old"), Origin::Given);
    operation.setName("new");
    editor = {operation, table()};
    EXPECT_EQ(value("Operation name"), "new");
    EXPECT_EQ(editor.operation().text(code::kOperationName), "old") << "nobody has changed it";
    EXPECT_EQ(type("Operation name", "newer"), "");
    EXPECT_EQ(editor.operation().text(code::kOperationName), "newer");
}

TEST_F(OperationEditorTest, ImpossibleValuesAreRefusedWithTheReason) {
    EXPECT_EQ(type("Tool diameter", "ten"), "Tool diameter must be a number; 'ten' is none.");
    EXPECT_EQ(type("Tool diameter", "0"), "Tool diameter must be more than 0 and at most 500 mm.");
    EXPECT_EQ(type("Tool diameter", "-1"), "Tool diameter must be more than 0 and at most 500 mm.");
    EXPECT_EQ(type("Tool diameter", "500.1"), "Tool diameter must be more than 0 and at most 500 mm.");
    EXPECT_EQ(type("Tool diameter", "500"), "");
    EXPECT_EQ(type("Dwell", "-0.1"), "Dwell must be at least 0 and at most 60 s.");
    EXPECT_EQ(type("Dwell", "0"), "");
    EXPECT_EQ(type("Point angle", "200"), "Point angle must be at least 30 and at most 180\xC2\xB0.");
    EXPECT_EQ(type("Number of teeth", "2.5"), "Number of teeth must be a whole number.");
    EXPECT_EQ(type("Number of teeth", "0"), "Number of teeth must be at least 1 and at most 60.");
    EXPECT_EQ(type("Cutting speed", "1,000.5"), "Cutting speed must be a number; '1,000.5' is none.");
    EXPECT_THAT(type("Coolant", "beer"), HasSubstr("Coolant is one of emulsion, high pressure"));
    EXPECT_THAT(type("Tool", std::string(501, 'x')), HasSubstr("500 characters at most"));
    EXPECT_EQ(value("Tool diameter"), "500");
}

TEST_F(OperationEditorTest, LimitsAreThoseOfTheUnit) {
    editor = of(cycle::kDrilling, unit::kInch);
    EXPECT_EQ(type("Tool diameter", "20"), "Tool diameter must be more than 0 and at most 19.685 in.");
}

TEST_F(OperationEditorTest, AStepoverWiderThanTheToolIsRefused) {
    editor = of(cycle::kPocketRoughing);
    EXPECT_EQ(type("Stepover", "12"), "");
    EXPECT_EQ(type("Stepover", "12.5"), "A stepover of 12.5 mm is wider than the tool, which has 12 mm.");
    EXPECT_EQ(type("Tool diameter", "8"), "");
    const auto problem = editor.problem();
    ASSERT_TRUE(problem.has_value()) << "a smaller tool makes the stepover impossible";
    EXPECT_EQ(problem->row, at("Stepover"));
}

TEST_F(OperationEditorTest, SpeedAndFeedComeFromTheTableByDiameterAndMaterial) {
    EXPECT_EQ(type("Tool diameter", "6.8"), "");
    EXPECT_EQ(editor.takeFromTable('P'), "");
    EXPECT_EQ(value("Cutting speed"), "90");
    EXPECT_EQ(value("Feed per revolution"), "0.136");
    EXPECT_EQ(source("Feed per revolution"), "Table");
    EXPECT_EQ(editor.takeFromTable('N'), "");
    EXPECT_EQ(value("Cutting speed"), "220");
    EXPECT_THAT(editor.takeFromTable('H'), HasSubstr("nothing for this material: Drilling."));
    EXPECT_EQ(value("Cutting speed"), "220");
}

TEST_F(OperationEditorTest, AMillsFeedIsPerTooth) {
    editor = of(cycle::kPocketRoughing);
    EXPECT_EQ(editor.takeFromTable('P'), "");
    EXPECT_EQ(value("Feed per tooth"), "0.072");
    editor = of(cycle::kFaceMilling);
    EXPECT_EQ(editor.takeFromTable('P'), "");
    EXPECT_EQ(value("Feed per tooth"), "0.2");
}

TEST_F(OperationEditorTest, TheFeedOfATapIsItsPitch) {
    editor = of(cycle::kTapping);
    EXPECT_EQ(type("Thread pitch", "1.25"), "");
    EXPECT_EQ(editor.takeFromTable('P'), "");
    EXPECT_EQ(value("Feed per revolution"), "1.25");
    EXPECT_EQ(type("Thread pitch", ""), "");
    EXPECT_THAT(editor.takeFromTable('P'), HasSubstr("enter the pitch first"));
}

TEST_F(OperationEditorTest, WithoutADiameterTheTableCannotHelpAndNothingChanges) {
    EXPECT_EQ(type("Tool diameter", ""), "");
    EXPECT_THAT(editor.takeFromTable('P'), HasSubstr("enter the diameter first"));
    EXPECT_EQ(value("Cutting speed"), "80");
    EXPECT_THAT(editor.computeSpindleSpeed(), HasSubstr("needs a cutting speed and a diameter"));
}

TEST_F(OperationEditorTest, TheTableGivesInchFiguresInInch) {
    editor = of(cycle::kDrilling, unit::kInch);
    EXPECT_EQ(type("Tool diameter", "0.25"), "");
    EXPECT_EQ(editor.takeFromTable('P'), "");
    EXPECT_EQ(value("Cutting speed"), "295");
    EXPECT_EQ(value("Feed per revolution"), "0.005");
    EXPECT_EQ(editor.computeSpindleSpeed(), "");
    EXPECT_EQ(value("Spindle speed"), "4510");  // 295 * 12 / (pi * 0.25)
    EXPECT_EQ(value("Feed rate"), "22.6");      // 4510 * 0.005
}

TEST_F(OperationEditorTest, TheSpindleSpeedIsComputedAndTheFeedRateFollows) {
    EXPECT_EQ(value("Feed rate"), "");
    EXPECT_EQ(type("Tool diameter", "6.8"), "");
    EXPECT_EQ(editor.computeSpindleSpeed(), "");
    EXPECT_EQ(value("Spindle speed"), "3740");  // 80000 / (pi * 6.8)
    EXPECT_EQ(source("Spindle speed"), "Computed");
    EXPECT_EQ(value("Feed rate"), "748");
    EXPECT_EQ(source("Feed rate"), "Computed");
    EXPECT_THAT(type("Feed rate", "5"), HasSubstr("follows from the other values"));
    EXPECT_EQ(editor.operation().find(code::kFeedRate)->state(), 0) << "it is never stored";
}

TEST_F(OperationEditorTest, ALargeCutterIsNotRoundedToTens) {
    EXPECT_EQ(type("Tool diameter", "400"), "");
    EXPECT_EQ(editor.computeSpindleSpeed(), "");
    EXPECT_EQ(value("Spindle speed"), "64");  // 80000 / (pi * 400) = 63.66
}

TEST_F(OperationEditorTest, TheHintComparesTheSpindleSpeed) {
    EXPECT_EQ(editor.hint(), "80 m/min at 10 mm asks for a spindle speed of 2550 1/min.");
    editor.computeSpindleSpeed();
    EXPECT_EQ(editor.hint(), "The spindle speed fits 80 m/min at 10 mm.");
    type("Cutting speed", "");
    EXPECT_EQ(editor.hint(), "");
}

TEST_F(OperationEditorTest, TheStrongestSourceNamesTheStep) {
    editor.takeFromTable('P');
    EXPECT_EQ(from(), TechnologySource::SfdbCalculated);
    editor.computeSpindleSpeed();
    EXPECT_EQ(from(), TechnologySource::CalcoraComputed);
    type("Dwell", "1");
    EXPECT_EQ(from(), TechnologySource::User);
    Operation operation = editor.operation();
    operation.takeAsStep();
    EXPECT_EQ(operation.source(), TechnologySource::DbStep);
}

TEST_F(OperationEditorTest, TheWizardsPagesTogetherAreTheEditor) {
    const std::size_t all = editor.count();
    std::size_t sum = 0;
    for (const Group group : {Group::Tool, Group::Cutting, Group::Motion}) {
        editor.showGroup(group);
        EXPECT_GT(editor.count(), 0U);
        sum += editor.count();
    }
    EXPECT_EQ(sum, all);
    editor.showGroup(Group::Cutting);
    EXPECT_EQ(editor.row(0).caption, "Cutting speed");
}

TEST_F(OperationEditorTest, EveryCycleHasDefaultsThatItsEditorAccepts) {
    for (const CuttingCycle& cycle : kCuttingCycles) {
        for (const std::int16_t unitCode : {unit::kMetric, unit::kInch}) {
            editor = of(cycle.id, unitCode);
            const auto problem = editor.problem();
            EXPECT_FALSE(problem.has_value()) << cycle.name << ": " << problem->reason;
            EXPECT_EQ(value("Operation name"), cycle.name);
        }
    }
}

TEST_F(OperationEditorTest, AStoredTextThatIsNoFigureIsKeptUntilItIsAccepted) {
    Operation operation = Operation::withDefaults(cycle::kDrilling, unit::kMetric);
    operation.set(code::kToolDiameter, std::string("six"), Origin::Given);
    editor = {operation, table()};
    EXPECT_EQ(value("Tool diameter"), "six");
    ASSERT_TRUE(editor.problem().has_value());
    EXPECT_THAT(editor.problem()->reason, HasSubstr("'six' is none"));
}

TEST_F(OperationEditorTest, StoredFiguresTooLargeToReckonWithCanBeCorrected) {
    Operation operation = Operation::withDefaults(cycle::kDrilling, unit::kMetric);
    operation.set(code::kSpindleSpeed, 1e200, Origin::Given);
    operation.set(code::kFeedPerRevolution, 1e200, Origin::Given);
    operation.set(code::kCuttingSpeed, 1e300, Origin::Given);
    operation.set(code::kToolDiameter, 1e-300, Origin::Given);
    editor = {operation, table()};
    EXPECT_EQ(value("Feed rate"), "");
    EXPECT_EQ(editor.hint(), "");
    EXPECT_THAT(editor.computeSpindleSpeed(), HasSubstr("needs a cutting speed and a diameter"));
    EXPECT_EQ(type("Spindle speed", "2550"), "");
    EXPECT_EQ(type("Feed per revolution", "0.2"), "");
    EXPECT_EQ(value("Feed rate"), "510");
}

TEST_F(OperationEditorTest, TheTableHelpsWithNoDiameterThatIsTooLargeToReckonWith) {
    Operation operation = Operation::withDefaults(cycle::kDrilling, unit::kMetric);
    operation.set(code::kToolDiameter, 1e307, Origin::Given);
    editor = {operation, table()};
    EXPECT_THAT(editor.takeFromTable('P'), HasSubstr("enter the diameter first"));
}

TEST(OperationTest, AnExponentIsACapitalHoweverManyDigitsAFigureTakes) {
    EXPECT_EQ(numberText(1e20), "1E+20");
    EXPECT_EQ(numberText(1e-300 / 3), "3.3333333333333334E-301");
}

TEST_F(OperationEditorTest, ACycleThatNobodyKnowsHasEveryParameterAndNoFigures) {
    editor = of(77);
    EXPECT_EQ(editor.count(), definitions().size());
    EXPECT_EQ(value("Cutting speed"), "");
    EXPECT_FALSE(editor.problem().has_value());
}

}  // namespace
}  // namespace norvex
