#include "ide/workspace/project_file_edit.h"

#include "base/path_text.h"
#include "base/text.h"
#include "ide/workspace/key_value.h"
#include "ide/workspace/line_reader.h"
#include "ide/workspace/path_resolver.h"
#include "ide/workspace/project_file.h"

#include <algorithm>
#include <cstddef>
#include <system_error>
#include <vector>

namespace corvelle::workspace {

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
    return {before == std::string_view::npos ? linesOf(bytes).position() : before + 1,
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
    LineReader lines(bytes);
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
    if (place.begin > linesOf(bytes).position()) endLine(); // a byte order mark is no line
    result.append("Module=").append(name).append("; ").append(writtenPath(folder, file)).append(newLine);
    result += bytes.substr(place.end);
    endLine();
    return result;
}

std::string withHelpFile(std::string_view bytes, std::string_view name) {
    std::vector<std::string_view> values;
    std::size_t behind = linesOf(bytes).position(), behindStartup = 0;
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
        if (kept > linesOf(bytes).position() && result.back() != '\n') result += newLine;
        result.append("HelpFile=").append(quoted).append(newLine);
    }
    return result.append(bytes.substr(kept));
}

} // namespace corvelle::workspace
