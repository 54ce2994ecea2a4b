#include "cli/text_command.h"

#include "base/file.h"
#include "base/folder_lock.h"
#include "base/paths.h"
#include "base/text.h"
#include "cli/edited_file.h"
#include "cli/exit_status.h"
#include "cli/interrupted_changes.h"
#include "cli/terminal.h"
#include "cli/text_table.h"
#include "indexer/entry_edits.h"
#include "indexer/existing_index.h"
#include "indexer/index_files.h"
#include "indexer/replaceable.h"
#include "indexer/text_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::cli {

namespace {

using indexer::EntryState;
using indexer::HelpIndex;

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
        if (!indexer::readProjectInfo(readText(settings_.project), info_))
            throw Refusal{exitLookAt, std::string(indexer::invalidProjectFile)};
        info_ = indexer::withPathsFound(info_, settings_.project);
        auto status = exitDone;
        if (!writesIndex(settings_.action)) {
            read();
            if (settings_.action == TextAction::List)
                list();
            else
                status = TextTable(settings_, info_, configuration_, texts_).run();
        } else {
            // Held until the files are written.
            const base::FolderLock lock(indexFiles(), settings_.longestWait);
            completeInterruptedChanges(indexFiles());
            read();
            requireFilesOfTheirOwn();
            if (isOfOneControl(settings_.action))
                edit();
            else
                status = TextTable(settings_, info_, configuration_, texts_).run();
        }
        if (!std::cout.flush()) throw standardOutputFailed();
        return status;
    }

  private:
    std::vector<std::filesystem::path> indexFiles() const {
        std::vector<std::filesystem::path> result;
        for (const auto which : {indexer::slot::header, indexer::slot::configuration, indexer::slot::text})
            result.push_back(base::pathOf(info_[which]));
        return result;
    }

    void read() {
        if (!indexer::indexFilesExist(info_)) throw Refusal{exitLookAt, indexer::indexFilesMissing().text};
        configuration_.read(info_[indexer::slot::configuration]);
        texts_.read(info_[indexer::slot::text]);
        index_ = indexer::readMappings(configuration_.before).index;
        indexer::readTextEntries(texts_.before, index_, indexer::LastDefault::Read);
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
                line = shown(index_.designers[static_cast<std::size_t>(entry.DsrIndex) - 1]);
                for (const auto* name : {&entry.CtlName, &entry.CtlClass, &entry.IDHName})
                    line.append(1, '\t').append(shown(*name));
                line.append(1, '\t').append(shown(onOneLine(indexer::shownText(index_, i)))) += '\n';
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
            removeTopicOf(entry);
            configuration_.after =
                indexer::withControlNamed(configuration_.before, entry, indexer::defaultIDH);
            break;
        case TextAction::Delete:
            removeTopicOf(entry);
            configuration_.after = indexer::withoutControl(configuration_.before, entry);
            break;
        default:
            return;
        }
        save();
    }

    // A project file can name any file: what is written must be what the project file says it is.
    void requireFilesOfTheirOwn() const {
        using namespace indexer::slot;
        struct Named {
            const char* key;
            const std::string& path;
        };
        const std::array<Named, 4> files{{{"the project file", settings_.project},
                                          {"Header file", info_[header]},
                                          {"Configuration File", info_[configuration]},
                                          {"Text File", info_[text]}}};
        for (std::size_t i = 0; i < files.size(); ++i) {
            for (std::size_t other = 0; other < i; ++other) {
                if (!base::isSamePath(base::pathOf(files[i].path), base::pathOf(files[other].path))) continue;
                throw Refusal{exitFailed, shown(settings_.project) + ": " + files[other].key + " and " +
                                              files[i].key + " are one file, " + shown(files[i].path) +
                                              nothingWritten};
            }
        }
    }

    std::size_t findControl() const {
        const auto& designers = index_.designers;
        const auto designer = std::find_if(designers.begin(), designers.end(), [&](const std::string& name) {
            return base::equalIgnoringCase(name, settings_.designer);
        });
        if (designer == designers.end())
            throw Refusal{exitLookAt, shown(settings_.designer) + ": the index has no such designer"};
        const ControlName wanted(settings_.control);
        std::size_t met = 0;
        for (const auto entry :
             indexer::entriesOf(index_, static_cast<std::int32_t>(designer - designers.begin()) + 1)) {
            if (!base::equalIgnoringCase(index_.entries[entry].CtlName, wanted.name)) continue;
            if (++met == wanted.occurrence) return entry;
        }
        throw Refusal{exitLookAt,
                      shown(settings_.control) + ": " + shown(*designer) + " has no such control"};
    }

    void setText(std::size_t entry) {
        const auto refuse = [this](const char* reason) {
            throw Refusal{exitLookAt, shown(settings_.control) + ": " + reason};
        };
        const auto state = indexer::stateOf(index_.entries[entry]);
        if (state == EntryState::DefaultText) refuse("the control shows the default text");
        if (state == EntryState::Deleted) refuse("the control is deleted from the index");
        if (indexer::holdsTopicLine(settings_.text))
            refuse("a line of the text that begins with .topic would begin another topic");
        texts_.after = indexer::withTopicText(texts_.before, index_.entries[entry].IDHName, settings_.text);
    }

    // Unless it is the default topic or another control has it too.
    void removeTopicOf(std::size_t entry) {
        const auto& name = index_.entries[entry].IDHName;
        if (indexer::stateOf(index_.entries[entry]) != EntryState::OwnText) return;
        const auto uses = std::count_if(index_.entries.begin(), index_.entries.end(),
                                        [&](const auto& other) { return other.IDHName == name; });
        if (uses == 1) texts_.after = indexer::withoutTopic(texts_.before, name);
    }

    void save() {
        requireOfOurs(configuration_, indexer::isConfigurationOfOurs,
                      ": this is no configuration file, which has lines of designers and controls alone");
        requireOfOurs(texts_, indexer::isTextFileOfOurs,
                      ": this is no text file of an index, whose first topic is IDH_AAAA");
        saveTogether(configuration_, texts_);
        std::cout << "File was saved successfully.\n";
    }

    const TextSettings& settings_;
    indexer::ProjectInfo info_;
    EditedFile configuration_, texts_;
    HelpIndex index_;
};

} // namespace

int runText(const TextSettings& settings) {
    try {
        return TextRun(settings).run();
    } catch (const Refusal& refusal) {
        std::cerr << refusal.message << std::endl;
        return refusal.status;
    } catch (const base::RunTimeError& error) {
        std::cerr << shown(settings.project) << ": " << error.description() << std::endl;
        return exitFailed;
    }
}

} // namespace corvelle::cli
