#pragma once

#include "settings/glob.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::settings {

/// What one line of an .editorconfig sets.
struct Pair {
    std::string key;        ///< in lower case
    std::string value;      ///< as written, without blanks at its ends
    std::uint32_t line = 0; ///< from 1
};

struct Section {
    Glob glob;
    std::vector<Pair> pairs;
};

/// The contents of one .editorconfig.
struct EditorConfigFile {
    bool root = false; ///< no file of a folder above holds
    std::vector<Section> sections;
};

inline constexpr std::size_t longestSectionName = 4096, longestKey = 1024, longestValue = 4096;

/// Reads a file's bytes. Lines that are neither a section's name, a pair nor a comment count for nothing, nor
/// do pairs before the first section but root, nor what is longer than allowed. A comment is a whole line: in
/// a value # and ; are characters like others.
EditorConfigFile readEditorConfig(std::string_view bytes);

} // namespace corvelle::settings
