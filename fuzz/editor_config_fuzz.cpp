// Any bytes can be read as an .editorconfig and asked about any path: each property comes from a pair of a
// section whose name matches, and the last line of the input, the path, is matched in bounded time.

#include "require.h"
#include "settings/editor_config.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace settings = corvelle::settings;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    const std::size_t split = bytes.rfind('\n');
    std::string path = "/" + bytes.substr(split + 1); // npos + 1 is 0
    path.resize(std::min<std::size_t>(path.size(), 300));
    const std::string file = bytes.substr(0, split + 1);
    const std::string folder = path.substr(0, path.rfind('/'));
    settings::EditorConfig config([&](const std::string& name) -> std::optional<std::string> {
        return name == folder + "/.editorconfig" ? std::optional(file) : std::nullopt;
    });
    try {
        const auto properties = config.propertiesOf(path);
        const auto read = settings::readEditorConfig(file);
        for (const auto& named : properties) {
            const settings::Property& property = named.second;
            require(property.path == folder + "/.editorconfig", "a property of this file");
            const bool told =
                std::any_of(read.sections.begin(), read.sections.end(), [&](const auto& section) {
                    return section.glob.matches(path.substr(folder.size() + 1)) &&
                           std::any_of(section.pairs.begin(), section.pairs.end(),
                                       [&](const auto& pair) { return pair.line == property.line; });
                });
            require(told, "a matching section that says so");
        }
    } catch (const settings::SettingsError&) {
    }
    return 0;
}
