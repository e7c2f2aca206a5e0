#include "refhost/automation/HostConfiguration.h"

#include <charconv>
#include <optional>

#include "automation/Automation.h"
#include "automation/Environment.h"
#include "automation/Module.h"
#include "knowledge/Records.h"
#include "refhost/texts/Languages.h"

namespace norvex::configuration {

namespace {

constexpr const wchar_t* kKnowledgeBase = L"NORVEX_KNOWLEDGE_BASE";
constexpr const wchar_t* kUser = L"NORVEX_USER";
constexpr const wchar_t* kLanguage = L"NORVEX_LANGUAGE";
constexpr const wchar_t* kUnit = L"NORVEX_UNIT";
constexpr const wchar_t* kProcessFolder = L"NORVEX_PROCESS_FOLDER";
constexpr const wchar_t* kConfigKey = L"Software\\Orvane\\Norvex\\Config";

void setEnvironment(const wchar_t* name, const std::string& value) {
    SetEnvironmentVariableW(name, value.empty() ? nullptr : pellmark::toWide(value).c_str());
}

std::string registryText(const wchar_t* value) {
    DWORD bytes = 0;
    constexpr DWORD kText = RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ;
    if (RegGetValueW(HKEY_CURRENT_USER, kConfigKey, value, kText, nullptr, nullptr, &bytes) != ERROR_SUCCESS)
        return {};
    std::wstring text(bytes / sizeof(wchar_t) + 1, L'\0');
    bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    if (RegGetValueW(HKEY_CURRENT_USER, kConfigKey, value, kText, nullptr, text.data(), &bytes) !=
        ERROR_SUCCESS) {
        return {};
    }
    text.resize(text.find(L'\0'));
    return pellmark::fromWide(text);
}

std::optional<std::int16_t> numberFrom(const std::string& text) {
    std::int16_t number = 0;
    const auto [end, code] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (code != std::errc() || end != text.data() + text.size() || text.empty()) return std::nullopt;
    return number;
}

std::optional<std::int16_t> registryNumber(const wchar_t* value) {
    DWORD number = 0;
    DWORD bytes = sizeof(number);
    if (RegGetValueW(HKEY_CURRENT_USER, kConfigKey, value, RRF_RT_REG_DWORD, nullptr, &number, &bytes) ==
        ERROR_SUCCESS) {
        return static_cast<std::int16_t>(number);
    }
    return numberFrom(registryText(value));
}

}  // namespace

std::string knowledgeBaseFile() {
    std::string path = pellmark::environmentText(kKnowledgeBase);
    if (path.empty()) path = registryText(L"KnowledgeBase");
    return path.empty() ? defaultKnowledgeBaseFile() : path;
}

std::string defaultKnowledgeBaseFile() {
    return pellmark::environmentText(L"LOCALAPPDATA") + "\\Norvex\\knowledge.db";
}

void setKnowledgeBaseFile(const std::string& path) {
    setEnvironment(kKnowledgeBase, path);
}

std::string currentUser() {
    const std::string name = pellmark::environmentText(kUser);
    return name.empty() ? "Administrator" : name;
}

void setCurrentUser(const std::string& name) {
    setEnvironment(kUser, name);
}

std::int16_t languageCode() {
    const auto chosen = numberFrom(pellmark::environmentText(kLanguage));
    return chosen ? *chosen : registryNumber(L"LanguageOption").value_or(kEnglish);
}

void setLanguageCode(std::int16_t code) {
    setEnvironment(kLanguage, std::to_string(code));
}

std::int16_t currentUnit() {
    return numberFrom(pellmark::environmentText(kUnit)).value_or(pellmark::unit::kMetric);
}

void setCurrentUnit(std::int16_t unit) {
    setEnvironment(kUnit, std::to_string(unit));
}

std::string installationFolder() {
    const std::wstring path = pellmark::module::path();
    return pellmark::fromWide(path.substr(0, path.find_last_of(L'\\') + 1));
}

HostTexts texts() {
    const std::wstring path = pellmark::module::path();
    return {path.substr(0, path.find_last_of(L'\\')), languageCode()};
}

std::string processFolder() {
    std::string folder = pellmark::environmentText(kProcessFolder);
    if (folder.empty()) folder = pellmark::environmentText(L"USERPROFILE") + "\\Documents\\Norvex";
    if (folder.ends_with('\\')) folder.pop_back();
    makeFolderOf(folder + "\\");
    return folder;
}

void makeFolderOf(const std::string& path) {
    std::wstring folder = pellmark::toWide(path);
    for (std::size_t at = folder.find(L'\\'); at != std::wstring::npos; at = folder.find(L'\\', at + 1)) {
        CreateDirectoryW(folder.substr(0, at).c_str(), nullptr);
    }
}

}  // namespace norvex::configuration
