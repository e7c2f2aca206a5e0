#include "com/adapters/PagedRecordSet.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "com/adapters/ExpectError.h"
#include "com/adapters/ScriptedObject.h"
#include "knowledge/PackedText.h"

namespace pellmark {
namespace {

using test::expectError;
using test::ScriptedObject;

VariantArg packed(const PackedTextWriter& writer) {
    const auto& units = writer.text();
    return Bstr::adopt(
        SysAllocStringLen(reinterpret_cast<const wchar_t*>(units.data()), static_cast<UINT>(units.size())));
}

Guid guidOf(int number) {
    Guid guid;
    std::memcpy(guid.bytes.data(), &number, sizeof(number));
    return guid;
}

/// A host's record set of processes "Process 0", "Process 1" and so on.
class PagedRecordSetTest : public testing::Test {
  protected:
    std::shared_ptr<RecordSet> ofSize(int count) {
        script_->on(L"Count", VariantArg(count)).on(L"Fields", VariantArg("_Id|_Name"));
        script_->on(L"Page", [count](const ScriptedObject::Values& values) {
            PackedTextWriter writer;
            const int first = DispatchResult(values.at(0), "").int32();
            const int end = std::min(first + DispatchResult(values.at(1), "").int32(), count);
            for (int at = first; at < end; ++at) {
                writer.add(guidOf(at).text());
                writer.add("Process " + std::to_string(at));
            }
            return packed(writer);
        });
        script_->on(L"Keys", [count](const ScriptedObject::Values&) {
            std::vector<Guid> keys;
            for (int at = 0; at < count; ++at)
                keys.push_back(guidOf(at));
            return VariantArg(Bstr::adopt(SysAllocStringByteLen(
                reinterpret_cast<const char*>(keys.data()), static_cast<UINT>(keys.size() * sizeof(Guid)))));
        });
        return adaptRecordSet(DispatchObject(test::dispatchOf(script_), "Records"));
    }

