#include "refhost/automation/NorvexLibrary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>

#include "base/Error.h"
#include "com/adapters/AutomationHostLibrary.h"
#include "com/adapters/CountingObject.h"
#include "com/adapters/ExpectError.h"
#include "com/adapters/KnowledgeBaseAdapter.h"
#include "support/TemporaryFolder.h"

namespace pellmark {
namespace {

using test::CountingObject;
using test::expectError;
using test::NorvexLibrary;

class NorvexLibraryTest : public testing::Test {
  protected:
    DispatchObject create(const char* progId) { return {library_.create(toWide(progId).c_str()), progId}; }

    static constexpr const char* kProgIds[] = {"Norvex.Application", "Norvex.KnowledgeBaseService",
                                               "Norvex.TranslationService", "Norvex.LanguageConverter",
                                               "Norvex.TechnologyService"};

    NorvexLibrary library_;
};

/// Every member of an object's description must be answered by the object under the same number.
void expectMembersAsDescribed(DispatchObject& object) {
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(object.pointer()->GetTypeInfo(0, 0, info.receive()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    constexpr int kFirstOwnMember = 7;  // a dispatch interface describes the seven of IDispatch first
    int members = 0;
    for (UINT at = 0; at < attributes->cFuncs; ++at) {
        FUNCDESC* function = nullptr;
        ASSERT_EQ(info->GetFuncDesc(at, &function), S_OK);
        Bstr name;
        info->GetDocumentation(function->memid, name.receive(), nullptr, nullptr, nullptr);
        if (at >= kFirstOwnMember || (function->wFuncFlags & FUNCFLAG_FRESTRICTED) == 0) {
            LPOLESTR names[] = {name.get()};
            DISPID id = DISPID_UNKNOWN;
            EXPECT_EQ(object.pointer()->GetIDsOfNames(IID_NULL, names, 1, 0, &id), S_OK) << name.utf8();
            EXPECT_EQ(id, function->memid) << name.utf8();
            ++members;
        }
        info->ReleaseFuncDesc(function);
    }
    info->ReleaseTypeAttr(attributes);
    EXPECT_GT(members, 0) << object.name();
}

TEST_F(NorvexLibraryTest, EveryMemberOfTheTypeLibraryIsAnsweredUnderItsNumber) {
    test::TemporaryFolder folder;
    NorvexLibrary::useKnowledgeBase(folder.file("described.db"));
    for (const char* progId : kProgIds) {
        auto object = create(progId);
        expectMembersAsDescribed(object);
    }
    auto service = create("Norvex.KnowledgeBaseService");
    for (const char* part :
         {"UserRights", "ProcessStore", "FeatureCaseStore", "MaterialStore", "ProcessStepStore"}) {
        auto object = service.call(part).object();
        expectMembersAsDescribed(object);
    }
    auto records = service.call("MaterialStore").object().call("Materials").object();
    expectMembersAsDescribed(records);
}

TEST_F(NorvexLibraryTest, AWrongNumberOfArgumentsIsRefused) {
    auto converter = create("Norvex.LanguageConverter");
    expectError(errors::kHostInterface, "LocaleOf takes another number", [&] { converter.call("LocaleOf"); });
}

TEST_F(NorvexLibraryTest, AnArgumentOfAWrongKindIsRefused) {
    auto converter = create("Norvex.LanguageConverter");
    expectError(errors::kHostInterface, "LocaleOf does not take",
                [&] { converter.call("LocaleOf", {"English"}); });
}

TEST_F(NorvexLibraryTest, TheServicesAreCreatedByTheirProgIds) {
    AutomationHostLibrary host;
    EXPECT_EQ(host.createLanguageConverter()->localeOf(2), 1031);
    EXPECT_EQ(host.createTranslationService()->GetString("no such text"), "no such text");
    EXPECT_NE(host.createKnowledgeBaseService(), nullptr);
}

TEST_F(NorvexLibraryTest, AnUnknownLanguageHasTheLocaleOfEnglish) {
    auto converter = create("Norvex.LanguageConverter");
    EXPECT_EQ(converter.call("LocaleOf", {std::int16_t{99}}).int32(), 1033);
}

TEST_F(NorvexLibraryTest, TheComponentsTextsAreTranslated) {
    auto texts = create("Norvex.TranslationService");
    texts.put("ResourceFile", fromWide(NorvexLibrary::folder()) + "\\Pellmark.csv");
    texts.put("OutputLanguage", std::int16_t{2});
    EXPECT_EQ(texts.call("GetString", {"Exit"}).text(), "Beenden");
    texts.put("OutputLanguage", std::int16_t{6});
    EXPECT_EQ(texts.call("GetString", {"Name"}).text(), "\xE5\x90\x8D\xE5\x89\x8D");
    texts.put("OutputLanguage", std::int16_t{1});
    EXPECT_EQ(texts.call("GetString", {"Exit"}).text(), "Exit");
}

TEST_F(NorvexLibraryTest, AMissingTableLeavesTheTextsEnglish) {
    auto texts = create("Norvex.TranslationService");
    texts.put("ResourceFile", "Z:\\no such folder\\Pellmark.csv");
    texts.put("OutputLanguage", std::int16_t{2});
    EXPECT_EQ(texts.call("GetString", {"Exit"}).text(), "Exit");
}

TEST_F(NorvexLibraryTest, AKnowledgeBaseThatCannotBeOpenedIsNotConnectedAndSaysWhy) {
    test::TemporaryFolder folder;
    NorvexLibrary::useKnowledgeBase(folder.file("*bad?name.db"));
    auto service = create("Norvex.KnowledgeBaseService");
    EXPECT_FALSE(service.call("IsConnected").boolean());
    expectError(errors::kKnowledgeBase, "bad?name.db", [&] { service.call("Connect"); });
}

TEST_F(NorvexLibraryTest, AFolderThatDoesNotExistIsNamedAndNotMade) {
    test::TemporaryFolder folder;
    NorvexLibrary::useKnowledgeBase(folder.file("no such folder") + "\\base.db");
    auto service = create("Norvex.KnowledgeBaseService");
    EXPECT_FALSE(service.call("IsConnected").boolean());
    expectError(errors::kKnowledgeBase, "there is no folder '" + folder.file("no such folder") + "'",
                [&] { service.call("Connect"); });
    EXPECT_EQ(GetFileAttributesW(toWide(folder.file("no such folder")).c_str()), INVALID_FILE_ATTRIBUTES);
}

/// The host's library in German.
class GermanLibraryTest : public NorvexLibraryTest {
  protected:
    GermanLibraryTest() { SetEnvironmentVariableW(L"NORVEX_LANGUAGE", L"2"); }
    ~GermanLibraryTest() override { SetEnvironmentVariableW(L"NORVEX_LANGUAGE", nullptr); }

    static Error failureOf(const std::function<void()>& call) {
        try {
            call();
        } catch (const Error& error) {
            return error;
        }
        return {0, "", "no failure"};
    }

    test::TemporaryFolder folder_;
};

TEST_F(GermanLibraryTest, AKnowledgeBaseThatCannotBeOpenedSaysWhyInGermanAndInEnglishForTheTrace) {
    NorvexLibrary::useKnowledgeBase(folder_.file("none") + "\\base.db");
    auto service = create("Norvex.KnowledgeBaseService");
    const Error error = failureOf([&] { service.call("Connect"); });
    EXPECT_EQ(error.number(), errors::kKnowledgeBase);
    EXPECT_EQ(error.description(), "Die Wissensbasis \xE2\x80\x9E" + folder_.file("none") +
                                       "\\base.db\xE2\x80\x9C kann nicht ge\xC3\xB6" +
                                       "ffnet werden: Es gibt keinen Ordner \xE2\x80\x9E" +
                                       folder_.file("none") + "\xE2\x80\x9C. Pr\xC3\xBC" +
                                       "fen Sie den Pfad, oder legen Sie den Ordner erst an.");
    EXPECT_THAT(error.source(), testing::HasSubstr("there is no folder '" + folder_.file("none") + "'"));
}

TEST_F(GermanLibraryTest, AProcessThatIsGoneAndADamagedProcessFileAreSaidInGerman) {
    NorvexLibrary::useKnowledgeBase(folder_.file("german.db"));
    KnowledgeBaseAdapter adapter(create("Norvex.KnowledgeBaseService"));
    const Error gone =
        failureOf([&] { adapter.processStore().process("{C200E360-38C5-11CE-AE62-08002B2B79EF}"); });
    EXPECT_EQ(gone.number(), errors::kNotFound);
    EXPECT_THAT(gone.description(), testing::StartsWith("Den Prozess gibt es nicht mehr. Vielleicht"));
    const std::string path = folder_.file("bad.prc");
    std::ofstream(std::filesystem::path(toWide(path))) << "Norvex process file, version 1\noperations x\n";
    const Error damaged =
        failureOf([&] { create("Norvex.TechnologyService").call("OpenFile", {VariantArg(path)}); });
    EXPECT_THAT(damaged.description(), testing::StartsWith("Die Prozessdatei "));
    EXPECT_THAT(damaged.description(),
                testing::EndsWith("Zeile 2: hier geh\xC3\xB6rt die Zahl der Operationen hin."));
    EXPECT_THAT(damaged.source(), testing::HasSubstr("Line 2: the number of operations belongs here."));
}

TEST_F(NorvexLibraryTest, TheFolderOfTheDefaultFileIsMade) {
    test::TemporaryFolder folder;
    wchar_t before[MAX_PATH] = {};
    GetEnvironmentVariableW(L"LOCALAPPDATA", before, MAX_PATH);
    SetEnvironmentVariableW(L"LOCALAPPDATA", toWide(folder.file("local")).c_str());
    NorvexLibrary::useKnowledgeBase("");
    auto service = create("Norvex.KnowledgeBaseService");
    EXPECT_TRUE(service.call("IsConnected").boolean());
    SetEnvironmentVariableW(L"LOCALAPPDATA", before);
}

/// A knowledge base that nobody may write to.
class ReadOnlyLibraryTest : public NorvexLibraryTest {
  protected:
    ReadOnlyLibraryTest() {
        NorvexLibrary::useKnowledgeBase(path_);
        create("Norvex.KnowledgeBaseService").call("Connect");
        SetFileAttributesW(toWide(path_).c_str(), FILE_ATTRIBUTE_READONLY);
    }
    ~ReadOnlyLibraryTest() override {
        SetEnvironmentVariableW(L"NORVEX_LANGUAGE", nullptr);
        SetFileAttributesW(toWide(path_).c_str(), FILE_ATTRIBUTE_NORMAL);
    }

    test::TemporaryFolder folder_;
    std::string path_ = folder_.file("locked.db");
};

TEST_F(ReadOnlyLibraryTest, IsReadAndSaysThatItIsReadOnly) {
    auto service = create("Norvex.KnowledgeBaseService");
    EXPECT_TRUE(service.call("IsConnected").boolean());
    EXPECT_TRUE(service.call("IsReadOnly").boolean());
    KnowledgeBaseAdapter adapter(std::move(service));
    EXPECT_GE(adapter.processStore().processes("")->count(), 60U);
}

TEST_F(ReadOnlyLibraryTest, TheQuestionForARightIsAnsweredWithWhyAndWhatToDoInTheUsersLanguage) {
    KnowledgeBaseAdapter adapter(create("Norvex.KnowledgeBaseService"));
    for (const int operation : {PermissionEdit, PermissionAdd, PermissionDelete}) {
        expectError(errors::kKnowledgeBase, "The knowledge base is read-only",
                    [&] { adapter.userRights().may(operation); });
        expectError(errors::kKnowledgeBase, "locked.db", [&] { adapter.userRights().may(operation); });
    }
    SetEnvironmentVariableW(L"NORVEX_LANGUAGE", L"2");
    expectError(errors::kKnowledgeBase, "schreibgesch\xC3\xBCtzt",
                [&] { adapter.userRights().may(PermissionEdit); });
}

TEST_F(ReadOnlyLibraryTest, WhoMayNotEditAnywayIsToldThatAlone) {
    auto host = create("Norvex.Application");
    host.put("CurrentUser", "Operator");
    KnowledgeBaseAdapter adapter(create("Norvex.KnowledgeBaseService"));
    EXPECT_FALSE(adapter.userRights().may(PermissionEdit));
    host.put("CurrentUser", "");
}

TEST_F(NorvexLibraryTest, AKnowledgeBaseThatMayBeWrittenToIsNotReadOnly) {
    test::TemporaryFolder folder;
    NorvexLibrary::useKnowledgeBase(folder.file("open.db"));
    EXPECT_FALSE(create("Norvex.KnowledgeBaseService").call("IsReadOnly").boolean());
}

TEST_F(NorvexLibraryTest, RightsAreThoseOfTheCurrentUser) {
    test::TemporaryFolder folder;
    NorvexLibrary::useKnowledgeBase(folder.file("rights.db"));
    auto host = create("Norvex.Application");
    KnowledgeBaseAdapter adapter(create("Norvex.KnowledgeBaseService"));
    host.put("CurrentUser", "Operator");
    EXPECT_FALSE(adapter.userRights().may(PermissionAdd));
    host.put("CurrentUser", "administrator");
    EXPECT_TRUE(adapter.userRights().may(PermissionAdd));
}

TEST_F(NorvexLibraryTest, TextsOfEveryKindSurviveTheWayToTheStoreAndBack) {
    test::TemporaryFolder folder;
    NorvexLibrary::useKnowledgeBase(folder.file("texts.db"));
    KnowledgeBaseAdapter adapter(create("Norvex.KnowledgeBaseService"));
    const ProcessRecord nasty{"", "12:\"quoted\", 'it' | ; \t \xF0\x9F\x94\xA9 \xE5\x90\x8D\xE5\x89\x8D", 71,
                              std::string(996, 'd') + "\r\n:x", "a < 1 And b > \"2\""};
    const std::string id = adapter.processStore().addProcess(nasty);
    const ProcessRecord stored{id, nasty.Name, nasty.Unit, nasty.Description, nasty.Rule};
    EXPECT_EQ(adapter.processStore().process(id), stored);
    EXPECT_EQ(adapter.processStore().processRecords({id}).at(0), stored);
    const auto records = adapter.processStore().processes(id);
    EXPECT_EQ(records->text(0, records->fieldIndex("_Description").value()), nasty.Description);
}

TEST_F(NorvexLibraryTest, TwoServicesSeeEachOthersChanges) {
    test::TemporaryFolder folder;
    NorvexLibrary::useKnowledgeBase(folder.file("shared.db"));
    KnowledgeBaseAdapter first(create("Norvex.KnowledgeBaseService"));
    KnowledgeBaseAdapter second(create("Norvex.KnowledgeBaseService"));
    const std::string id = first.processStore().addProcess({"", "Shared", 70, "", ""});
    EXPECT_EQ(second.processStore().process(id).Name, "Shared");
}

/// What crosses the boundary for a list on the screen.
class BoundaryCostTest : public NorvexLibraryTest {
  protected:
    static constexpr std::size_t kRowsOnScreen = 40;

    int callsToShow(int processes, std::size_t firstRow) {
        test::TemporaryFolder folder;
        NorvexLibrary::useKnowledgeBase(folder.file("cost.db"));
        int calls = 0;
        auto inner = create("Norvex.KnowledgeBaseService");
        KnowledgeBaseAdapter adapter(
            DispatchObject(CountingObject::wrap(inner.pointer(), calls), "Norvex.KnowledgeBaseService"));
        for (int at = 0; at < processes; ++at)
            adapter.processStore().addProcess({"", "P", 71, "", ""});
        const int before = calls;
        const auto records = adapter.processStore().processes("");
        records->count();
        records->keys();
        for (std::size_t row = firstRow; row < firstRow + kRowsOnScreen; ++row) {
            for (std::size_t field = 0; field < records->fields().size(); ++field)
                records->text(row, field);
        }
        return calls - before;
    }
};

TEST_F(BoundaryCostTest, AScreenCostsTheSameForFewAndForManyProcesses) {
    const int few = callsToShow(50, 0);
    EXPECT_EQ(callsToShow(600, 0), few);
    EXPECT_LE(few, 12);
}

TEST_F(BoundaryCostTest, AScreenFarDownCostsNoMoreThanOnePageExtra) {
    EXPECT_LE(callsToShow(600, 500), callsToShow(600, 0) + 1);
}

}  // namespace
}  // namespace pellmark
