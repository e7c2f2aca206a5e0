#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "base/Guid.h"

namespace pellmark::test {

namespace {

std::filesystem::path pathOf(const std::string& utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
    const auto folder = std::filesystem::temp_directory_path() / ("pellmark" + Guid::random().text());
    std::filesystem::create_directories(folder);
    const std::u8string utf8 = folder.u8string();
    path_.assign(utf8.begin(), utf8.end());
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(pathOf(path_), ignored);
}

std::string TemporaryFolder::file(const std::string& name) const {
    const std::u8string utf8 = (pathOf(path_) / pathOf(name)).u8string();
    return {utf8.begin(), utf8.end()};
}

std::string readFile(const std::string& path) {
    std::ifstream stream(pathOf(path), std::ios::binary);
    EXPECT_TRUE(stream.good()) << path;
    return {std::istreambuf_iterator<char>(stream), {}};
}

void writeFile(const std::string& path, const std::string& bytes) {
    std::ofstream stream(pathOf(path), std::ios::binary | std::ios::trunc);
    stream << bytes;
    EXPECT_TRUE(stream.good()) << path;
}

}  // namespace pellmark::test
