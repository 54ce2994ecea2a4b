// A module's file whose code lines are deleted, inserted and moved: the lines that it has then are the ones
// that a plain list of lines has, no hidden byte is one that was not there, and a comment more moves none.
//
// Input: the first line tells the edits; its first character picks the type of module. The file follows.

#include "ide/workspace/declarations.h"
#include "ide/workspace/edited_module.h"
#include "require.h"
#include "vocabulary.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

using corvelle::ide::ComponentType;
using corvelle::workspace::EditedModule;
using corvelle::workspace::ModuleFile;
using Lines = std::vector<std::string>;

ComponentType typeOf(std::uint8_t byte) {
    constexpr std::array types{ComponentType::StdModule, ComponentType::ClassModule, ComponentType::VBForm,
                               ComponentType::UserControl};
    return types[byte % types.size()];
}

std::string_view withoutReturns(std::string_view line) {
    while (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    return line;
}

std::string_view withoutEnd(std::string_view line) {
    if (!line.empty() && line.back() == '\n') line.remove_suffix(1);
    return withoutReturns(line);
}

// The lines of the header and the hidden lines, in order.
Lines hiddenLines(const ModuleFile& file) {
    std::string all(file.header());
    if (!all.empty() && all.back() != '\n') all += '\n';
    for (const auto& run : file.hiddenRuns()) all += file.hidden(run);
    Lines lines;
    for (std::string_view rest = all; !rest.empty();) {
        const auto size = std::min(rest.find('\n'), rest.size() - 1) + 1;
        lines.emplace_back(withoutEnd(rest.substr(0, size)));
        rest.remove_prefix(size);
    }
    return lines;
}

// A line that would be no code where it stands first, or anywhere.
bool isNoCode(std::string_view line) {
    const auto text = corvelle::base::withoutLeadingBlanks(line);
    for (const auto word : {"Begin", "Object", "VERSION", "\xEF\xBB\xBF"}) {
        if (corvelle::base::startsWithIgnoringCase(text, word)) return true;
    }
    return corvelle::workspace::readAttributeLine(line).found;
}

bool isContinued(std::string_view line) {
    while (!line.empty() && (line.back() == ' ' || line.back() == '\t')) line.remove_suffix(1);
    return !line.empty() && line.back() == '_';
}

void checkEdits(const ModuleFile& file, std::string_view edits) {
    EditedModule module(file);
    Lines wanted;
    for (std::uint32_t i = 0; i < file.codeLineCount(); ++i) wanted.emplace_back(file.codeLine(i));
    const auto place = [&](std::size_t index) { return wanted.begin() + static_cast<std::ptrdiff_t>(index); };
    for (std::size_t i = 0; i + 1 < edits.size(); i += 2) {
        const auto count = static_cast<std::uint8_t>(edits[i]),
                   where = static_cast<std::uint8_t>(edits[i + 1]);
        const auto start = where % (wanted.size() + 1);
        if (count % 2 == 0) {
            const auto end = std::min(start + count / 2 % 8, wanted.size());
            module.deleteLines(static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(end - start));
            wanted.erase(place(start), place(end));
        } else if (count % 4 == 1 && !wanted.empty()) {
            const auto line = wanted[count / 4 % wanted.size()];
            module.insertLine(static_cast<std::uint32_t>(start), line);
            wanted.insert(place(start), line);
        } else {
            constexpr std::array lines{"Sub a()", "Dim a, [End Sub]", "Type x_1", "End Sub", "",
                                       "b _",     "\tx = 1",          "End Type"};
            const auto* const line = lines[count / 4 % lines.size()];
            module.insertLine(static_cast<std::uint32_t>(start), line);
            wanted.insert(place(start), line);
        }
        require(module.lineCount() == wanted.size(), "the lines are counted");
    }
    for (std::uint32_t i = 0; i < module.lineCount(); ++i)
        require(module.line(i) == wanted[i], "a line is the one");
    if (!wanted.empty() && isNoCode(wanted.front())) return;

    const ModuleFile saved(module.bytes(), file.type());
    require(saved.codeLineCount() == wanted.size(), "no code line is lost or hidden");
    for (std::uint32_t i = 0; i < saved.codeLineCount(); ++i)
        require(withoutReturns(saved.codeLine(i)) == withoutReturns(wanted[i]), "code lines are saved");
    auto was = hiddenLines(file), is = hiddenLines(saved);
    require(std::equal(is.begin(), is.begin() + std::min<std::ptrdiff_t>(file.headerLines(), std::ssize(is)),
                       was.begin()),
            "the header is kept");
    std::sort(was.begin(), was.end());
    std::sort(is.begin(), is.end());
    require(std::includes(was.begin(), was.end(), is.begin(), is.end()), "no hidden line is new");
    const EditedModule again(saved);
    require(again.bytes() == saved.bytes(), "what is saved is kept");
}

// A comment behind a line that does not go on says nothing of the module's members.
void checkComments(const ModuleFile& file, std::string_view places) {
    constexpr std::string_view comment = "'~";
    EditedModule module(file);
    for (const char c : places) {
        const auto index = static_cast<std::uint8_t>(c) % (module.lineCount() + 1);
        if (index > 0 && isContinued(module.line(index - 1))) continue;
        module.insertLine(index, comment);
    }
    const std::size_t mark = file.bytes().rfind("\xEF\xBB\xBF", 0) == 0 ? 3 : 0; // is no part of a line
    std::string text, bytes = module.bytes().substr(mark);
    const auto newComment = std::string(comment).append(file.newLine());
    for (std::size_t at = 0; at < bytes.size();) {
        const auto size = std::min(bytes.find('\n', at), bytes.size() - 1) + 1 - at;
        if (bytes.compare(at, size, newComment) != 0) text.append(bytes, at, size);
        at += size;
    }
    std::string_view rest = text, wanted = std::string_view(file.bytes()).substr(mark);
    if (rest.size() > wanted.size() && !wanted.empty()) {
        require(rest.substr(wanted.size()).find_first_not_of("\r\n") == std::string_view::npos,
                "a line's end is new");
        rest = rest.substr(0, wanted.size());
    }
    require(rest == wanted, "comments move nothing");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(data, data + size);
    const auto end = input.find('\n');
    if (end == std::string::npos || end == 0) return 0;
    const auto edits = std::string_view(input).substr(1, end - 1);
    try {
        const ModuleFile file(input.substr(end + 1), typeOf(data[0]));
        checkEdits(file, edits);
        if (input.find("'~", end) == std::string::npos) checkComments(file, edits);
    } catch (const corvelle::workspace::HeaderNeverEnds&) {
    }
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    static const auto phrases =
        vocabulary::together({vocabulary::code, vocabulary::code, vocabulary::designer});
    return mutateLines(data, size, maxSize, seed, phrases);
}
