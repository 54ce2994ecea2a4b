#pragma once

#include "indexer/stable/numbering.h"

#include <string>

// The files of an index, as bytes.
namespace corvelle::indexer::stable {

/// The header: a `#define` line for each name, and the memory.
std::string headerOf(const Numbering& numbering, const Memory& memory);

/// The configuration file. A designer's own entry has the designer's name there.
std::string configurationOf(const Numbering& numbering);

/// What a control is called in the configuration file.
const std::string& nameInConfiguration(const NumberedDesigner& designer, const NumberedControl& control);

} // namespace corvelle::indexer::stable
