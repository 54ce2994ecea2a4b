#include "ide/workspace/project_file.h"

#include "base/line_reader.h"
#include "base/paths.h"
#include "base/text.h"
#include "ide/workspace/path_resolver.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <system_error>
#include <unordered_map>

namespace corvelle::workspace {

void readKeyValues(std::string_view bytes,
                   const std::function<void(std::string_view key, std::string_view value)>& take) {
    base::LineReader lines = base::linesOf(bytes);
    while (lines.next()) {
        const auto line = base::withoutBlanks(lines.line());
        if (!line.empty() && line[0] == '[') return;
        const auto equals = line.find('=');
        if (equals == std::string_view::npos) continue;
        take(base::withoutBlanks(line.substr(0, equals)), base::withoutBlanks(line.substr(equals + 1)));
    }
}

std::string_view withoutQuotes(std::string_view value) {
    if (value.size() < 2 || value.front() != '"' || value.back() != '"') return value;
    return value.substr(1, value.size() - 2);
}

namespace {

// The form in which two spellings of a path are the same.
std::string folded(std::string_view path) {
    std::string result = base::upper(path);
    std::replace(result.begin(), result.end(), '/', '\\');
    return result;
}

} // namespace

GroupFile::GroupFile(std::string_view bytes) {
    std::unordered_map<std::string, std::size_t> known;
    readKeyValues(bytes, [&](std::string_view key, std::string_view value) {
        const bool isStartup = base::equalIgnoringCase(key, "StartupProject");
        if (!isStartup && !base::equalIgnoringCase(key, "Project")) return;
        const auto path = withoutQuotes(value);
        const auto [place, isNew] = known.try_emplace(folded(path), projects_.size());
        if (isNew) projects_.emplace_back(path);
        if (isStartup) startup_ = place->second;
    });
}

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
    return {key.type, std::string(base::withoutBlanks(value.substr(0, semicolon))),
            std::string(withoutQuotes(base::withoutBlanks(value.substr(semicolon + 1)))), 0};
}

} // namespace

ProjectFile::ProjectFile(std::string_view bytes) {
    behindReferences_ = base::linesOf(bytes).position();
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

namespace {

namespace fs = std::filesystem;

// The folder as the system knows it, so that ".." leads out of where it really is.
fs::path realFolder(const fs::path& folder) {
    std::error_code error;
    const auto named = folder.empty() ? fs::path(".") : folder;
    auto real = fs::canonical(named, error);
    return error ? fs::absolute(named, error).lexically_normal() : real;
}

bool isSameFile(const fs::path& folder, const std::string& written, const fs::path& file) {
    std::error_code ignored;
    if (const auto found = PathResolver().resolve(folder, written))
        return fs::equivalent(*found, file, ignored);
    // It may not be there yet.
    const auto path = pathInProject(folder, written);
    return base::equalIgnoringCase(base::textOf(path.filename()), base::textOf(file.filename())) &&
           realFolder(path.parent_path()) == realFolder(file.parent_path());
}

struct Place {
    std::size_t begin = 0, end = 0; // what the new line replaces, line end included
};

// Where the byte's line begins and ends. A byte order mark is no part of the first line.
Place lineAt(std::string_view bytes, std::size_t offset) {
    const auto before = bytes.substr(0, offset).rfind('\n');
    const auto end = bytes.find('\n', offset);
    return {before == std::string_view::npos ? base::linesOf(bytes).position() : before + 1,
            end == std::string_view::npos ? bytes.size() : end + 1};
}

Place placeOf(std::string_view bytes, const ProjectFile& project, const fs::path& folder,
              const fs::path& file) {
    const ProjectMember* lastModule = nullptr;
    for (const auto& member : project.members()) {
        if (member.type != ide::ComponentType::StdModule) continue;
        if (isSameFile(folder, member.path, file)) return lineAt(bytes, member.offset);
        lastModule = &member;
    }
    std::size_t behind = project.behindReferences();
    if (lastModule)
        behind = lineAt(bytes, lastModule->offset).end;
    else if (!project.members().empty())
        behind = lineAt(bytes, project.members().back().offset).end;
    return {behind, behind};
}

std::string_view newLineOf(std::string_view bytes) {
    base::LineReader lines(bytes);
    while (lines.next() && !lines.metCarriageReturn()) {
    }
    const bool onlyLineFeeds = !lines.metCarriageReturn() && bytes.find('\n') != std::string_view::npos;
    return onlyLineFeeds ? "\n" : "\r\n";
}

} // namespace

std::string writtenPath(const fs::path& folder, const fs::path& file) {
    const auto real = realFolder(file.parent_path()) / file.filename();
    const auto relative = real.lexically_relative(realFolder(folder));
    auto text = base::textOf(relative.empty() ? real : relative);
    std::replace(text.begin(), text.end(), '/', '\\');
    return text;
}

std::string withModule(std::string_view bytes, const fs::path& folder, std::string_view name,
                       const fs::path& file) {
    const auto newLine = newLineOf(bytes);
    const auto place = placeOf(bytes, ProjectFile(bytes), folder, file);
    std::string result(bytes.substr(0, place.begin));
    const auto endLine = [&] {
        if (!result.empty() && result.back() != '\n') result += newLine;
    };
    if (place.begin > base::linesOf(bytes).position()) endLine(); // a byte order mark is no line
    result.append("Module=").append(name).append("; ").append(writtenPath(folder, file)).append(newLine);
    result += bytes.substr(place.end);
    endLine();
    return result;
}

std::string withHelpFile(std::string_view bytes, std::string_view name) {
    std::vector<std::string_view> values;
    std::size_t behind = base::linesOf(bytes).position(), behindStartup = 0;
    readKeyValues(bytes, [&](std::string_view key, std::string_view value) {
        behind = lineAt(bytes, static_cast<std::size_t>(key.data() - bytes.data())).end;
        if (base::equalIgnoringCase(key, "Startup")) behindStartup = behind;
        if (base::equalIgnoringCase(key, "HelpFile")) values.push_back(value);
    });
    const auto quoted = '"' + std::string(name) + '"';
    std::string result;
    std::size_t kept = 0;
    for (const auto value : values) {
        const auto begin = static_cast<std::size_t>(value.data() - bytes.data());
        result.append(bytes.substr(kept, begin - kept)).append(quoted);
        kept = begin + value.size();
    }
    if (values.empty()) {
        const auto newLine = newLineOf(bytes);
        kept = behindStartup != 0 ? behindStartup : behind;
        result = bytes.substr(0, kept);
        if (kept > base::linesOf(bytes).position() && result.back() != '\n') result += newLine;
        result.append("HelpFile=").append(quoted).append(newLine);
    }
    return result.append(bytes.substr(kept));
}

} // namespace corvelle::workspace
