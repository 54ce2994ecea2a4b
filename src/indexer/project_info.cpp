#include "indexer/project_info.h"

#include "base/file.h"
#include "base/paths.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "indexer/text_lines.h"

namespace corvelle::indexer {

namespace {

// By slot.
constexpr std::array<std::string_view, 7> keys{
    "VB Project Name= ", "Project File= ", "Header file= ", "Configuration File= ",
    "Text File= ",       "Module Name= ",  "Module File= ",
};

constexpr std::size_t checkedKeys = 5;
// Where the values of the unchecked lines begin: at the last character of their keys.
constexpr std::size_t moduleValueAt = 12;

} // namespace

bool ReadProjectFile(std::string_view path, ProjectInfo& info) {
    info.fill({});
    bool valid = false;
    base::ignoringErrors([&] { valid = readProjectInfo(base::readFile(base::pathOf(path)), info); });
    return valid;
}

bool readProjectInfo(std::string_view bytes, ProjectInfo& info) {
    info.fill({});
    for (TextLines lines(bytes); lines.next() && lines.number() <= keys.size() + 1;) {
        const auto line = base::trimSpaces(lines.line());
        if (lines.number() == 1) {
            if (line.substr(0, projectFileKey.size()) != projectFileKey) return false;
            continue;
        }
        const std::size_t slot = lines.number() - 2;
        if (slot < checkedKeys) {
            // The trimming has taken the last space of a key without a value.
            if (line.substr(0, keys[slot].size()) != keys[slot]) return false;
            info[slot] = line.substr(keys[slot].size());
        } else if (line.size() > moduleValueAt) {
            info[slot] = line.substr(moduleValueAt);
        }
    }
    return true;
}

std::vector<std::string> projectFileLines(std::string_view dateAndTime, const ProjectInfo& info) {
    std::vector<std::string> lines{std::string(projectFileKey).append(dateAndTime)};
    for (std::size_t i = 0; i < keys.size(); ++i) lines.push_back(std::string(keys[i]).append(info[i]));
    return lines;
}

} // namespace corvelle::indexer
