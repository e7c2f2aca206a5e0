#include "refhost/technology/ProcessFileWriter.h"

#include <filesystem>
#include <fstream>
#include <ostream>

#include "refhost/technology/ProcessFileText.h"

namespace norvex {

namespace {

namespace file = processfile;
namespace unit = pellmark::unit;

const char* unitWord(std::int16_t unitCode) {
    if (unitCode == unit::kInch) return "inch";
    return unitCode == unit::kMetric ? "metric" : "none";
}

bool isWritten(const Parameter& parameter) {
    return parameter.origin != Origin::Default && !std::holds_alternative<std::monostate>(parameter.value);
}

void writeParameter(std::ostream& out, const Parameter& parameter, std::int16_t unitCode) {
    out << "  " << parameter.code() << " = ";
    if (const auto* number = std::get_if<double>(&parameter.value)) {
        out << numberText(*number);
    } else {
        out << file::quoted(std::get<std::string>(parameter.value));
    }
    out << "  # " << parameter.definition->caption;
    const std::string unitName = unitText(parameter.definition->quantity, unitCode);
    if (!unitName.empty()) out << ", " << unitName;
    out << '\n';
}

std::filesystem::path pathOf(const std::string& utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

/// A name beside the file that nothing has yet; empty when there is none.
std::filesystem::path freeNameBeside(const std::string& path) {
    constexpr int kTries = 100;
    std::error_code failure;
    for (int number = 0; number < kTries; ++number) {
        std::filesystem::path name = pathOf(path + ".part" + std::to_string(number));
        if (!std::filesystem::exists(std::filesystem::symlink_status(name, failure))) return name;
    }
    return {};
}

/// A file that is gone at the end of the scope, whatever happened.
class PartialFile {
  public:
    explicit PartialFile(std::filesystem::path path) : path_(std::move(path)) {}
    PartialFile(const PartialFile&) = delete;
    PartialFile& operator=(const PartialFile&) = delete;
    ~PartialFile() {
        std::error_code ignored;
        if (!moved_) std::filesystem::remove(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }
    bool moveTo(const std::filesystem::path& target) {
        std::error_code failure;
        std::filesystem::rename(path_, target, failure);
        moved_ = !failure;
        return moved_;
    }

  private:
    std::filesystem::path path_;
    bool moved_ = false;
};

}  // namespace

void writeProcessFile(std::ostream& out, const std::vector<const Operation*>& operations) {
    out << file::kTitle << file::kVersion << '\n' << file::kOperations << ' ' << operations.size() << '\n';
    for (const Operation* operation : operations) {
        out << '\n'
            << file::kOperation << ' ' << operation->cuttingCycleId() << ' ' << unitWord(operation->unit())
            << ' ' << file::quoted(operation->name()) << "  # " << operation->cycle().name << '\n';
        for (const Parameter& parameter : operation->parameters()) {
            if (isWritten(parameter)) writeParameter(out, parameter, operation->unit());
        }
    }
    out << '\n' << file::kEnd << '\n';
}

bool saveProcessFile(const std::string& path, const std::vector<const Operation*>& operations) {
    const std::filesystem::path target = pathOf(path);
    std::error_code failure;
    // A folder, a device or a read-only file must not be replaced, even where the system would do it.
    const auto status = std::filesystem::status(target, failure);
    const bool isThere = std::filesystem::exists(status);
    if (isThere && !std::filesystem::is_regular_file(status)) return false;
    if (isThere && !std::ofstream(target, std::ios::binary | std::ios::app)) return false;
    PartialFile partial(freeNameBeside(path));
    std::ofstream out(partial.path(), std::ios::binary | std::ios::trunc);
    writeProcessFile(out, operations);
    out.close();
    return out && partial.moveTo(target);
}

}  // namespace norvex
