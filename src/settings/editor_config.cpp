#include "settings/editor_config.h"

#include "base/binary_check.h"
#include "base/file_error.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace corvelle::settings {

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
