#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <regex>

#include "base/Error.h"
#include "refhost/store/SqliteKnowledgeBaseService.h"
#include "support/TemporaryFolder.h"

namespace norvex {
namespace {

using pellmark::Error;
using testing::HasSubstr;
namespace errors = pellmark::errors;

/// What a person reads when the store fails.
struct FailureTextsTest : testing::Test {
    pellmark::test::TemporaryFolder folder;
    SqliteKnowledgeBaseService service{folder.file("base.db"), {std::chrono::milliseconds(50), true}};
    const std::string gone = "{C200E360-38C5-11CE-AE62-08002B2B79EF}";
    const std::string process = service.processStore().addProcess({"", "Bore", 71, "", ""});
    const std::string step = service.stepStore().addStep({"", "Drill deep", process, 1, 1});

    static std::string textOf(std::int32_t number, const std::function<void()>& call) {
        try {
            call();
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), number) << error.description();
            return error.description();
        }
        return "no failure";
    }
};

TEST_F(FailureTextsTest, NoneHoldsAnIdAndWhatIsGoneIsSaidWithWhatToDo) {
    auto& processes = service.processStore();
    auto& steps = service.stepStore();
    auto& cases = service.featureCaseStore();
    const std::string type = cases.featureTypes(-1, "", -1)->text(0, 0);
    const std::string value = cases.values(type)->text(0, 0);
    const std::string featureCase = cases.createFeatureCase({type, {}, -1, "", -1, "", -1});
    const std::pair<const char*, std::function<void()>> calls[] = {
        {"The process ", [&] { processes.process(gone); }},
        {"The process ",
         [&] {
             processes.updateProcess({gone, "A", 71, "", ""});
         }},
        {"The process ", [&] { processes.attach(gone, featureCase); }},
        {"The feature case ", [&] { processes.attach(process, gone); }},
        {"The process ", [&] { processes.addMaterial(gone, gone); }},
        {"The material ", [&] { processes.addMaterial(process, gone); }},
        {"The feature type ",
         [&] {
             cases.createFeatureCase({gone, {}, -1, "", -1, "", -1});
         }},
        {"The feature case ", [&] { cases.addValue(value, gone); }},
        {"The value ", [&] { cases.addValue(gone, featureCase); }},
        {"The process step ", [&] { steps.step(gone); }},
        {"The process ",
         [&] {
             steps.addStep({"", "A", gone, 1, 1});
         }},
        {"The process step ",
         [&] {
             steps.updateStep({gone, "A", process, 1, 1});
         }},
        {"The process ",
         [&] {
             steps.updateStep({step, "A", gone, 1, 1});
         }},
        {"The process step ",
         [&] {
             steps.addValue({gone, 1, "1"});
         }},
        {"The process step ",
         [&] {
             steps.updateValue({gone, 1, "1"});
         }},
        {"The value 7 of the process step 'Drill deep' ",
         [&] {
             steps.updateValue({step, 7, "1"});
         }},
        {"The process step ",
         [&] {
             steps.setValue({gone, 1, "1"});
         }},
        {"The process step ", [&] { steps.setTechnologySource(gone, pellmark::TechnologySource::User); }},
    };
    const std::regex anId("[0-9A-Fa-f]{8}-[0-9A-Fa-f]{4}-");
    for (const auto& [beginning, call] : calls) {
        const std::string text = textOf(errors::kNotFound, call);
        EXPECT_THAT(text, testing::StartsWith(std::string(beginning) + "no longer exists"));
        EXPECT_THAT(text, HasSubstr("Refresh the list"));
        EXPECT_FALSE(std::regex_search(text, anId)) << text;
    }
}

TEST_F(FailureTextsTest, AValueThatExistsAlreadyIsSaidWithItsStep) {
    service.stepStore().addValue({step, 7, "1"});
    EXPECT_EQ(textOf(errors::kNotUnique,
                     [&] {
                         service.stepStore().addValue({step, 7, "2"});
                     }),
              "The value 7 of the process step 'Drill deep' exists already.");
}

TEST_F(FailureTextsTest, ATextThatIsTooLongIsSaidWithItsFieldAndBothLengths) {
    auto& processes = service.processStore();
    const auto tooLong = [&](std::size_t name, std::size_t rule, std::size_t description) {
        return textOf(errors::kValueTooLong, [&] {
            processes.addProcess(
                {"", std::string(name, 'n'), 71, std::string(description, 'd'), std::string(rule, 'r')});
        });
    };
    EXPECT_EQ(tooLong(501, 0, 0), "The name has 501 characters; it cannot have more than 500.");
    EXPECT_EQ(tooLong(500, 251, 0), "The rule has 251 characters; it cannot have more than 250.");
    EXPECT_EQ(tooLong(1, 250, 1001), "The description has 1001 characters; it cannot have more than 1000.");
}

TEST_F(FailureTextsTest, AMissingFolderIsNamed) {
    const std::string path = folder.file("no such folder/base.db");
    const std::string text = textOf(errors::kKnowledgeBase, [&] { KnowledgeBase::open(path); });
    EXPECT_THAT(text, HasSubstr("'" + path + "' cannot be opened: there is no folder '" +
                                folder.file("no such folder") + "'"));
    EXPECT_THAT(text, HasSubstr("make the folder first"));
}

}  // namespace
}  // namespace norvex
