#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

// The paths of an index's files, as text.
namespace corvelle::indexer {

/// Whether the file's length can be taken.
bool fileExists(std::string_view path);

/// The path up to and including its last backslash; empty when it has none.
std::string_view getFilePath(std::string_view path);

/// The system's call for a path's short form: fills the buffer of that size with text that ends in NUL. On
/// Windows that is base::shortPathName.
using ShortPathCall = std::function<void(const char* path, char* buffer, std::uint32_t size)>;

/// The short (8.3) form of the path, as the call gives it into a buffer of 128 characters.
std::string getShortPath(std::string_view path, const ShortPathCall& getShortPathName);

} // namespace corvelle::indexer
