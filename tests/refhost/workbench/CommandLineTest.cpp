#include "refhost/workbench/CommandLine.h"

#include <gtest/gtest.h>

namespace norvex {
namespace {

TEST(CommandLineTest, WithoutOptionsTheConfiguredKnowledgeBaseIsShownAsProcesses) {
    const CommandLine line = parseCommandLine({});
    EXPECT_EQ(line.knowledgeBase, "");
    EXPECT_EQ(line.view, StartView::Processes);
    EXPECT_FALSE(line.language.has_value());
    EXPECT_EQ(line.mistake, "");
}

TEST(CommandLineTest, EveryOptionIsRead) {
    const CommandLine line = parseCommandLine({"--kb", "C:\\a b.db", "--view", "case", "--user", "Operator",
                                               "--language", "6", "--screenshot-ready", "C:\\ready"});
    EXPECT_EQ(line.knowledgeBase, "C:\\a b.db");
    EXPECT_EQ(line.view, StartView::Case);
    EXPECT_EQ(line.user, "Operator");
    EXPECT_EQ(line.language, 6);
    EXPECT_EQ(line.readyFile, "C:\\ready");
    EXPECT_EQ(line.mistake, "");
}

TEST(CommandLineTest, WhatCannotBeUnderstoodIsNamed) {
    EXPECT_EQ(parseCommandLine({"--wiev", "case"}).mistake, "There is no option \"--wiev\".");
    EXPECT_EQ(parseCommandLine({"--view", "cases"}).mistake, "There is no view \"cases\".");
    EXPECT_EQ(parseCommandLine({"--language", "6x"}).mistake,
              "The language is given as a number, not as \"6x\".");
    EXPECT_NE(parseCommandLine({"--kb"}).mistake, "");
}

TEST(CommandLineTest, HelpMayStandAnywhere) {
    EXPECT_TRUE(parseCommandLine({"--help"}).help);
    EXPECT_TRUE(parseCommandLine({"--view", "case", "--help"}).help);
}

}  // namespace
}  // namespace norvex
