#pragma once

#include <string_view>

// Whether a file may be replaced by one of the indexer's: it is empty, or holds nothing but what the indexer
// writes there itself. The functions look at the file's bytes; lines may end in any way.
namespace corvelle::indexer {

/// A header file: the default topic's line first, and no line but those of our names with their numbers.
bool isHeaderOfOurs(std::string_view bytes);
/// A configuration file: nothing but lines of designers and of controls.
bool isConfigurationOfOurs(std::string_view bytes);
/// A text pop-up file: its first topic is the default one. What its topics say is the user's.
bool isTextFileOfOurs(std::string_view bytes);
/// The mapping module of that name: nothing but constants and loading procedures.
bool isMappingModuleOfOurs(std::string_view bytes, std::string_view name);
/// A report, by its first line.
bool isReportOfOurs(std::string_view bytes);
/// An indexer project file, by the key of its first line.
bool isProjectFileOfOurs(std::string_view bytes);

} // namespace corvelle::indexer
