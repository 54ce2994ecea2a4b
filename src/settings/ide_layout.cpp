#include "settings/ide_layout.h"

#include "base/paths.h"
#include "base/text.h"
#include "settings/editor_config.h"
#include "settings/layout_settings.h"

#include <utility>

namespace corvelle::settings {

namespace {

void useBlanks(formatter::structured::StyleOptions& style) {
    constexpr std::uint32_t tabOfIde = 4;
    if (style.tabs.value_or(false)) style.unit = style.unit.value_or(1) * style.tabWidth.value_or(tabOfIde);
    style.tabs = false;
}

// What else is said does not matter, right or wrong, where the add-in is to work as it always has.
bool leavesClassic(const Properties& properties) {
    const auto layout = properties.find("corvelle_layout");
    if (layout == properties.end()) return true;
    const std::string& word = layout->second.value;
    return base::equalIgnoringCase(word, "classic") || base::equalIgnoringCase(word, "off");
}

} // namespace

std::optional<formatter::structured::StructuredOptions> structuredInIde(const std::string& modulePath,
                                                                        EditorConfig::Read read) {
    EditorConfig files(std::move(read));
    const Properties properties = files.propertiesOf(absolutePath(base::pathOf(modulePath)));
    if (leavesClassic(properties)) return std::nullopt;
    LayoutSettings settings = resolveLayout({}, properties);
    useBlanks(settings.structured.style);
    return settings.structured;
}

} // namespace corvelle::settings
