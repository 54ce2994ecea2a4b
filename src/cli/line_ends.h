#pragma once

#include <string>
#include <string_view>

// Line ends between a terminal, the indexer's files and message boxes.
namespace corvelle::cli {

/// Text from the command line with the line ends of the indexer's files.
std::string withFileLineEnds(std::string_view text);

/// A message box's text, where a carriage return breaks the line, for a terminal, where none does.
std::string withTerminalLineEnds(std::string text);

/// Whether two files' lines are the same, whatever ends them.
bool isSameButLineEnds(std::string_view old, std::string_view fresh);

} // namespace corvelle::cli
