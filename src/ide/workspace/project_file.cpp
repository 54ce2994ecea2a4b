#include "ide/workspace/project_file.h"

#include "base/text.h"
#include "ide/workspace/key_value.h"
#include "ide/workspace/line_reader.h"
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
    if (semicolon == std::string_view::npos) return {key.type, "", std::string(withoutQuotes(value)), 0};
    return {key.type, std::string(withoutBlanks(value.substr(0, semicolon))),
            std::string(withoutQuotes(withoutBlanks(value.substr(semicolon + 1)))), 0};
}

} // namespace

ProjectFile::ProjectFile(std::string_view bytes) {
    behindReferences_ = linesOf(bytes).position();
    readKeyValues(bytes, [&](std::string_view key, std::string_view value) { readLine(bytes, key, value); });
}

void ProjectFile::readLine(std::string_view bytes, std::string_view key, std::string_view value) {
    for (const auto& member : memberKeys) {
        if (!equalIgnoringCase(key, member.key)) continue;
        members_.push_back(readMember(member, value));
        members_.back().offset = static_cast<std::size_t>(key.data() - bytes.data());
        return;
    }
    for (const std::string_view first : {"Type", "Reference", "Object"}) {
        if (!equalIgnoringCase(key, first)) continue;
        const auto end = bytes.find('\n', static_cast<std::size_t>(key.data() - bytes.data()));
        behindReferences_ = end == std::string_view::npos ? bytes.size() : end + 1;
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
