#pragma once

#include "formatter/structured/style.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvelle::settings {

/// Keys of the style by their names, which are those of the .editorconfig behind `corvelle_`. One is set by a
/// word; "auto" leaves it to the module.
struct StyleKey {
    std::string_view name;
    std::string_view values; ///< as a message lists them
    /// Sets what the value says; false if it can have no such value.
    bool (*set)(formatter::structured::StyleOptions& options, std::string_view value);
    /// What was decided.
    std::string (*value)(const formatter::structured::Style& style);
    /// How; null where the module has no vote.
    formatter::structured::Decision formatter::structured::Style::*decision;
};

extern const std::array<StyleKey, 10> styleKeys;

/// The key of that name; null if there is none.
const StyleKey* styleKey(std::string_view name);

/// A whole number of the range, in digits alone.
std::optional<std::uint32_t> numberOf(std::string_view text, std::uint32_t lowest, std::uint32_t highest);

/// Levels and tabs are at most that wide.
inline constexpr std::uint32_t widest = 16;

} // namespace corvelle::settings
