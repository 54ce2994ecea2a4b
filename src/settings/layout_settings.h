#pragma once

#include "formatter/structured/structured.h"
#include "settings/editor_config.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What holds for the layout of one module: by the command line's options, by the .editorconfig files above
// it, by the module itself, by default; the earlier wins.
namespace corvelle::settings {

enum class Layout : std::uint8_t { Structured, Classic, Off };

/// What the options of a run say. Of the map a value is what the key `corvelle_` + its key takes in an
/// .editorconfig.
struct LayoutOptions {
    std::optional<Layout> layout;
    std::optional<std::uint32_t> tabWidth; ///< blanks a level
    bool trim = false;
    std::optional<std::uint32_t> maxEmptyLines;
    std::map<std::string, std::string, std::less<>> style;
};

struct LayoutSettings {
    Layout layout = Layout::Structured;
    formatter::structured::StructuredOptions structured;
    std::optional<std::uint8_t> classicTab; ///< blanks a level of the classic layout
    /// Where what is said was said, by the name of the setting: an option, or a file and its line.
    std::map<std::string, std::string, std::less<>> from;
    /// Properties of the .editorconfig that nothing here follows, and where they stand.
    std::vector<std::string> notFollowed;
};

/// Puts options and properties together. `standard` is the layout where none is said. Throws SettingsError
/// for a key that begins with `corvelle_` and is unknown or has a value that it cannot have.
LayoutSettings resolveLayout(const LayoutOptions& options, const Properties& properties,
                             Layout standard = Layout::Structured);

/// Why an option's value for a style's key is wrong ("case=left: ..."); empty if it is right.
std::string wrongStyle(std::string_view key, std::string_view value);

/// The settings as lines: name, value, where it comes from. `style` is what was decided for the module; it is
/// only read for the structured layout.
std::string shownSettings(const LayoutSettings& settings, const formatter::structured::Style& style);

} // namespace corvelle::settings
