// A module's file through the whole of `corvelle format`: without a removal option nothing of it changes but
// the blanks and tabs of its code lines, and formatting it again changes nothing more; with one the hidden
// lines stay and the kept code lines are lines that were there. What is printed, the diff and the backup
// agree with what is written.
//
// Input: two characters of options (the first picks the ending; of the second bits 0 to 2 are the removal
// options, bit 3 is --force), a third one for the tab width; then the file.

#include "base/text.h"
#include "cli/format_job.h"
#include "ide/workspace/file_kind.h"
#include "require.h"
#include "vocabulary.h"
#include "work_folder.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace cli = corvelle::cli;
namespace ide = corvelle::ide;
using corvelle::workspace::ModuleFile;
using Fate = cli::FormatJob::Fate;

namespace {

struct Outcome {
    Fate fate;
    std::string printed;
};

std::string read(const char* path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

Outcome run(const std::string& name, const cli::FormatSettings& settings) {
    const auto type = corvelle::workspace::moduleTypeOfPath(name);
    const cli::ModuleSource source{.shownPath = name, .path = name, .type = type.value()};
    cli::FormatJob job(source, settings);
    cli::BackupNames names(settings.backupDir.value_or(""));
    job.format();
    job.chooseBackup(names);
    job.save();
    {
        const std::filesystem::path shown = "out";
        corvelle::base::FileDescriptor out = corvelle::base::openToTruncate(shown);
        corvelle::base::FileWriter writer(out.number(), shown);
        job.printMessages(writer);
    }
    require(settings.quiet || job.fate() == Fate::Unchanged || job.fate() == Fate::Rewritten ||
                !read("out").empty(),
            "a failure is told");
    {
        const std::filesystem::path shown = "out";
        corvelle::base::FileDescriptor out = corvelle::base::openToTruncate(shown);
        corvelle::base::FileWriter writer(out.number(), shown);
        job.printResult(writer);
    }
    return {job.fate(), read("out")};
}

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const auto size = std::min(text.find('\n'), text.size() - 1) + 1;
        lines.push_back(text.substr(0, size));
        text.remove_prefix(size);
    }
    return lines;
}

// What a patch program makes of the file.
std::string patched(const std::string& bytes, const std::string& diff) {
    constexpr std::string_view noNewLine = "\n\\ No newline at end of file\n";
    const auto old = linesOf(bytes);
    std::string result;
    std::size_t at = 0;
    std::string_view rest = diff;
    const auto takeLine = [&] {
        const auto end = rest.find('\n');
        require(end != std::string_view::npos, "the diff's lines end");
        auto line = rest.substr(0, end + 1);
        if (rest.substr(end, noNewLine.size()) == noNewLine) {
            line.remove_suffix(1);
            rest.remove_prefix(end + noNewLine.size());
        } else {
            rest.remove_prefix(end + 1);
        }
        return line;
    };
    if (rest.empty()) return bytes;
    require(takeLine().substr(0, 4) == "--- " && takeLine().substr(0, 4) == "+++ ", "the diff has a head");
    while (!rest.empty()) {
        const std::string head(takeLine());
        require(head.substr(0, 4) == "@@ -", "a hunk has a head");
        auto begin = std::stoul(head.substr(4));
        const auto comma = head.find_first_of(", ", 4);
        std::size_t count = head[comma] == ',' ? std::stoul(head.substr(comma + 1)) : 1;
        if (count > 0) --begin;
        const auto plus = head.find('+');
        const auto newComma = head.find_first_of(", ", plus);
        std::size_t newCount = head[newComma] == ',' ? std::stoul(head.substr(newComma + 1)) : 1;
        require(begin >= at && begin + count <= old.size(), "a hunk has its place");
        for (; at < begin; ++at) result += old[at];
        while (count > 0 || newCount > 0) {
            const auto line = takeLine();
            const auto text = line.substr(1);
            if (line[0] != '+')
                require(count-- > 0 && old[at++] == text, "a hunk's old lines are the file's");
            if (line[0] == '-') continue;
            require(newCount-- > 0, "a hunk counts its new lines");
            result += text;
        }
    }
    for (; at < old.size(); ++at) result += old[at];
    return result;
}

std::string essence(std::string_view line) {
    std::string text;
    for (const char c : line) {
        if (c != '\t') text += c;
    }
    return std::string(corvelle::base::trimSpaces(text));
}

