#include "indexer/replaceable.h"

#include "base/paths.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "ide/required.h"
#include "indexer/help_index.h"
#include "indexer/index_files.h"
#include "indexer/project_info.h"
#include "indexer/report.h"
#include "indexer/text_file.h"
#include "indexer/text_lines.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <string>

namespace corvelle::indexer {

namespace {

std::string_view firstLine(std::string_view bytes) {
    TextLines lines(bytes);
    lines.next();
    return lines.line();
}

// Takes text off the line's start, letter case aside; whether it was there.
bool take(std::string_view& line, std::string_view text) {
    if (!base::startsWithIgnoringCase(line, text)) return false;
    line.remove_prefix(text.size());
    return true;
}

bool takeNumber(std::string_view& line) {
    const auto digits = std::min(line.find_first_not_of("0123456789"), line.size());
    line.remove_prefix(digits);
    return digits > 0;
}

// A name of the generator's; where it had no more of them there is none.
bool takeGeneratedName(std::string_view& line) {
    constexpr std::size_t size = defaultIDH.size();
    if (line.substr(0, 1) == " ") return true;
    if (line.size() < size || line.substr(0, 4) != defaultIDH.substr(0, 4)) return false;
    const auto letters = line.substr(4, size - 4);
    line.remove_prefix(size);
    return letters.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ") == std::string_view::npos;
}

bool isDefine(std::string_view line) {
    return take(line, "#define ") && takeGeneratedName(line) && take(line, "  ") && takeNumber(line) &&
           line.empty();
}

bool isMarked(std::string_view line, std::string_view mark, std::string_view endMark) {
    return base::startsWithIgnoringCase(line, mark) && line.size() >= mark.size() + endMark.size() &&
           base::equalIgnoringCase(line.substr(line.size() - endMark.size()), endMark);
}

// A line of code without its indentation, which a formatter may have changed.
std::string_view withoutIndentation(std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    while (!line.empty() && (line.back() == ' ' || line.back() == '\t')) line.remove_suffix(1);
    return line;
}

bool takeName(std::string_view& line) {
    const auto size = base::nameLength(line);
    line.remove_prefix(size);
    return size > 0;
}

bool isConstant(std::string_view line) {
    return take(line, "Public Const ") && takeGeneratedName(line) && take(line, " = ") && takeNumber(line) &&
           line.empty();
}

// The IDE writes no blank in front of the brackets.
bool isProcedureHead(std::string_view line) {
    return take(line, "Public Sub Load_HelpID_") && takeName(line) && (line == " ()" || line == "()");
}

bool isWith(std::string_view line) {
    return take(line, "With ") && takeName(line) && line.empty();
}

bool isAssignment(std::string_view line) {
    return take(line, ".") && takeName(line) && take(line, ".HelpContextID =") &&
           (line.empty() || (take(line, " ") && takeGeneratedName(line) && line.empty()));
}

bool isMappingLine(std::string_view line) {
    return isConstant(line) || isProcedureHead(line) || isWith(line) || isAssignment(line) ||
           base::equalIgnoringCase(line, "End With") || base::equalIgnoringCase(line, "End Sub");
}

// What the IDE itself may put into a new module.
bool isLineOfTheIDE(std::string_view line) {
    return line.empty() || base::equalIgnoringCase(line, "Option Explicit");
}

} // namespace

bool isHeaderOfOurs(std::string_view bytes) {
    if (bytes.empty()) return true;
    LinesInMemory first;
    writeDefine(first, defaultIDH, defaultHelpContextID);
    TextLines lines(bytes);
    lines.next();
    if (lines.line() != firstLine(first.bytes)) return false;
    while (lines.next()) {
        if (!lines.line().empty() && !isDefine(lines.line())) return false;
    }
    return true;
}

bool isConfigurationOfOurs(std::string_view bytes) {
    for (TextLines lines(bytes); lines.next();) {
        const auto line = base::trimSpaces(lines.line());
        if (!line.empty() && !isMarked(line, designerMark, designerEndMark) &&
            !isMarked(line, controlMark, controlEndMark))
            return false;
    }
    return true;
}

bool isTextFileOfOurs(std::string_view bytes) {
    return bytes.empty() || firstTopic(bytes) == defaultIDH;
}

bool isMappingModuleOfOurs(std::string_view bytes, std::string_view name) {
    if (bytes.empty()) return true;
    TextLines lines(bytes);
    lines.next();
    const auto attribute = std::string("Attribute VB_Name = \"").append(name).append("\"");
    if (!base::equalIgnoringCase(lines.line(), attribute)) return false;
    while (lines.next()) {
        const auto line = withoutIndentation(lines.line());
        if (!isLineOfTheIDE(line) && !isMappingLine(line)) return false;
    }
    return true;
}

bool isReportOfOurs(std::string_view bytes) {
    return bytes.empty() || firstLine(bytes) == reportHead;
}

bool isProjectFileOfOurs(std::string_view bytes) {
    return bytes.empty() || firstLine(bytes).substr(0, projectFileKey.size()) == projectFileKey;
}

using base::ignoringErrors;
using ide::required;

namespace {

std::vector<std::string> filesOf(const std::shared_ptr<ide::VBProject>& project) {
    std::vector<std::string> files;
    ignoringErrors([&] { files.push_back(required(project).FileName()); });
    std::shared_ptr<ide::VBComponents> components;
    std::int32_t count = 0;
    ignoringErrors([&] { components = required(project).VBComponents(); });
    ignoringErrors([&] { count = required(components).Count(); });
    for (std::int32_t i = 1; i <= count; ++i)
        ignoringErrors([&] { files.push_back(required(components->Item(i)).FileNames(1)); });
    files.erase(std::remove(files.begin(), files.end(), std::string()), files.end()); // not saved yet
    return files;
}

// The IDE keeps a component's pictures beside its file.
bool isBinaryPart(const std::filesystem::path& path, std::filesystem::path owner) {
    constexpr std::array<const char*, 5> endings{".frx", ".ctx", ".pgx", ".dox", ".dsx"};
    const auto ending = base::textOf(path.extension());
    const bool isOne = std::any_of(endings.begin(), endings.end(),
                                   [&](const char* known) { return base::equalIgnoringCase(ending, known); });
    return isOne && base::isSamePath(path, owner.replace_extension(path.extension()));
}

bool isOwn(const std::string& path, const std::vector<std::string>& files) {
    bool own = false;
    for (const auto& file : files) {
        ignoringErrors([&] {
            const auto typed = base::pathOf(path), member = base::pathOf(file);
            own = own || base::isSamePath(typed, member) || isBinaryPart(typed, member);
        });
    }
    return own;
}

} // namespace

std::optional<Message> whatForbidsPaths(const std::shared_ptr<ide::VBProject>& project,
                                        const std::vector<std::string>& paths) {
    const auto files = filesOf(project);
    for (const auto& path : paths) {
        if (!path.empty() && isOwn(path, files))
            return Message{"'" + path + "' is a file of the project itself. \rPlease choose another file.",
                           forms::box::exclamation};
    }
    return {};
}

} // namespace corvelle::indexer
