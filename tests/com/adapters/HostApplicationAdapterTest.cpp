#include "com/adapters/HostApplicationAdapter.h"

#include <gtest/gtest.h>

#include "com/adapters/ExpectError.h"
#include "com/adapters/ScriptedObject.h"
#include "com/adapters/TextServiceAdapters.h"

namespace pellmark {
namespace {

using test::expectError;
using test::objectValue;
using test::ScriptedObject;

class HostApplicationAdapterTest : public testing::Test {
  protected:
    std::shared_ptr<HostApplication> host() { return hostApplicationFrom(test::dispatchOf(script_)); }

    ComPtr<ScriptedObject> script_ = ScriptedObject::make();
};

TEST_F(HostApplicationAdapterTest, NothingIsNoHost) {
    EXPECT_EQ(hostApplicationFrom(nullptr), nullptr);
}

TEST_F(HostApplicationAdapterTest, AMissingBackslashBehindTheFolderIsAdded) {
    script_->on(L"InstallationFolder", VariantArg("C:\\Norvex"));
    EXPECT_EQ(host()->installationFolder(), "C:\\Norvex\\");
}

TEST_F(HostApplicationAdapterTest, AnExistingBackslashIsKept) {
    script_->on(L"InstallationFolder", VariantArg("C:\\Norvex\\"));
    EXPECT_EQ(host()->installationFolder(), "C:\\Norvex\\");
}

TEST_F(HostApplicationAdapterTest, TheLanguageIsAskedOfTheLanguageSettings) {
    auto settings = ScriptedObject::make();
    settings->on(L"LanguageCode", VariantArg(std::int16_t{6}));
    script_->on(L"LanguageSettings", objectValue(settings));
    EXPECT_EQ(host()->languageCode(), 6);
}

TEST_F(HostApplicationAdapterTest, AHostWithoutLanguageSettingsIsAnErrorThatNamesThem) {
    expectError(errors::kHostInterface, "NvxApplication.LanguageSettings is missing",
                [&] { host()->languageCode(); });
}

TEST_F(HostApplicationAdapterTest, AHandleWithItsHighestBitSetIsSignExtended) {
    script_->on(L"MainWindowHandle", VariantArg(std::int32_t{-16}));
    EXPECT_EQ(host()->mainWindow(), static_cast<WindowHandle>(-16));
}

TEST_F(HostApplicationAdapterTest, TheExpressionBuilderGetsTheRuleAndTheOwner) {
    auto builder = ScriptedObject::make();
    builder->on(L"Build", [](const ScriptedObject::Values& values) {
        return VariantArg(DispatchResult(values.at(0), "").text() + "!" +
                          std::to_string(DispatchResult(values.at(1), "").int32()));
    });
    script_->on(L"ExpressionBuilder", objectValue(builder));
    EXPECT_EQ(host()->buildExpression("D > 3", 42), "D > 3!42");
}

TEST_F(HostApplicationAdapterTest, NoOwnerIsNoWindow) {
    EXPECT_EQ(ownerWindowFrom(nullptr), 0U);
}

TEST_F(HostApplicationAdapterTest, AnOwnerGivesItsWindow) {
    script_->on(L"hWnd", VariantArg(1234));
    EXPECT_EQ(ownerWindowFrom(test::dispatchOf(script_)), 1234U);
}

TEST_F(HostApplicationAdapterTest, AnOwnerWithoutAWindowIsAnError) {
    expectError(errors::kHostInterface, "OwnerForm.hWnd is missing",
                [&] { ownerWindowFrom(test::dispatchOf(script_)); });
}

TEST_F(HostApplicationAdapterTest, TheTranslationServiceIsConfiguredAndAsked) {
    std::string seen;
    for (const wchar_t* name : {L"CallingApplication", L"ResourceFile", L"OutputLanguage"}) {
        script_->on(name, [&](const ScriptedObject::Values& values) {
            seen += DispatchResult(values.at(0), "").text() + ";";
            return VariantArg();
        });
    }
    script_->on(L"GetString", VariantArg("Beenden"));
    TranslationAdapter texts(DispatchObject(test::dispatchOf(script_), "Texts"));
    texts.setCallingApplication("Norvex");
    texts.setResourceFile("C:\\Pellmark.csv");
    texts.setOutputLanguage(2);
    EXPECT_EQ(texts.GetString("Exit"), "Beenden");
    EXPECT_EQ(seen, "Norvex;C:\\Pellmark.csv;2;");
}

}  // namespace
}  // namespace pellmark