    ComPtr<ScriptedObject> script_ = ScriptedObject::make();
};

TEST_F(PagedRecordSetTest, CellsAreReadByRecordAndField) {
    const auto records = ofSize(1000);
    EXPECT_EQ(records->count(), 1000U);
    EXPECT_EQ(records->text(0, 1), "Process 0");
    EXPECT_EQ(records->text(999, 1), "Process 999");
    EXPECT_EQ(records->text(500, records->fieldIndex("_ID").value()), guidOf(500).text());
}

TEST_F(PagedRecordSetTest, ACellThatDoesNotExistIsEmpty) {
    const auto records = ofSize(3);
    EXPECT_EQ(records->text(3, 0), "");
    EXPECT_EQ(records->text(0, 2), "");
}

TEST_F(PagedRecordSetTest, AScreenCostsOnePageWhateverTheNumberOfRecords) {
    const auto records = ofSize(1'000'000);
    for (std::size_t row = 0; row < 40; ++row) {
        for (std::size_t field = 0; field < 2; ++field)
            records->text(row, field);
    }
    EXPECT_EQ(script_->calls(L"Page"), 1);
    EXPECT_EQ(script_->allCalls(), 3);  // Fields, Count, Page
}

TEST_F(PagedRecordSetTest, ScrollingAScreenAnywhereCostsTwoPagesAtMost) {
    const auto records = ofSize(1'000'000);
    for (std::size_t row = 700'000; row < 700'040; ++row)
        records->text(row, 1);
    EXPECT_LE(script_->calls(L"Page"), 2);
}

TEST_F(PagedRecordSetTest, PagingBackAndForthIsServedFromWhatIsKept) {
    const auto records = ofSize(100'000);
    for (int time = 0; time < 3; ++time) {
        for (std::size_t row = 0; row < PagedRecordSet::kPageRecords * PagedRecordSet::kKeptPages; ++row) {
            records->text(row, 1);
        }
    }
    EXPECT_EQ(script_->calls(L"Page"), static_cast<int>(PagedRecordSet::kKeptPages));
}

TEST_F(PagedRecordSetTest, ReadingEverythingCostsOneCallPerPage) {
    const auto records = ofSize(10'000);
    for (std::size_t row = 0; row < 10'000; ++row)
        records->text(row, 1);
    EXPECT_EQ(script_->calls(L"Page"), 40);
}

TEST_F(PagedRecordSetTest, KeysComeInOneBlockOfBytes) {
    const auto records = ofSize(1000);
    const auto keys = records->keys();
    ASSERT_TRUE(keys.has_value());
    ASSERT_EQ(keys->size(), 1000U);
    EXPECT_EQ(keys->at(999), guidOf(999));
    EXPECT_EQ(script_->calls(L"Keys"), 1);
    EXPECT_EQ(script_->calls(L"Page"), 0);
}

TEST_F(PagedRecordSetTest, KeysMayBeEmptyOrMissing) {
    script_->on(L"Keys", VariantArg());
    EXPECT_FALSE(ofSize(5)->keys().has_value());
    auto bare = ScriptedObject::make();
    bare->on(L"Fields", VariantArg("_Id")).on(L"Count", VariantArg(0)).on(L"Page", VariantArg(""));
    EXPECT_FALSE(adaptRecordSet(DispatchObject(test::dispatchOf(bare), "Records"))->keys().has_value());
}

TEST_F(PagedRecordSetTest, KeysThatDoNotMatchTheCountAreRefused) {
    script_->on(L"Keys", VariantArg("short"));
    const auto records = ofSize(5);
    expectError(errors::kHostInterface, "one key per record", [&] { records->keys(); });
}

TEST_F(PagedRecordSetTest, KeysMayComeAsAnArrayOfBytes) {
    const auto bytes = [](ULONG count) {
        VariantArg array;
        array.get().vt = VT_ARRAY | VT_UI1;
        array.get().parray = SafeArrayCreateVector(VT_UI1, 0, count);
        return array;
    };
    script_->on(L"Keys", bytes(ULONG{5 * sizeof(Guid)}));
    EXPECT_EQ(ofSize(5)->keys()->at(4), Guid{});
    constexpr ULONG kWhole = 5 * sizeof(Guid);
    for (const ULONG count : {kWhole - 1, kWhole + 1, 0UL}) {
        script_ = ScriptedObject::make();
        script_->on(L"Keys", bytes(count));
        expectError(errors::kHostInterface, "one key per record", [&] { ofSize(5)->keys(); });
    }
}

TEST_F(PagedRecordSetTest, KeysThatAreNoBytesAreRefused) {
    script_->on(L"Keys", test::scriptArray({"key"}));
    expectError(errors::kHostInterface, "an array of bytes", [&] { ofSize(1)->keys(); });
}

TEST_F(PagedRecordSetTest, KeysWhoseDataWasDestroyedAreRefused) {
    script_->on(L"Keys", [](const ScriptedObject::Values&) {
        VariantArg array;
        array.get().vt = VT_ARRAY | VT_UI1;
        array.get().parray = SafeArrayCreateVector(VT_UI1, 0, sizeof(Guid));
        SafeArrayDestroyData(array.get().parray);
        return array;
    });
    expectError(errors::kHostInterface, "has lost its elements", [&] { ofSize(1)->keys(); });
}

TEST_F(PagedRecordSetTest, AShortPageReadsAsEmptyCells) {
    script_->on(L"Page", VariantArg("2:id4:Bore"));
    const auto records = ofSize(2);
    EXPECT_EQ(records->text(0, 1), "Bore");
    EXPECT_EQ(records->text(1, 1), "");
}

TEST_F(PagedRecordSetTest, AMalformedPageIsAnError) {
    script_->on(L"Page", VariantArg("10:too short"));
    const auto records = ofSize(2);
    expectError(errors::kHostInterface,
                "Records.Page answered with a packed text that cannot be read. The packed "
                "text is malformed behind its first 0 characters: ",
                [&] { records->text(0, 0); });
}

TEST_F(PagedRecordSetTest, APageThatIsNoTextIsAnError) {
    script_->on(L"Page", VariantArg(7));
    const auto records = ofSize(2);
    expectError(errors::kHostInterface,
                "Records.Page did not answer with a packed text, but with the number 7.",
                [&] { records->text(0, 0); });
}

TEST_F(PagedRecordSetTest, ANegativeCountIsAnError) {
    script_->on(L"Count", VariantArg(-1));
    const auto records = ofSize(2);
    expectError(errors::kHostInterface, "Records.Count", [&] { records->count(); });
}

TEST_F(PagedRecordSetTest, APageThatFailedIsNotAskedForAgain) {
    EXCEPINFO details{};
    details.scode = static_cast<SCODE>(0x800A0000U + errors::kKnowledgeBase);
    script_->failing(L"Page", DISP_E_EXCEPTION, details);
    const auto records = ofSize(1000);
    for (int paint = 0; paint < 3; ++paint) {
        for (std::size_t row = 0; row < 40; ++row)
            expectError(errors::kKnowledgeBase, "Records.Page", [&] { records->text(row, 1); });
    }
    EXPECT_EQ(script_->calls(L"Page"), 1);
    expectError(errors::kKnowledgeBase, "Records.Page", [&] { records->text(999, 1); });
    EXPECT_EQ(script_->calls(L"Page"), 2);
}

TEST_F(PagedRecordSetTest, APageThatCannotBeReadIsNotAskedForAgain) {
    script_->on(L"Page", VariantArg("10:too short"));
    const auto records = ofSize(2);
    for (int paint = 0; paint < 3; ++paint)
        expectError(errors::kHostInterface, "malformed", [&] { records->text(0, 0); });
    EXPECT_EQ(script_->calls(L"Page"), 1);
}

TEST_F(PagedRecordSetTest, APageThatIsAskedForWhileTheHostGivesItIsRefusedInThere) {
    std::shared_ptr<RecordSet> records;
    int refused = 0;
    script_->on(L"Page", [&](const ScriptedObject::Values&) {
        expectError(errors::kHostInterface, "asked for again", [&] { records->text(0, 1); });
        ++refused;
        return VariantArg("2:id4:Bore");
    });
    records = ofSize(1);
    EXPECT_EQ(records->text(0, 1), "Bore");
    EXPECT_EQ(refused, 1);
}

TEST_F(PagedRecordSetTest, AnotherPageCanBeReadWhileTheHostGivesOne) {
    std::shared_ptr<RecordSet> records;
    std::string read;
    script_->on(L"Page", [&](const ScriptedObject::Values& values) {
        const bool first = DispatchResult(values.at(0), "").int32() == 0;
        if (first) read = records->text(PagedRecordSet::kPageRecords, 1);
        return VariantArg(first ? "2:id4:Bore" : "2:id4:Ream");
    });
    records = ofSize(1000);
    EXPECT_EQ(records->text(0, 1), "Bore");
    EXPECT_EQ(read, "Ream");
}

TEST_F(PagedRecordSetTest, ARecordSetThatIsLetGoOfWhileTheHostAnswersReadsToItsEnd) {
    std::shared_ptr<RecordSet> records;
    script_->on(L"Page", [&](const ScriptedObject::Values&) {
        records = nullptr;
        return VariantArg("2:id4:Bore");
    });
    records = ofSize(1);
    RecordSet* const bare = records.get();
    EXPECT_EQ(bare->text(0, 1), "Bore");
    EXPECT_EQ(script_->references(), 1U);
}

TEST_F(PagedRecordSetTest, AFieldThatIsMissingIsAnErrorWithItsNameAndThatOfTheMember) {
    const auto records = ofSize(1);
    EXPECT_EQ(records->requireField("_name"), 1U);
    expectError(errors::kHostInterface, "Records lacks the field _Unit",
                [&] { records->requireField("_Unit"); });
}

}  // namespace
}  // namespace pellmark