void checkParts(const ModuleFile& before, const ModuleFile& after, bool removes) {
    const auto endsAlike = [](std::string_view a, std::string_view b) {
        return a == b ||
               (b.size() > a.size() && b.substr(0, a.size()) == a && b.find_last_not_of("\r\n") < a.size());
    };
    // Where all code before them goes, hidden lines become a part of the header.
    std::string hiddenBefore(before.header()), hiddenAfter(after.header());
    for (const auto& run : before.hiddenRuns()) hiddenBefore += before.hidden(run);
    for (const auto& run : after.hiddenRuns()) hiddenAfter += after.hidden(run);
    // Where an empty line or a comment above a line "VERSION" goes, that line begins the header.
    const bool beginsHeader = removes && before.headerLines() == 0 && after.headerLines() > 0;
    require(endsAlike(hiddenBefore, hiddenAfter) || beginsHeader, "the header and hidden lines are kept");
    if (before.headerLines() == after.headerLines())
        require(before.type() == after.type() && before.name() == after.name(), "it is the same module");
    std::uint32_t from = 0;
    for (std::uint32_t i = 0; i < after.codeLineCount(); ++i, ++from) {
        const auto wanted = essence(after.codeLine(i));
        const auto isIt = [&] {
            const auto old = essence(before.codeLine(from));
            // A comment that goes takes what stands before it out of the line's end.
            return removes ? old.substr(0, wanted.size()) == wanted : old == wanted;
        };
        while (removes && from < before.codeLineCount() && !isIt()) ++from;
        require(from < before.codeLineCount() && isIt(), "a code line is one that was there");
    }
    require(removes || after.codeLineCount() == before.codeLineCount(), "no code line is lost");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) return 0;
    constexpr std::array names{"m.bas", "m.cls", "m.frm", "m.ctl", "m.pag", "m.dob", "m.dsr"};
    const std::string name = names[data[0] % names.size()];
    const std::string bytes(data + 3, data + size);
    cli::FormatSettings settings;
    settings.options.bNoEmpty = data[1] & 1;
    settings.options.bNoCmntLn = data[1] >> 1 & 1;
    settings.options.bNoAllCmnt = data[1] >> 2 & 1;
    settings.force = (data[1] >> 3 & 1) != 0;
    settings.options.mTab = data[2] % 11;
    settings.layout.layout = corvelle::settings::Layout::Classic;
    const bool removes = (data[1] & 7) != 0;

    const WorkFolder folder;
    WorkFolder::write({{name, bytes}});
    auto looking = settings;
    looking.diff = true;
    const auto diff = run(name, looking);
    looking.diff = false;
    looking.toStandardOutput = true;
    const auto shown = run(name, looking);
    require(read(name.c_str()) == bytes, "looking changes nothing");
    settings.backupDir = "backups";
    const auto written = run(name, settings);
    require(diff.fate == written.fate && shown.fate == written.fate,
            "it is the same whatever is done with it");
    const auto result = read(name.c_str());
    if (written.fate != Fate::Rewritten) {
        require(result == bytes && diff.printed.empty(), "nothing is changed");
        require(!std::filesystem::exists("backups"), "no backup is needed");
        return 0;
    }
    require(result != bytes && result == shown.printed, "what is printed is what is written");
    require(patched(bytes, diff.printed) == result, "the diff is what is changed");

    const auto type = corvelle::workspace::moduleTypeOfPath(name).value();
    const ModuleFile before(bytes, type);
    auto files = WorkFolder::files();
    files.erase("out");
    files.erase(name);
    require(files.size() == 1 && files.begin()->second == bytes, "the backup is the file as it was");

    if (settings.force) return 0;
    try {
        checkParts(before, ModuleFile(result, type), removes);
    } catch (const corvelle::workspace::HeaderNeverEnds&) {
        require(removes,
                "the header ends as before"); // what stood before a line "Begin", which is no code, has gone
    }
    if (removes) return 0;
    const auto again = run(name, settings);
    // Without its blanks it may have too many control characters for its size.
    const bool isText = corvelle::base::whatInsteadOfText(result).empty();
    require(again.fate == (isText ? Fate::Unchanged : Fate::Failed), "the second time changes nothing");
    require(read(name.c_str()) == result, "the second time writes nothing");
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    static const auto phrases = vocabulary::together({vocabulary::code, vocabulary::designer});
    return mutateLines(data, size, maxSize, seed, phrases);
}
