#include "ports/ClipboardHtml.h"

#include <gtest/gtest.h>

namespace pellmark::test {
namespace {

std::size_t offset(const std::string& html, const std::string& name) {
    return static_cast<std::size_t>(
        std::stoul(html.substr(html.find("\r\n" + name + ":") + name.size() + 3)));
}

std::string part(const std::string& html, const std::string& begin, const std::string& end) {
    return html.substr(offset(html, begin), offset(html, end) - offset(html, begin));
}

TEST(ClipboardHtmlTest, TheOffsetsCountBytesWhateverTheFragmentHolds) {
    for (const std::string fragment : {"", "<b>M8</b>", "\xC3\x98 8 \xF0\x9F\x94\xA9 \xE5\xB7\xA5"}) {
        const std::string html = clipboardHtml(fragment);
        EXPECT_EQ(part(html, "StartFragment", "EndFragment"), fragment);
        const std::string page = part(html, "StartHTML", "EndHTML");
        EXPECT_TRUE(page.starts_with("<html><body>")) << page;
        EXPECT_TRUE(page.ends_with("</body></html>")) << page;
        EXPECT_EQ(offset(html, "EndHTML"), html.size());
    }
}

TEST(ClipboardHtmlTest, CommentsMarkTheFragmentForProgramsThatDoNotCount) {
    EXPECT_NE(clipboardHtml("x").find("<!--StartFragment-->x<!--EndFragment-->"), std::string::npos);
}

TEST(ClipboardHtmlTest, TheHeadingBeginsWithItsVersion) {
    EXPECT_TRUE(clipboardHtml("x").starts_with("Version:0.9\r\nStartHTML:"));
}

TEST(ClipboardHtmlTest, AFragmentOfAMillionBytesMovesNothing) {
    const std::string fragment(1'000'000, 'x');
    EXPECT_EQ(part(clipboardHtml(fragment), "StartFragment", "EndFragment"), fragment);
}

}  // namespace
}  // namespace pellmark::test
