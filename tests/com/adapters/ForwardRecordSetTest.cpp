#include "com/adapters/ForwardRecordSet.h"

#include <gtest/gtest.h>

#include <utility>

#include "com/adapters/ExpectError.h"
#include "com/adapters/ScriptedObject.h"

namespace pellmark {
namespace {

using test::expectError;
using test::ScriptedObject;

/// A record set as a script writes it: a cursor over rows of values.
class ForwardRecordSetTest : public testing::Test {
  protected:
    std::shared_ptr<RecordSet> of(std::vector<std::vector<VariantArg>> rows) {
        rows_ = std::move(rows);
        script_->on(L"Fields", VariantArg("_Id|_Unit"));
        script_->on(L"EOF",
                    [this](const ScriptedObject::Values&) { return VariantArg(cursor_ >= rows_.size()); });
        script_->on(L"MoveNext", [this](const ScriptedObject::Values&) {
            ++cursor_;
            return VariantArg();
        });
        script_->on(L"Field", [this](const ScriptedObject::Values& values) {
            return rows_.at(cursor_).at(DispatchResult(values.at(0), "").text() == "_Id" ? 0 : 1);
        });
        return adaptRecordSet(DispatchObject(test::dispatchOf(script_), "Records"));
    }

    ComPtr<ScriptedObject> script_ = ScriptedObject::make();
    std::vector<std::vector<VariantArg>> rows_;
    std::size_t cursor_ = 0;
};

TEST_F(ForwardRecordSetTest, CellsAreReadInAnyOrder) {
    const auto records = of({{"a", 70}, {"b", 71}, {"c", VariantArg()}});
    EXPECT_EQ(records->text(2, 0), "c");
    EXPECT_EQ(records->text(0, 1), "70");
    EXPECT_EQ(records->text(2, 1), "");
}

TEST_F(ForwardRecordSetTest, WithoutACountTheRecordsAreWalked) {
    const auto records = of({{"a", 70}, {"b", 71}});
    EXPECT_EQ(records->count(), 2U);
    EXPECT_EQ(records->text(1, 0), "b");
    EXPECT_EQ(script_->calls(L"MoveNext"), 2);
}

TEST_F(ForwardRecordSetTest, WithACountNothingIsReadBeforeItIsAskedFor) {
    script_->on(L"Count", VariantArg(2));
    const auto records = of({{"a", 70}, {"b", 71}});
    EXPECT_EQ(records->count(), 2U);
    EXPECT_EQ(script_->calls(L"Field"), 0);
    records->text(0, 0);
    EXPECT_EQ(script_->calls(L"Field"), 2);
}

TEST_F(ForwardRecordSetTest, EachRecordIsReadOnce) {
    const auto records = of({{"a", 70}, {"b", 71}});
    for (int time = 0; time < 3; ++time)
        records->text(1, 1);
    EXPECT_EQ(script_->calls(L"Field"), 4);
}

TEST_F(ForwardRecordSetTest, ThereIsNoBlockOfKeys) {
    EXPECT_FALSE(of({{"a", 70}})->keys().has_value());
}

TEST_F(ForwardRecordSetTest, AnEmptyRecordSetHasNoRecords) {
    const auto records = of({});
    EXPECT_EQ(records->count(), 0U);
    EXPECT_EQ(records->text(0, 0), "");
}

TEST_F(ForwardRecordSetTest, FromInsideTheHostOnlyWhatIsKnownCanBeRead) {
    std::shared_ptr<RecordSet> records;
    int refused = 0;
    for (const wchar_t* member : {L"EOF", L"Field", L"MoveNext"}) {
        script_ = ScriptedObject::make();
        cursor_ = 0;
        of({{"a", 70}, {"b", 71}, {"c", 72}});
        const ComPtr<ScriptedObject> plain = script_;
        script_ = ScriptedObject::make();
        for (const wchar_t* each : {L"Fields", L"EOF", L"Field", L"MoveNext"}) {
            script_->on(each, [&, each](const ScriptedObject::Values& values) {
                if (records && cursor_ == 1 && std::wstring(each) == member) {
                    EXPECT_EQ(records->text(0, 0), "a");
                    expectError(errors::kHostInterface, "asked for again", [&] { records->text(2, 0); });
                    expectError(errors::kHostInterface, "asked for again", [&] { records->count(); });
                    ++refused;
                }
                DispatchObject inner(test::dispatchOf(plain), "plain");
                const auto answer =
                    values.empty() ? inner.call(fromWide(each)) : inner.call(fromWide(each), {values[0]});
                return answer.value();
            });
        }
        records = adaptRecordSet(DispatchObject(test::dispatchOf(script_), "Records"));
        EXPECT_EQ(records->count(), 3U);
        EXPECT_EQ(records->text(1, 0), "b");
        EXPECT_EQ(records->text(2, 1), "72");
        records = nullptr;
    }
    EXPECT_GE(refused, 3);
}

TEST_F(ForwardRecordSetTest, ARecordSetThatIsLetGoOfWhileTheHostAnswersReadsToItsEnd) {
    std::shared_ptr<RecordSet> records = of({{"a", 70}, {"b", 71}});
    script_->on(L"Count", [&](const ScriptedObject::Values&) {
        records = nullptr;
        return VariantArg(2);
    });
    RecordSet* const bare = records.get();
    EXPECT_EQ(bare->count(), 2U);
    EXPECT_EQ(script_->references(), 1U);
}

TEST_F(ForwardRecordSetTest, AMoveThatFailsCostsNoRecordAndGivesNoneTwice) {
    bool fails = true;
    script_->on(L"MoveNext", [&](const ScriptedObject::Values&) {
        if (std::exchange(fails, false)) throw Error(errors::kKnowledgeBase, "Records", "the line is down");
        ++cursor_;
        return VariantArg();
    });
    const auto records = of({{"a", 70}, {"b", 71}});
    expectError(errors::kKnowledgeBase, "the line is down", [&] { records->count(); });
    EXPECT_EQ(records->count(), 2U);
    EXPECT_EQ(records->text(1, 0), "b");
}

TEST_F(ForwardRecordSetTest, AHostWhoseRecordsNeverEndIsAnErrorThatSaysSo) {
    auto endless = ScriptedObject::make();
    endless->on(L"Fields", VariantArg("_Id"))
        .on(L"EOF", VariantArg(false))
        .on(L"MoveNext", VariantArg())
        .on(L"Field", VariantArg("again"));
    ForwardRecordSet records(DispatchObject(test::dispatchOf(endless), "Records"), 100);
    expectError(errors::kHostInterface, "Records did not end after 100 records", [&] { records.count(); });
    EXPECT_EQ(endless->calls(L"MoveNext"), 100);
    EXPECT_EQ(records.text(99, 0), "again");
    expectError(errors::kHostInterface, "did not end", [&] { records.text(100, 0); });
}

TEST_F(ForwardRecordSetTest, AsManyRecordsAsThereMayBeAreRead) {
    of({{"a", 70}, {"b", 71}});
    ForwardRecordSet records(DispatchObject(test::dispatchOf(script_), "Records"), 2);
    EXPECT_EQ(records.count(), 2U);
}

TEST_F(ForwardRecordSetTest, AnObjectThatIsNoRecordSetIsAnError) {
    expectError(errors::kHostInterface, "Records.Fields is missing",
                [&] { adaptRecordSet(DispatchObject(test::dispatchOf(script_), "Records")); });
}

}  // namespace
}  // namespace pellmark
