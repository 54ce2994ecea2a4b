#pragma once

#include "formatter/structured/structured.h"
#include "settings/editor_config.h"

#include <optional>
#include <string>

namespace corvelle::settings {

/// The structured layout for a module in the IDE, if the .editorconfig files above the module's file say
/// `corvelle_layout = structured`; none if they do not. Its unit is always of blanks, since the IDE keeps no
/// tabs. Throws SettingsError where what they say cannot be followed or found out.
std::optional<formatter::structured::StructuredOptions> structuredInIde(const std::string& modulePath,
                                                                        EditorConfig::Read read);

} // namespace corvelle::settings
