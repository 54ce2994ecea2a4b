#include "ide/workspace/project_file.h"

#include "base/text.h"
#include "ide/workspace/key_value.h"
#include "ide/workspace/line_text.h"

#include <array>

namespace corvelle::workspace {

namespace {

using base::equalIgnoringCase;

struct MemberKey {
    std::string_view key;
    ide::ComponentType type;
    bool hasName; // "Name; path" in place of a path alone
};

constexpr std::array memberKeys{
    MemberKey{"Form", ide::ComponentType::VBForm, false},
    MemberKey{"Module", ide::ComponentType::StdModule, true},
    MemberKey{"Class", ide::ComponentType::ClassModule, true},
    MemberKey{"UserControl", ide::ComponentType::UserControl, false},
    MemberKey{"PropertyPage", ide::ComponentType::PropPage, false},
    MemberKey{"UserDocument", ide::ComponentType::DocObject, false},
    MemberKey{"Designer", ide::ComponentType::ActiveXDesigner, false},
};

ide::ProjectType projectType(std::string_view word) {
    if (equalIgnoringCase(word, "OleExe")) return ide::ProjectType::ActiveXExe;
    if (equalIgnoringCase(word, "OleDll")) return ide::ProjectType::ActiveXDll;
    if (equalIgnoringCase(word, "Control")) return ide::ProjectType::ActiveXControl;
    return ide::ProjectType::StandardExe;
}

ProjectMember readMember(const MemberKey& key, std::string_view value) {
    const auto semicolon = key.hasName ? value.find(';') : std::string_view::npos;
    if (semicolon == std::string_view::npos) return {key.type, "", std::string(withoutQuotes(value))};
    return {key.type, std::string(withoutBlanks(value.substr(0, semicolon))),
            std::string(withoutQuotes(withoutBlanks(value.substr(semicolon + 1))))};
}

} // namespace

ProjectFile::ProjectFile(std::string_view bytes) {
    readKeyValues(bytes, [this](std::string_view key, std::string_view value) { readLine(key, value); });
}

void ProjectFile::readLine(std::string_view key, std::string_view value) {
    for (const auto& member : memberKeys) {
        if (!equalIgnoringCase(key, member.key)) continue;
        members_.push_back(readMember(member, value));
        return;
    }
    if (equalIgnoringCase(key, "Type"))
        type_ = projectType(withoutQuotes(value));
    else if (equalIgnoringCase(key, "Name"))
        name_ = withoutQuotes(value);
    else if (equalIgnoringCase(key, "Title"))
        title_ = withoutQuotes(value);
    else if (equalIgnoringCase(key, "Startup"))
        startup_ = withoutQuotes(value);
}

} // namespace corvelle::workspace
