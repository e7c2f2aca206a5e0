#include "win32/ports/LinkedFonts.h"

#include <array>
#include <cstddef>

namespace pellmark {

namespace {

constexpr wchar_t kLinks[] = L"Software\\Microsoft\\Windows NT\\CurrentVersion\\FontLink\\SystemLink";
constexpr WORD kMissing = 0xFFFF;

/// The font that writes in place of the one that was asked for: links are kept by its name. "" for a font
/// that the printer brings along.
std::wstring familyChosenOn(HDC context) {
    std::vector<std::byte> room(::GetOutlineTextMetricsW(context, 0, nullptr));
    if (room.size() < sizeof(OUTLINETEXTMETRICW)) return {};
    auto* metrics = reinterpret_cast<OUTLINETEXTMETRICW*>(room.data());
    if (::GetOutlineTextMetricsW(context, static_cast<UINT>(room.size()), metrics) == 0) return {};
    const auto offset = reinterpret_cast<std::size_t>(metrics->otmpFamilyName);  // from the beginning
    return offset < room.size() ? reinterpret_cast<const wchar_t*>(room.data() + offset) : std::wstring();
}

/// The name of the first font that is linked to the one of this name; "" when none is. A link is the name of
/// a file and, after a comma, that of a font in it.
std::wstring firstLinkOf(const std::wstring& face) {
    std::array<wchar_t, 1024> links{};
    DWORD bytes = sizeof links - 2 * sizeof(wchar_t);
    if (::RegGetValueW(HKEY_LOCAL_MACHINE, kLinks, face.c_str(), RRF_RT_REG_MULTI_SZ, nullptr, links.data(),
                       &bytes) != ERROR_SUCCESS)
        return {};
    const std::wstring_view first = links.data();
    const std::size_t comma = first.find(L',');
    if (comma == std::wstring_view::npos) return {};
    const std::wstring_view name = first.substr(comma + 1);
    return std::wstring(name.substr(0, name.find(L',')));
}

}  // namespace

HFONT LinkedFonts::linkedTo(HDC context, HFONT font) {
    const auto known = linked_.find(font);
    if (known != linked_.end()) return known->second.get();
    FontHandle& made = linked_[font];
    const std::wstring name = firstLinkOf(familyChosenOn(context));
    LOGFONTW description{};
    if (name.empty() || name.size() >= LF_FACESIZE ||
        ::GetObjectW(font, sizeof description, &description) == 0)
        return nullptr;
    description.lfFaceName[name.copy(description.lfFaceName, LF_FACESIZE - 1)] = L'\0';
    made.reset(::CreateFontIndirectW(&description));
    return made.get();
}

std::vector<FontRun> LinkedFonts::runsOf(HDC context, std::wstring_view text) {
    const auto font = static_cast<HFONT>(::GetCurrentObject(context, OBJ_FONT));
    std::vector<WORD> glyphs(text.size());
    const DWORD found = ::GetGlyphIndicesW(context, text.data(), static_cast<int>(text.size()), glyphs.data(),
                                           GGI_MARK_NONEXISTING_GLYPHS);
    if (found == GDI_ERROR) return {{text, font}};
    std::vector<FontRun> runs;
    for (std::size_t from = 0; from < text.size();) {
        const bool isMissing = glyphs[from] == kMissing;
        std::size_t to = from;
        while (to < text.size() && (glyphs[to] == kMissing) == isMissing)
            ++to;
        const HFONT linked = isMissing ? linkedTo(context, font) : nullptr;
        runs.push_back({text.substr(from, to - from), linked != nullptr ? linked : font});
        from = to;
    }
    return runs;
}

}  // namespace pellmark
