#include "host/Component.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/PortsHarness.h"

namespace pellmark::test {
namespace {

class ComponentTest : public testing::Test, protected ComponentHarness {};

TEST_F(ComponentTest, TheHelpFileIsThatOfTheHostsLanguage) {
    files.makeFile("C:\\Norvex\\Help\\1031\\qdl.chm");
    EXPECT_EQ(component.helpFileOf(*host), "C:\\Norvex\\Help\\1031\\qdl.chm");
}

TEST_F(ComponentTest, AMissingHelpFolderFallsBackToLocale1033) {
    EXPECT_EQ(component.helpFileOf(*host), "C:\\Norvex\\Help\\1033\\qdl.chm");
}

TEST_F(ComponentTest, TheTitleIsLookedUp) {
    library.translations["Norvex - Process Tech Loftwise"] = "Norvex - Prozess";
    component.configureTranslation(*host, "Norvex - Process Tech Loftwise");
    EXPECT_EQ(component.title(), "Norvex - Prozess");
}

class CheckPermissionTest : public ComponentTest,
                            public testing::WithParamInterface<std::pair<int, const char*>> {};

TEST_P(CheckPermissionTest, ADeniedRightIsExplained) {
    base.allowed.clear();
    desktop.expectMessage(GetParam().second);
    EXPECT_FALSE(component.CheckPermission(GetParam().first));
    EXPECT_EQ(desktop.messages().back().icon, MessageIcon::Information);
    EXPECT_EQ(desktop.messages().back().title, "");
}

INSTANTIATE_TEST_SUITE_P(
    Operations, CheckPermissionTest,
    testing::Values(std::pair{1, "You do not have permission to edit objects in the database!"},
                    std::pair{2, "You do not have permission to add new objects to the database!"},
                    std::pair{3, "You do not have permission to delete objects from the database!"},
                    std::pair{4, "You do not have permission to "}));

TEST_F(ComponentTest, AGrantedRightShowsNothing) {
    EXPECT_TRUE(component.CheckPermission(PermissionEdit));
}

TEST_F(ComponentTest, BothPiecesOfTheRefusalAreTranslated) {
    base.allowed.clear();
    library.translations["You do not have permission to"] = "Keine Rechte:";
    library.translations["edit objects in the database!"] = "bearbeiten";
    desktop.expectMessage("Keine Rechte: bearbeiten");
    component.CheckPermission(PermissionEdit);
}

}  // namespace
}  // namespace pellmark::test
