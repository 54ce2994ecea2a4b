#pragma once

#include "indexer/help_index.h"

#include <string>
#include <string_view>
#include <vector>

// The configuration file (.hcnf) and the header file (.h): 8-bit text, lines that end in CR LF, nothing
// quoted.
namespace corvelle::indexer {

/// A configuration file as it was read.
struct Mappings {
    HelpIndex index;               ///< the texts are empty
    std::vector<std::string> rows; ///< what the list of designers shows: the names whose line is complete
};

/// Reads a configuration file; any text is accepted. A file that cannot be read to its end counts as an empty
/// one, without a word; the index notes it.
Mappings LoadMappings(std::string_view path);

/// The same, of the file's bytes.
Mappings readMappings(std::string_view bytes);

/// Writes both files anew, with numbers from 1001 on in the order of designers, then entries; entries that
/// are deleted are left out, those on the default topic get no number. False on any failure, after which the
/// old configuration file is as it was and the header file as it was or new; two paths of one file are one,
/// and so is an index that was not read.
bool SaveIndexFiles(std::string_view configurationPath, std::string_view headerPath, const HelpIndex& index);

/// Writes the configuration file alone. False on any failure, after which the old one is as it was.
bool saveConfiguration(std::string_view path, const HelpIndex& index);

} // namespace corvelle::indexer
