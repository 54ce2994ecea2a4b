#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// The exclusion list: a text file whose first line holds the names of control classes that are never indexed.
namespace corvelle::indexer {

/// Upper-case names; the first element is the empty string.
using ExcludeList = std::vector<std::string>;

/// Reads the list of a file; gives its upper bound. A file that cannot be read leaves the list as it is.
std::size_t ReadExcludeList(std::string_view path, ExcludeList& list);

/// The same, of the file's bytes.
std::size_t readExcludeList(std::string_view bytes, ExcludeList& list);

/// Whether an element equals the text, in letter case too.
bool isInList(std::string_view text, const std::vector<std::string>& list);

} // namespace corvelle::indexer
