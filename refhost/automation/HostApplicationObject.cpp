#include "refhost/automation/HostApplicationObject.h"

#include "refhost/automation/ExpressionDialog.h"
#include "refhost/automation/HostConfiguration.h"
#include "refhost/automation/Identifiers.h"

namespace norvex {

using pellmark::VariantArg;

namespace {

/// Handles are 32 bits wide on every Windows, sign-extended.
HWND windowFrom(std::int32_t handle) {
    return reinterpret_cast<HWND>(static_cast<std::intptr_t>(handle));
}

std::int32_t handleOf(HWND window) {
    return static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(window));
}

class LanguageSettingsObject : public AutomationObject {
  public:
    LanguageSettingsObject() : AutomationObject("Norvex.LanguageSettings", kLanguageSettings) {
        property(
            1, L"LanguageCode", [](const Arguments&) { return configuration::languageCode(); },
            [](const Arguments& call) { configuration::setLanguageCode(call.int16(0)); });
    }
};

class ExpressionBuilderObject : public AutomationObject {
  public:
    ExpressionBuilderObject() : AutomationObject("Norvex.ExpressionBuilder", kExpressionBuilder) {
        method(1, L"Build", 2, [](const Arguments& call) {
            return ExpressionDialog(call.text(0)).show(windowFrom(call.int32(1)));
        });
    }
};

}  // namespace

HostApplicationObject::HostApplicationObject() : AutomationObject("Norvex.Application", kApplication) {
    property(
        1, L"MainWindowHandle", [this](const Arguments&) { return mainWindow(); },
        [this](const Arguments& call) { given_ = windowFrom(call.int32(0)); });
    property(2, L"InstallationFolder", [](const Arguments&) { return configuration::installationFolder(); });
    property(3, L"LanguageSettings", [](const Arguments&) { return makeObject<LanguageSettingsObject>(); });
    property(5, L"ExpressionBuilder", [](const Arguments&) { return makeObject<ExpressionBuilderObject>(); });
    // modal forms stand over, and disable, the whole top-level window
    property(6, L"hWnd",
             [this](const Arguments&) { return handleOf(GetAncestor(windowFrom(mainWindow()), GA_ROOT)); });
    method(9, L"Run", 0, [this](const Arguments&) {
        if (own_) own_->run();
        return VariantArg();
    });
    addSettings();
}

void HostApplicationObject::addSettings() {
    property(
        4, L"CurrentUnit", [](const Arguments&) { return configuration::currentUnit(); },
        [](const Arguments& call) { configuration::setCurrentUnit(call.int16(0)); });
    property(
        7, L"KnowledgeBaseFile", [](const Arguments&) { return configuration::knowledgeBaseFile(); },
        [](const Arguments& call) { configuration::setKnowledgeBaseFile(call.text(0)); });
    property(
        8, L"CurrentUser", [](const Arguments&) { return configuration::currentUser(); },
        [](const Arguments& call) { configuration::setCurrentUser(call.text(0)); });
}

std::int32_t HostApplicationObject::mainWindow() {
    if (given_ != nullptr) return handleOf(given_);
    if (!own_ || own_->handle() == nullptr) own_ = std::make_unique<HostWindow>();
    return handleOf(own_->handle());
}

}  // namespace norvex
