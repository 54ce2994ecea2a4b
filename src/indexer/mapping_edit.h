#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Changes of one control in the bytes of a configuration file that leave every other byte as it is. The
// control's number is that of its entry, as `readMappings` gives it; one that the file has not changes
// nothing.
namespace corvelle::indexer {

/// The file with another name for the control, which may have had none.
std::string withControlNamed(std::string_view bytes, std::size_t entry, std::string_view idhName);

/// The file without the control's line.
std::string withoutControl(std::string_view bytes, std::size_t entry);

} // namespace corvelle::indexer
