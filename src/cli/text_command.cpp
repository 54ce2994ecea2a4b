#include "cli/text_command.h"

#include "base/binary_check.h"
#include "base/file.h"
#include "base/path_text.h"
#include "base/text.h"
#include "cli/exit_status.h"
#include "cli/line_ends.h"
#include "cli/standard_streams.h"
#include "indexer/entry_edits.h"
#include "indexer/existing_index.h"
#include "indexer/index_files.h"
#include "indexer/text_file.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>

namespace corvelle::cli {

namespace {

using indexer::EntryState;
using indexer::HelpIndex;

// Ends the command.
struct Refusal {
    ExitStatus status;
    std::string message;
};

std::string readText(const std::string& path) {
    try {
        auto bytes = base::readFile(base::pathOf(path));
        const auto what = base::whatInsteadOfText(bytes);
        if (!what.empty()) throw Refusal{exitFailed, path + ": this is " + std::string(what)};
        return bytes;
    } catch (const base::FileError& error) {
        throw Refusal{exitFailed, path + ": " + error.description()};
    }
}

// A tab would begin another column.
std::string onOneLine(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n' && i > 0 && text[i - 1] == '\r') continue;
        result += text[i] == '\r' || text[i] == '\n' || text[i] == '\t' ? ' ' : text[i];
    }
    return std::string(base::trimSpaces(result));
}

// "cmd#2" is the second control named "cmd"; without a number it is the first one.
struct ControlName {
    std::string_view name;
    std::size_t occurrence = 1;

    explicit ControlName(std::string_view given) : name(given) {
        const auto mark = given.rfind('#');
        if (mark == std::string_view::npos) return;
        const char* const end = given.data() + given.size();
        std::size_t number = 0;
        const auto [rest, error] = std::from_chars(given.data() + mark + 1, end, number);
        if (error != std::errc() || rest != end) return;
        name = given.substr(0, mark);
        occurrence = number;
    }
};

class TextRun {
  public:
    explicit TextRun(const TextSettings& settings) : settings_(settings) {}

    ExitStatus run() {
        open();
        if (settings_.action == TextAction::List)
            list();
        else
            edit();
        if (!std::cout.flush()) throw standardOutputFailed();
        return exitDone;
    }

  private:
    void open() {
        if (!indexer::readProjectInfo(readText(settings_.project), info_))
            throw Refusal{exitLookAt, std::string(indexer::invalidProjectFile)};
        info_ = indexer::withPathsFound(info_, settings_.project);
        if (!indexer::indexFilesExist(info_)) throw Refusal{exitLookAt, indexer::indexFilesMissing().text};
        index_ = indexer::readMappings(readText(info_[indexer::slot::configuration])).index;
        indexer::readTextEntries(readText(info_[indexer::slot::text]), index_, indexer::LastDefault::Read);
    }

    // Not through std::cout, which locks itself for each piece.
    void list() const {
        const std::filesystem::path name = "standard output";
        base::FileWriter out(1, name);
        std::string line;
        try {
            for (std::size_t i = 1; i <= index_.count(); ++i) {
                const auto& entry = index_.entries[i];
                if (entry.DsrIndex == 0) continue; // of no designer: no control
                line = index_.designers[static_cast<std::size_t>(entry.DsrIndex) - 1];
                line.append(1, '\t').append(entry.CtlName).append(1, '\t').append(entry.CtlClass);
                line.append(1, '\t').append(entry.IDHName).append(1, '\t');
                line.append(onOneLine(indexer::shownText(index_, i))) += '\n';
                out.write(line);
            }
            out.flush();
        } catch (const base::FileError&) {
            throw standardOutputFailed();
        }
    }

    static Refusal standardOutputFailed() { return {exitFailed, "standard output: could not be written"}; }

    void edit() {
        const auto entry = findControl();
        switch (settings_.action) {
        case TextAction::Set:
            setText(entry);
            break;
        case TextAction::Default:
            indexer::setDefault(index_, entry);
            break;
        case TextAction::Delete:
            indexer::deleteEntry(index_, entry);
            break;
        case TextAction::List:
            return;
        }
        save();
    }

    std::size_t findControl() const {
        const auto& designers = index_.designers;
        const auto designer = std::find_if(designers.begin(), designers.end(), [&](const std::string& name) {
            return base::equalIgnoringCase(name, settings_.designer);
        });
        if (designer == designers.end())
            throw Refusal{exitLookAt, settings_.designer + ": the index has no such designer"};
        const ControlName wanted(settings_.control);
        std::size_t met = 0;
        for (const auto entry :
             indexer::entriesOf(index_, static_cast<std::int32_t>(designer - designers.begin()) + 1)) {
            if (!base::equalIgnoringCase(index_.entries[entry].CtlName, wanted.name)) continue;
            if (++met == wanted.occurrence) return entry;
        }
        throw Refusal{exitLookAt, settings_.control + ": " + *designer + " has no such control"};
    }

    void setText(std::size_t entry) {
        const auto refuse = [this](const char* reason) {
            throw Refusal{exitLookAt, settings_.control + ": " + reason};
        };
        const auto state = indexer::stateOf(index_.entries[entry]);
        if (state == EntryState::DefaultText) refuse("the control shows the default text");
        if (state == EntryState::Deleted) refuse("the control is deleted from the index");
        const auto text = withFileLineEnds(settings_.text);
        if (indexer::holdsTopicLine(text))
            refuse("a line of the text that begins with .topic would begin another topic");
        indexer::UpdateInfo(index_, static_cast<std::int32_t>(entry), text);
    }

    void save() {
        outliveReaders(); // half a saving is not what they wanted
        const bool mappingsToo = settings_.action != TextAction::Set;
        const auto saved = indexer::saveExistingIndex(info_, index_, mappingsToo, [](std::string_view) {});
        if (!saved.texts) throw Refusal{exitFailed, info_[indexer::slot::text] + ": " + saved.message.text};
        if (!saved.indexFiles) {
            throw Refusal{exitFailed,
                          info_[indexer::slot::configuration] +
                              ": the configuration file could not be written; the texts were saved"};
        }
        std::cout << saved.message.text << '\n';
    }

    const TextSettings& settings_;
    indexer::ProjectInfo info_;
    HelpIndex index_;
};

} // namespace

int runText(const TextSettings& settings) {
    try {
        return TextRun(settings).run();
    } catch (const Refusal& refusal) {
        std::cerr << withTerminalLineEnds(refusal.message) << std::endl;
        return refusal.status;
    } catch (const base::RunTimeError& error) {
        std::cerr << settings.project << ": " << error.description() << std::endl;
        return exitFailed;
    }
}

} // namespace corvelle::cli
