// Any bytes can be read as a project's and as a group's file; what comes out is what a plain second reading
// finds.

#include "base/text.h"
#include "ide/workspace/project_file.h"
#include "require.h"
#include "vocabulary.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace base = corvelle::base;
using corvelle::ide::ComponentType;
using corvelle::ide::ProjectType;
using corvelle::workspace::GroupFile;
using corvelle::workspace::ProjectFile;

namespace {

std::string trimmed(std::string text) {
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.pop_back();
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.erase(0, 1);
    return text;
}

std::string unquoted(const std::string& text) {
    const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
    return quoted ? text.substr(1, text.size() - 2) : text;
}

// Keys in upper case, with their values.
std::vector<std::pair<std::string, std::string>> readPlainly(std::string bytes) {
    std::vector<std::pair<std::string, std::string>> result;
    if (bytes.rfind("\xEF\xBB\xBF", 0) == 0) bytes.erase(0, 3);
    while (!bytes.empty()) {
        const auto end = bytes.find('\n');
        std::string line = bytes.substr(0, end);
        if (end != std::string::npos && !line.empty() && line.back() == '\r') line.pop_back();
        bytes.erase(0, end == std::string::npos ? bytes.size() : end + 1);
        line = trimmed(line);
        if (!line.empty() && line[0] == '[') break;
        const auto equals = line.find('=');
        if (equals == std::string::npos) continue;
        result.emplace_back(base::upper(trimmed(line.substr(0, equals))), trimmed(line.substr(equals + 1)));
    }
    return result;
}

ComponentType typeOf(const std::string& key) {
    if (key == "FORM") return ComponentType::VBForm;
    if (key == "MODULE") return ComponentType::StdModule;
    if (key == "CLASS") return ComponentType::ClassModule;
    if (key == "USERCONTROL") return ComponentType::UserControl;
    if (key == "PROPERTYPAGE") return ComponentType::PropPage;
    if (key == "USERDOCUMENT") return ComponentType::DocObject;
    return key == "DESIGNER" ? ComponentType::ActiveXDesigner : ComponentType{};
}

void checkProject(const std::string& bytes) {
    const ProjectFile file(bytes);
    std::string name, title, startup;
    auto type = ProjectType::StandardExe;
    std::size_t members = 0;
    for (const auto& [key, value] : readPlainly(bytes)) {
        if (key == "NAME") name = unquoted(value);
        if (key == "TITLE") title = unquoted(value);
        if (key == "STARTUP") startup = unquoted(value);
        if (key == "TYPE") {
            const auto word = base::upper(unquoted(value));
            type = word == "OLEEXE"    ? ProjectType::ActiveXExe
                   : word == "OLEDLL"  ? ProjectType::ActiveXDll
                   : word == "CONTROL" ? ProjectType::ActiveXControl
                                       : ProjectType::StandardExe;
        }
        if (typeOf(key) == ComponentType{}) continue;
        const auto& member = file.members().at(members++);
        const auto semicolon = key == "MODULE" || key == "CLASS" ? value.find(';') : std::string::npos;
        const bool named = semicolon != std::string::npos;
        require(member.type == typeOf(key), "a member's type");
        require(member.name == (named ? trimmed(value.substr(0, semicolon)) : ""), "a member's name");
        require(member.path == unquoted(named ? trimmed(value.substr(semicolon + 1)) : value),
                "a member's path");
        require(member.offset < bytes.size() &&
                    base::startsWithIgnoringCase(bytes.substr(member.offset), key),
                "a member's place");
    }
    require(file.members().size() == members, "no member is added");
    require(file.name() == name && file.title() == title && file.startup() == startup && file.type() == type,
            "the project's own values");
    const auto behind = file.behindReferences();
    require(behind == 0 || behind == bytes.size() || bytes[behind - 1] == '\n' ||
                (behind == 3 && bytes[0] == '\xEF'),
            "a line's beginning");
}

void checkGroup(const std::string& bytes) {
    const GroupFile file(bytes);
    std::vector<std::string> known;
    std::size_t startup = 0;
    for (const auto& [key, value] : readPlainly(bytes)) {
        if (key != "PROJECT" && key != "STARTUPPROJECT") continue;
        auto folded = base::upper(unquoted(value));
        std::replace(folded.begin(), folded.end(), '/', '\\');
        const auto found = std::find(known.begin(), known.end(), folded);
        const auto index = static_cast<std::size_t>(found - known.begin());
        if (found == known.end()) {
            known.push_back(folded);
            require(file.projects().at(index) == unquoted(value), "a project's path");
        }
        if (key == "STARTUPPROJECT") startup = index;
    }
    require(file.projects().size() == known.size() && file.startup() == startup, "the group's projects");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    checkProject(bytes);
    checkGroup(bytes);
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    return mutateLines(data, size, maxSize, seed, vocabulary::project);
}
