#include "util/ReplacingFile.h"

#include <utility>

#include "base/Error.h"

namespace pellmark {

namespace {

/// A name in the same folder, so that taking the place is no copy; nobody else's file has it.
std::string freeNameBeside(FileSystem& files, const std::string& path) {
    std::string name = path + ".tmp";
    for (int number = 1; !files.list(name).empty(); ++number)
        name = path + "." + std::to_string(number) + ".tmp";
    return name;
}

}  // namespace

ReplacingFile::ReplacingFile(FileSystem& files, std::string path)
    : files_(files), path_(std::move(path)), temporary_(freeNameBeside(files, path_)) {
    startAgain();
}

template <class Body>
void ReplacingFile::naming(Body&& body) const {
    try {
        body();
    } catch (const Error& error) {
        std::string description = error.description();
        const std::size_t at = description.find(temporary_);
        if (at != std::string::npos) description.replace(at, temporary_.size(), path_);
        throw Error(error.number(), error.source(), description);
    }
}

ReplacingFile::~ReplacingFile() {
    if (kept_) return;
    try {
        files_.remove(temporary_);
    } catch (...) {  // where the folder has gone, so has the file
    }
}

void ReplacingFile::append(std::string_view bytes) {
    naming([&] { files_.append(temporary_, bytes); });
}

void ReplacingFile::startAgain() {
    naming([&] { files_.write(temporary_, ""); });
}

void ReplacingFile::keep() {
    naming([&] { files_.replace(temporary_, path_); });
    kept_ = true;
}

}  // namespace pellmark
