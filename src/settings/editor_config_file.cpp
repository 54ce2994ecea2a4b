#include "settings/editor_config_file.h"

#include "base/line_reader.h"
#include "base/text.h"

#include <algorithm>

namespace corvelle::settings {

namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\f\v";
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1); // npos + 1 is 0
}

} // namespace

EditorConfigFile readEditorConfig(std::string_view bytes) {
    EditorConfigFile file;
    bool inPreamble = true, inSection = false;
    for (auto lines = base::linesOf(bytes); lines.next();) {
        const std::string_view line = trimmed(lines.line());
        if (line.empty() || line.front() == '#' || line.front() == ';') continue;
        if (line.front() == '[') {
            // What follows a section that cannot be read must not count as the one's before it.
            const std::size_t end = line.rfind(']');
            inPreamble = false;
            inSection = end != std::string_view::npos && end - 1 <= longestSectionName;
            if (inSection) file.sections.push_back({Glob(line.substr(1, end - 1)), {}});
            continue;
        }
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos) continue;
        const std::string_view key = trimmed(line.substr(0, equals));
        const std::string_view value = trimmed(line.substr(equals + 1));
        if (key.empty() || key.size() > longestKey || value.size() > longestValue) continue;
        if (inSection) {
            Pair pair{std::string(key), std::string(value), lines.number()};
            for (char& c : pair.key) c = base::lower(c);
            file.sections.back().pairs.push_back(std::move(pair));
        } else if (inPreamble && base::equalIgnoringCase(key, "root")) {
            file.root = base::equalIgnoringCase(value, "true");
        }
    }
    return file;
}

} // namespace corvelle::settings
