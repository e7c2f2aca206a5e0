#include "ports/ClipboardHtml.h"

namespace pellmark {

namespace {

constexpr std::string_view kBeforeFragment = "<html><body>\r\n<!--StartFragment-->";
constexpr std::string_view kBehindFragment = "<!--EndFragment-->\r\n</body></html>";

/// Every offset has the same width, so that the heading's length does not depend on what it says.
std::string line(std::string_view name, std::size_t offset) {
    constexpr std::size_t kDigits = 10;
    std::string digits = std::to_string(offset);
    if (digits.size() < kDigits) digits.insert(0, kDigits - digits.size(), '0');
    return std::string(name) + ":" + digits + "\r\n";
}

std::string heading(std::size_t page, std::size_t fragment, std::size_t length) {
    const std::size_t fragmentEnd = fragment + length;
    return "Version:0.9\r\n" + line("StartHTML", page) +
           line("EndHTML", fragmentEnd + kBehindFragment.size()) + line("StartFragment", fragment) +
           line("EndFragment", fragmentEnd);
}

}  // namespace

std::string clipboardHtml(std::string_view fragment) {
    const std::size_t page = heading(0, 0, 0).size();
    std::string html = heading(page, page + kBeforeFragment.size(), fragment.size());
    html += kBeforeFragment;
    html += fragment;
    html += kBehindFragment;
    return html;
}

}  // namespace pellmark
