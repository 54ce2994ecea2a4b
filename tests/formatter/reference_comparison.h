#pragma once

#include "formatter/engine.h"
#include "formatter/scanner.h"

#include <string>
#include <vector>

// The scanner and the engine beside the reference. What is empty agrees; otherwise the text names the first
// thing in which they differ.
namespace corvelle::reference {

/// Every function that takes one line alone.
std::string differenceOfLine(const std::string& line);

/// CheckKey and the indices that it leaves, over lines one after another.
std::string differenceOfKeys(const std::vector<std::string>& lines);

/// A whole run over a module: each line of the buffer, everything told on the way, the result and the error.
/// A stop is requested before line `stopAfterLines`, unless that is negative.
std::string differenceOfRun(const std::vector<std::string>& raw, formatter::FormatOptions options,
                            long stopAfterLines);

} // namespace corvelle::reference
