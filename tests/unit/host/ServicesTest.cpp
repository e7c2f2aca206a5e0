#include "host/Services.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/PortsHarness.h"

namespace pellmark::test {
namespace {

class ServicesTest : public testing::Test, protected ServicesHarness {};

TEST_F(ServicesTest, TheHelpFileIsThatOfTheHostsLanguage) {
    files.makeFile("C:\\Norvex\\Help\\1031\\qdl.chm");
    services.take(host);
    EXPECT_EQ(services.help.HelpFile, "C:\\Norvex\\Help\\1031\\qdl.chm");
}

TEST_F(ServicesTest, AMissingHelpFolderFallsBackToLocale1033) {
    services.take(host);
    EXPECT_EQ(services.help.HelpFile, "C:\\Norvex\\Help\\1033\\qdl.chm");
}

TEST_F(ServicesTest, TheTitleIsLookedUp) {
    library.translations["Norvex - Process Tech Loftwise"] = "Norvex - Prozess";
    services.configureTexts(*host, "Norvex - Process Tech Loftwise");
    EXPECT_EQ(services.texts.title(), "Norvex - Prozess");
}

TEST_F(ServicesTest, ALanguageConverterThatFailsLeavesTheHelpOfLocale1033AndATrace) {
    library.onCall = [](const std::string& member) { throw Error(5, member, "no such language"); };
    services.take(host);
    EXPECT_EQ(services.help.HelpFile, "C:\\Norvex\\Help\\1033\\qdl.chm");
    EXPECT_TRUE(trace.trapped("Services::helpFileOf"));
}

TEST_F(ServicesTest, ThatTheKnowledgeBaseIsNotConnectedIsTraced) {
    EXPECT_TRUE(services.isConnected());
    EXPECT_THAT(trace.lines(), testing::IsEmpty());
    base.connected = false;
    EXPECT_FALSE(services.isConnected());
    EXPECT_THAT(trace.lines(),
                testing::ElementsAre("Services::isConnected: the knowledge base is not connected"));
}

TEST_F(ServicesTest, ATranslationServiceThatFailsLeavesTheTextsEnglish) {
    library.onCall = [](const std::string& member) { throw Error(5, member, "no table"); };
    services.configureTexts(*host, "Norvex - Process Manager");
    EXPECT_EQ(services.texts.title(), "Norvex - Process Manager");
    EXPECT_EQ(services.texts.GetString("Exit"), "Exit");
}

TEST_F(ServicesTest, ATranslationServiceThatFailsIsTracedOncePerCallOfTheComponent) {
    library.onCall = [](const std::string& member) {
        if (member == "GetString") throw Error(5, member, "no table");
    };
    for (int call = 0; call < 2; ++call) {
        trace.clear();
        services.configureTexts(*host, "Norvex - Process Manager");
        services.texts.GetString("Exit");
        services.texts.GetString("Name");
        EXPECT_THAT(trace.lines(),
                    testing::ElementsAre("Texts::GetString: error 5 from GetString: no table"));
    }
}

TEST_F(ServicesTest, AnEmptyTranslationIsNone) {
    library.translations["Exit"] = "";
    EXPECT_EQ(services.texts.GetString("Exit"), "Exit");
}

TEST_F(ServicesTest, BeforeTheFirstCallWhateverIsAskedOfTheHostSaysThatThereIsNone) {
    CurrentHost none;
    trap(trace, "test", [&none] { none.languageCode(); });
    EXPECT_THAT(trace.lines(),
                testing::ElementsAre(testing::HasSubstr(" from Pellmark: No host object was handed in yet")));
}

class CheckPermissionTest : public ServicesTest,
                            public testing::WithParamInterface<std::pair<int, const char*>> {};

TEST_P(CheckPermissionTest, ADeniedRightIsExplained) {
    base.allowed.clear();
    desktop.expectMessage(GetParam().second);
    EXPECT_FALSE(services.rights.CheckPermission(GetParam().first));
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Information);
    EXPECT_EQ(desktop.messages().back().title, "");
}

INSTANTIATE_TEST_SUITE_P(
    Operations, CheckPermissionTest,
    testing::Values(std::pair{1, "You do not have permission to edit objects in the database!"},
                    std::pair{2, "You do not have permission to add new objects to the database!"},
                    std::pair{3, "You do not have permission to delete objects from the database!"},
                    std::pair{4, "You do not have permission to "}));

TEST_F(ServicesTest, AGrantedRightShowsNothing) {
    EXPECT_TRUE(services.rights.CheckPermission(PermissionEdit));
}

TEST_F(ServicesTest, BothPiecesOfTheRefusalAreTranslated) {
    base.allowed.clear();
    library.translations = {{"You do not have permission to", "Keine Rechte:"},
                            {"edit objects in the database!", "bearbeiten"},
                            {"add new objects to the database!", "anlegen"},
                            {"delete objects from the database!", "entfernen"}};
    for (const auto& [operation, text] : std::initializer_list<std::pair<int, const char*>>{
             {PermissionEdit, "bearbeiten"}, {PermissionAdd, "anlegen"}, {PermissionDelete, "entfernen"}}) {
        desktop.expectMessage(std::string("Keine Rechte: ") + text);
        services.rights.CheckPermission(operation);
    }
}

}  // namespace
}  // namespace pellmark::test
