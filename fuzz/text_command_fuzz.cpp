// `corvelle text` over an index that somebody else made: listing writes nothing; an edit changes what is
// listed of its control, of no other, and only the files that it says; what is written is read again.
//
// Input: files (see filesOf), of which i.icp is the indexer project; the file without a name holds the edits,
// a line each: the number of a control in the list, "set", "default" or "delete", and a text.

#include "base/text.h"
#include "captured_streams.h"
#include "cli/terminal.h"
#include "cli/text_command.h"
#include "cli/text_settings.h"
#include "indexer/index_files.h"
#include "indexer/project_info.h"
#include "indexer/replaceable.h"
#include "require.h"
#include "vocabulary.h"
#include "work_folder.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace base = corvelle::base;
namespace cli = corvelle::cli;
namespace indexer = corvelle::indexer;
using cli::TextAction;

namespace {

struct Outcome {
    int status;
    std::string out, err;
};

Outcome run(const cli::TextSettings& settings) {
    const CapturedStreams streams;
    const int status = cli::runText(settings);
    return {status, streams.out(), streams.err()};
}

// designer, control, class, name, text
using Row = std::array<std::string, 5>;

std::vector<Row> rowsOf(const std::string& list) {
    std::vector<Row> rows;
    std::istringstream stream(list);
    for (std::string line; std::getline(stream, line);) {
        auto& row = rows.emplace_back();
        std::size_t column = 0;
        for (const char c : line) {
            if (c == '\t')
                require(++column < row.size(), "a line has five columns");
            else
                row[column] += c;
        }
        require(column == 4, "a line has its columns");
    }
    return rows;
}

std::string withSingleSpaces(const std::string& text) {
    std::string result;
    for (const char c : text) {
        const char shown = c == '\r' || c == '\n' || c == '\t' ? ' ' : c;
        if (shown != ' ' || (!result.empty() && result.back() != ' ')) result += shown;
    }
    return std::string(base::trimSpaces(result));
}

std::optional<std::vector<Row>> list() {
    cli::TextSettings settings;
    settings.project = "i.icp";
    const auto before = WorkFolder::files();
    const auto outcome = run(settings);
    require(WorkFolder::files() == before, "listing writes nothing");
    require(outcome.status >= 0 && outcome.status <= 2, "the status is one");
    require((outcome.status == 0) == outcome.err.empty(), "a failure is told");
    if (outcome.status != 0) return std::nullopt;
    return rowsOf(outcome.out);
}

// Whether the index's files tell everything by names that are unique and plain.
bool isPlain(const std::vector<Row>& rows) {
    std::map<std::string, int> names;
    for (const auto& row : rows) {
        if (row[3].empty()) return false;
        if (row[3] != "IDH_AAAA" && ++names[row[3]] > 1) return false;
        for (std::size_t i = 0; i < 4; ++i) {
            if (row[i].find_first_of("\r<# \\") != std::string::npos || row[i].empty()) return false;
        }
    }
    return true;
}

void checkRows(const std::vector<Row>& before, const std::vector<Row>& after, std::size_t edited,
               const cli::TextSettings& settings) {
    std::vector<Row> wanted = before;
    if (settings.action == TextAction::Delete)
        wanted.erase(wanted.begin() + static_cast<std::ptrdiff_t>(edited));
    if (settings.action == TextAction::Default) wanted[edited][3] = "IDH_AAAA";
    if (settings.action == TextAction::Set) wanted[edited][4] = cli::shown(withSingleSpaces(settings.text));
    require(after.size() == wanted.size(), "the list has its lines");
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        for (std::size_t column = 0; column < 4; ++column)
            require(after[i][column] == wanted[i][column], "a name is kept");
        const bool getsDefault = settings.action == TextAction::Default && i == edited;
        require(getsDefault || withSingleSpaces(after[i][4]) == withSingleSpaces(wanted[i][4]),
                "a text is the one");
    }
}

