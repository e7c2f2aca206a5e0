#pragma once

#include <cstdint>
#include <fstream>
#include <istream>
#include <optional>
#include <string>

#include "refhost/technology/Operation.h"
#include "refhost/texts/HostError.h"

namespace norvex {

/// Reads a process file from its beginning to its end. Strictly: whatever is not as the format has it throws
/// pellmark::Error (kInvalidArgument) that names the file, the line and what is wrong there. Memory stays
/// bounded, however long the file or a line of it is.
class ProcessFileReader {
  public:
    /// `name` stands for the file in error texts. Reads as far as the number of operations.
    ProcessFileReader(std::istream& in, std::string name);

    std::int32_t count() const { return count_; }
    /// The next operation, nothing behind the last one. The last is handed out once the file has been found
    /// complete.
    std::optional<Operation> next();

  private:
    /// The next line that says something, without its comment; false at the end of the file.
    bool nextLine();
    bool readRawLine();
    void readTitle();
    void readCount();
    Operation readHead();
    void readParameter(Operation& operation);
    void expectEnd();
    [[noreturn]] void fail(Sentence reason) const;

    std::istream& in_;
    std::string name_;
    std::string line_;
    std::int64_t number_ = 0;  ///< of the line
    std::int32_t count_ = 0;
    std::int32_t done_ = 0;
    bool ended_ = false;
};

/// Opens a file for reading; throws kFileNotFound where there is none. The path is UTF-8.
std::ifstream openProcessFile(const std::string& path);

}  // namespace norvex
