#include "com/adapters/HostApplicationAdapter.h"

namespace pellmark {

namespace {

/// A negative number is a handle with its highest bit set.
WindowHandle handleFrom(const DispatchResult& result) {
    return static_cast<WindowHandle>(static_cast<std::intptr_t>(result.int64()));
}

}  // namespace

VariantArg handleArgument(WindowHandle window) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(window));
}

WindowHandle HostApplicationAdapter::mainWindow() {
    return handleFrom(host_.call("MainWindowHandle"));
}

std::string HostApplicationAdapter::installationFolder() {
    std::string folder = host_.call("InstallationFolder").text();
    if (!folder.empty() && folder.back() != '\\') folder += '\\';
    return folder;
}

std::int16_t HostApplicationAdapter::languageCode() {
    return host_.call("LanguageSettings").object().call("LanguageCode").int16();
}

std::int16_t HostApplicationAdapter::currentUnit() {
    return host_.call("CurrentUnit").int16();
}

std::string HostApplicationAdapter::buildExpression(const std::string& rule, WindowHandle owner) {
    return host_.call("ExpressionBuilder").object().call("Build", {rule, handleArgument(owner)}).text();
}

std::shared_ptr<HostApplication> hostApplicationFrom(const ComPtr<IDispatch>& argument) {
    if (!argument) return nullptr;
    return std::make_shared<HostApplicationAdapter>(DispatchObject(argument, "NvxApplication"));
}

WindowHandle ownerWindowFrom(const ComPtr<IDispatch>& argument) {
    if (!argument) return 0;
    return handleFrom(DispatchObject(argument, "OwnerForm").call("hWnd"));
}

}  // namespace pellmark
