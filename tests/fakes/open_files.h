#pragma once

#include <cstddef>
#include <filesystem>

namespace corvelle::test {

/// How many files this process has open; where the system does not tell, how many of the folder's are.
std::ptrdiff_t openFiles(const std::filesystem::path& folder);

} // namespace corvelle::test
