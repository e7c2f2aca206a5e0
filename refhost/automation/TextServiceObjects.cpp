#include "refhost/automation/TextServiceObjects.h"

#include "refhost/automation/HostConfiguration.h"
#include "refhost/automation/Identifiers.h"
#include "refhost/texts/Languages.h"

namespace norvex {

using pellmark::VariantArg;

namespace {

/// The bytes of a file; empty when it cannot be read.
std::string bytesOf(const std::string& path) {
    constexpr DWORD kLargestTable = 16U << 20U;
    const HANDLE file = CreateFileW(pellmark::toWide(path).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return {};
    std::string bytes;
    LARGE_INTEGER size{};
    if (GetFileSizeEx(file, &size) && size.QuadPart <= kLargestTable) {
        bytes.resize(static_cast<std::size_t>(size.QuadPart));
        DWORD read = 0;
        if (!ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr)) read = 0;
        bytes.resize(read);
    }
    CloseHandle(file);
    return bytes;
}

}  // namespace

TranslationServiceObject::TranslationServiceObject()
    : AutomationObject("Norvex.TranslationService", kTranslationService),
      outputLanguage_(configuration::languageCode()) {
    property(
        1, L"CallingApplication", [this](const Arguments&) { return callingApplication_; },
        [this](const Arguments& call) { callingApplication_ = call.text(0); });
    property(
        2, L"ResourceFile", [this](const Arguments&) { return resourceFile_; },
        [this](const Arguments& call) {
            resourceFile_ = call.text(0);
            table_.reset();
        });
    property(
        3, L"OutputLanguage", [this](const Arguments&) { return outputLanguage_; },
        [this](const Arguments& call) {
            outputLanguage_ = call.int16(0);
            table_.reset();
        });
    method(4, L"GetString", 1, [this](const Arguments& call) { return table().text(call.text(0)); });
}

const TranslationTable& TranslationServiceObject::table() {
    if (!table_) table_.emplace(bytesOf(resourceFile_), outputLanguage_);
    return *table_;
}

LanguageConverterObject::LanguageConverterObject()
    : AutomationObject("Norvex.LanguageConverter", kLanguageConverter) {
    method(1, L"LocaleOf", 1, [](const Arguments& call) { return languageOf(call.int16(0)).locale; });
}

}  // namespace norvex
