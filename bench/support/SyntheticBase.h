#pragma once

#include <cstddef>
#include <string>

namespace bench {

/// The path of a knowledge base with that many made-up processes, of which one in ten is an orphan. It is
/// made in the folder on the first run and used again afterwards.
std::string syntheticBase(const std::string& folder, std::size_t processes);

}  // namespace bench
