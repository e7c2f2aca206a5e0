#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "ports/FileSystem.h"

namespace pellmark::test {

/// One implementation of the file port with an empty folder to work in.
class FileSystemUnderTest {
  public:
    virtual ~FileSystemUnderTest() = default;
    virtual FileSystem& files() = 0;
    /// Without a trailing "\".
    virtual std::string folder() = 0;
    /// The folder above must exist.
    virtual void makeFolder(const std::string& path) = 0;
    virtual void setAttributes(const std::string& path, std::uint32_t attributes) = 0;
    /// Why a read-only file is writable all the same; "" where it is not.
    virtual std::string whyReadOnlyIsNotKept() { return ""; }
};

using FileSystemFactory = std::unique_ptr<FileSystemUnderTest> (*)();

class FileSystemContract : public ::testing::TestWithParam<FileSystemFactory> {
  protected:
    FileSystem& files() { return underTest_->files(); }
    std::string in(const std::string& name) { return underTest_->folder() + "\\" + name; }
    void makeFolder(const std::string& name) { underTest_->makeFolder(in(name)); }
    void setAttributes(const std::string& name, std::uint32_t attributes) {
        underTest_->setAttributes(in(name), attributes);
    }
    std::string whyReadOnlyIsNotKept() { return underTest_->whyReadOnlyIsNotKept(); }
    /// Everything in a file.
    std::string contents(const std::string& name) { return files().read(in(name), 0, 1U << 20U); }
    std::vector<std::string> listed(const std::string& pattern);

  private:
    std::unique_ptr<FileSystemUnderTest> underTest_ = GetParam()();
};

}  // namespace pellmark::test
