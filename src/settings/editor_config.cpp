#include "settings/editor_config.h"

#include "base/file.h"
#include "base/file_error.h"
#include "base/line_reader.h"
#include "base/paths.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

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

namespace {

bool standsOnVolume([[maybe_unused]] const std::string& path) {
#ifdef _WIN32
    constexpr auto slashesOfShare = 4; // "//server/share/.editorconfig"
    return path.front() != '/' || std::count(path.begin(), path.end(), '/') >= slashesOfShare;
#else
    return true;
#endif
}

} // namespace

std::string absolutePath(const std::filesystem::path& path) {
    std::string text = base::textOf(std::filesystem::absolute(path).lexically_normal());
#ifdef _WIN32
    std::replace(text.begin(), text.end(), '\\', '/');
#endif
    return text;
}

std::optional<std::string> readIfThere(const std::string& path) {
    if (!standsOnVolume(path)) return std::nullopt;
    try {
        return base::readFile(base::pathOf(path));
    } catch (const base::FileError& error) {
        const auto is = [&error](base::ErrorNumber number) {
            return error.number() == static_cast<std::int32_t>(number);
        };
        if (is(base::ErrorNumber::FileNotFound) || is(base::ErrorNumber::PathNotFound)) return std::nullopt;
        throw;
    }
}

namespace {

constexpr std::size_t largestFile = std::size_t{1} << 20;

// The folder that a file or folder stands in, without a slash at its end: "" is the root; none for what
// stands nowhere.
std::optional<std::string_view> folderOf(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string_view::npos) return std::nullopt;
    return path.substr(0, slash);
}

bool hasKnownWords(std::string_view key) {
    constexpr std::array<std::string_view, 6> keys{"indent_style",         "indent_size",
                                                   "end_of_line",          "charset",
                                                   "insert_final_newline", "trim_trailing_whitespace"};
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

void addWhatFollows(Properties& properties) {
    const auto style = properties.find("indent_style");
    auto size = properties.find("indent_size");
    auto width = properties.find("tab_width");
    const auto none = properties.end();
    if (size == none && style != none && style->second.value == "tab") {
        size = properties.emplace("indent_size", style->second).first;
    }
    if (size == none) return;
    if (size->second.value != "tab") {
        if (width == none) properties.emplace("tab_width", size->second);
    } else if (width != none) {
        size->second = width->second;
    }
}

} // namespace

std::shared_ptr<EditorConfig::Folder> EditorConfig::lookInto(const std::string& path) const {
    auto found = std::make_shared<Folder>();
    found->path = path + "/.editorconfig";
    try {
        const std::optional<std::string> bytes = read_(found->path);
        if (!bytes) return found;
        std::string problem;
        if (bytes->size() > largestFile) problem = "more than a megabyte";
        if (bytes->find('\0') != std::string::npos) problem = "a binary file";
        if (const auto what = base::whatInsteadOfText(*bytes); !what.empty()) problem = what;
        if (!problem.empty()) {
            found->problem.emplace(found->path, 0, "this is " + problem + ", not a settings file");
            return found;
        }
        found->file = readEditorConfig(*bytes);
    } catch (const std::exception& error) {
        found->problem.emplace(found->path, 0, base::reasonOf(error));
    }
    return found;
}

std::shared_ptr<const EditorConfig::Folder> EditorConfig::folder(const std::string& path) {
    const std::lock_guard lock(mutex_);
    std::vector<std::shared_ptr<Folder>> made; // nearest first
    std::vector<std::string> paths;
    std::shared_ptr<const Folder> above;
    for (std::optional<std::string_view> next = path; next; next = folderOf(*next)) {
        std::string current(*next);
        if (const auto known = folders_.find(current); known != folders_.end()) {
            above = known->second;
            break;
        }
        made.push_back(lookInto(current));
        paths.push_back(std::move(current));
        if (made.back()->problem || (made.back()->file && made.back()->file->root)) break;
    }
    for (std::size_t i = made.size(); i-- > 0;) {
        // A folder without a file is as the one above it.
        if (!made[i]->file && !made[i]->problem) {
            folders_[paths[i]] = above;
            continue;
        }
        made[i]->above = above;
        above = made[i];
        folders_[paths[i]] = above;
    }
    return above;
}

Properties EditorConfig::propertiesOf(std::string_view path) {
    Properties properties;
    const auto parent = folderOf(path);
    if (!parent) return properties;
    const std::shared_ptr<const Folder> nearest = folder(std::string(*parent));
    std::vector<const Folder*> chain;
    for (const Folder* at = nearest.get(); at; at = at->above.get()) chain.push_back(at);
    for (std::size_t i = chain.size(); i-- > 0;) {
        const Folder& at = *chain[i];
        if (at.problem) throw SettingsError(*at.problem);
        const std::string_view relative = path.substr(at.path.rfind('/') + 1);
        for (const Section& section : at.file->sections) {
            if (!section.glob.matches(relative)) continue;
            for (const Pair& pair : section.pairs) {
                if (base::equalIgnoringCase(pair.value, "unset")) {
                    properties.erase(pair.key);
                    continue;
                }
                Property& property = properties[pair.key];
                property = {pair.value, at.path, pair.line};
                if (!hasKnownWords(pair.key)) continue;
                for (char& c : property.value) c = base::lower(c);
            }
        }
    }
    addWhatFollows(properties);
    return properties;
}

} // namespace corvelle::settings
