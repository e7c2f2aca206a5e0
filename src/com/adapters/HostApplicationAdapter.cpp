#include "com/adapters/HostApplicationAdapter.h"

#include <optional>

#include "base/Error.h"

namespace pellmark {

namespace {

/// Handles are 32 bits wide on every Windows; a negative number is one with its highest bit set.
WindowHandle handleFrom(const DispatchResult& result) {
    return static_cast<WindowHandle>(static_cast<std::intptr_t>(result.int64()));
}

VariantArg handleArgument(WindowHandle window) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(window));
}

std::optional<DispatchObject> objectFrom(const VARIANT& argument, const char* name) {
    const VariantArg plain = VariantArg::dereferenced(argument);
    switch (plain.type()) {
        case VT_EMPTY:
        case VT_NULL:
        case VT_ERROR:
            return std::nullopt;
        case VT_DISPATCH:
        case VT_UNKNOWN:
            if (plain.get().punkVal == nullptr) return std::nullopt;
            return DispatchObject::from(plain.get(), name);
        default:
            throw Error(errors::kTypeMismatch, name,
                        std::string("The argument for ") + name + " is not an object.");
    }
}

}  // namespace

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

std::shared_ptr<HostApplication> hostApplicationFrom(const VARIANT& argument) {
    auto host = objectFrom(argument, "NvxApplication");
    return host ? std::make_shared<HostApplicationAdapter>(std::move(*host)) : nullptr;
}

WindowHandle ownerWindowFrom(const VARIANT& argument) {
    auto owner = objectFrom(argument, "OwnerForm");
    return owner ? handleFrom(owner->call("hWnd")) : 0;
}

}  // namespace pellmark