cli::TextSettings editOf(const std::string& line, const std::vector<Row>& rows, std::size_t& edited) {
    cli::TextSettings settings;
    settings.project = "i.icp";
    std::istringstream words(line);
    std::string action;
    if (!(words >> edited >> action)) edited = 0;
    edited %= rows.size();
    settings.action = action == "delete"    ? TextAction::Delete
                      : action == "default" ? TextAction::Default
                                            : TextAction::Set;
    std::getline(words >> std::ws, settings.text);
    settings.designer = rows[edited][0];
    std::size_t occurrence = 0;
    for (std::size_t i = 0; i <= edited; ++i) {
        if (base::equalIgnoringCase(rows[i][0], rows[edited][0]) &&
            base::equalIgnoringCase(rows[i][1], rows[edited][1]))
            ++occurrence;
    }
    settings.control = rows[edited][1] + (occurrence > 1 ? "#" + std::to_string(occurrence) : "");
    return settings;
}

// Whether the index's files are those that an edit may write over.
bool isOfOurs(const Files& files, const indexer::ProjectInfo& info) {
    const auto &header = info[indexer::slot::header], &configuration = info[indexer::slot::configuration],
               &texts = info[indexer::slot::text];
    const auto bytesOf = [&](const std::string& name) {
        const auto file = files.find(name);
        return file == files.end() ? std::string() : file->second;
    };
    return isPath(header) && std::set<std::string>{"i.icp", header, configuration, texts}.size() == 4 &&
           indexer::isConfigurationOfOurs(bytesOf(configuration)) &&
           indexer::isTextFileOfOurs(bytesOf(texts));
}

bool everyDesignerOnce(const Files& files, const indexer::ProjectInfo& info) {
    const auto file = files.find(info[indexer::slot::configuration]);
    if (file == files.end()) return false;
    auto designers = indexer::readMappings(file->second).index.designers;
    for (auto& name : designers) name = base::upper(name);
    std::sort(designers.begin(), designers.end());
    return std::adjacent_find(designers.begin(), designers.end()) == designers.end();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const WorkFolder folder;
    const auto files = filesOf({reinterpret_cast<const char*>(data), size});
    const auto project = files.find("i.icp");
    if (project == files.end()) return 0;
    indexer::ProjectInfo info;
    indexer::readProjectInfo(project->second, info);
    const auto &configuration = info[indexer::slot::configuration], &texts = info[indexer::slot::text];
    if (!isPath(configuration) || !isPath(texts) || configuration == texts) return 0;
    WorkFolder::write(files);
    auto rows = list();

    std::istringstream edits(files.at(""));
    std::string line;
    for (int count = 0; count < 4 && rows && !rows->empty() && std::getline(edits, line); ++count) {
        const auto before = WorkFolder::files();
        std::size_t edited = 0;
        const auto settings = editOf(line, *rows, edited);
        const bool plain = isPlain(*rows) && everyDesignerOnce(before, info);
        const auto outcome = run(settings);
        const auto changed = differing(before, WorkFolder::files());
        for (const auto& name : changed) {
            require(name == texts || (name == configuration && settings.action != TextAction::Set),
                    "only the edit's files change: " + name);
        }
        require(outcome.status == 0 || changed.empty(), "what is refused changes nothing");
        auto now = list();
        require(now.has_value(), "the index can be listed");
        if (plain && outcome.status == 0) checkRows(*rows, *now, edited, settings);
        if (plain && settings.action != TextAction::Set)
            require(outcome.status == 0 || !isOfOurs(before, info), "it is done");
        rows = std::move(now);
    }
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    static const Phrases edits{"# set a text", "# set .topic x", "# set  a  b ", "# default", "# delete",
                               "@i.icp",       "@a.hcnf",        "@a.txt",       "@sub/i.icp"};
    static const auto phrases = vocabulary::together({edits, vocabulary::index, vocabulary::index});
    return mutateLines(data, size, maxSize, seed, phrases);
}
