#include "cli/index_command.h"

#include "base/binary_check.h"
#include "base/file.h"
#include "base/path_text.h"
#include "base/same_path.h"
#include "base/text.h"
#include "cli/exit_status.h"
#include "cli/line_ends.h"
#include "cli/standard_streams.h"
#include "ide/workspace/file_kind.h"
#include "ide/workspace/path_resolver.h"
#include "ide/workspace/workspace.h"
#include "indexer/analysis.h"
#include "indexer/create_index.h"
#include "indexer/files.h"
#include "indexer/general_date.h"
#include "indexer/mapping_module.h"
#include "indexer/save_results.h"
#include "indexer/text_entries.h"
#include "indexer/text_lines.h"

#include <algorithm>
#include <exception>
#include <iostream>
#include <memory>
#include <utility>
#include <vector>

namespace corvelle::cli {

namespace {

using workspace::Component;
using workspace::Project;
using workspace::Workspace;

bool isDesigner(ide::ComponentType type) {
    return type != ide::ComponentType::StdModule && type != ide::ComponentType::ClassModule;
}

// Prints each message, but one that is repeated only once.
class Messages : public indexer::IndexerObserver {
  public:
    void msgBox(const indexer::Message& message) override {
        if (message.text != last_) std::cerr << withTerminalLineEnds(message.text) << std::endl;
        last_ = message.text;
    }
    bool anyPrinted() const { return !last_.empty(); }

  private:
    std::string last_;
};

// One run over a project. Up to the generation nothing is written; every step tells what is wrong with it.
class IndexRun {
  public:
    explicit IndexRun(const IndexSettings& settings) : settings_(settings) {}

    int run() {
        if (open() && readDesigners() && checkOutputs() && readOptions()) {
            analysis_.analyseProject(project_, job_.options, messages_);
            report_.AddInfo_Rpt(dateAndTime_, analysis_.captions());
            if (prepareJob() && create()) {
                saveTexts();
                saveProjectFile();
                saveReport();
                printResults();
            }
        }
        return status_;
    }

  private:
    struct Output {
        const char* option;
        std::string path;
    };

    void fail(ExitStatus status, const std::string& message) {
        std::cerr << message << std::endl;
        status_ = std::max(status_, status);
    }
    // False, so that a step can end with it.
    bool stop(ExitStatus status, const std::string& message) {
        fail(status, message);
        return false;
    }

    bool open() {
        const auto& path = settings_.project;
        if (!workspace::isProjectPath(base::pathOf(path))) return stop(exitFailed, path + ": not a project");
        try {
            workspace_ = Workspace::open(base::pathOf(path));
        } catch (const base::RunTimeError& error) {
            return stop(exitFailed, path + ": " + error.description());
        }
        onDisk_ = workspace_->projects().front().get();
        project_ = workspace_->ActiveVBProject();
        const auto what = base::whatInsteadOfText(onDisk_->bytes());
        if (!what.empty())
            return stop(exitFailed, path + ": this is " + std::string(what) + ", not a project");
        return true;
    }

    // Members that cannot be read are told; whether all designers can.
    bool readDesigners() {
        bool readable = true;
        const auto refuse = [&](const std::filesystem::path& path, std::uint32_t line,
                                std::string_view reason) {
            auto place = base::textOf(path);
            if (line != 0) place.append(1, ':').append(std::to_string(line));
            fail(exitFailed, place.append(": ").append(reason));
        };
        for (const auto& problem : workspace_->problems()) {
            if (isToBeReplaced(problem)) continue;
            refuse(problem.path, problem.line, problem.reason);
            if (isDesigner(problem.type)) readable = false;
        }
        for (const auto& component : onDisk_->components()) {
            if (!isDesigner(component->Type())) continue;
            if (component->file().hasDesigner()) continue;
            const auto what = base::whatInsteadOfText(component->file().bytes());
            refuse(component->path(), 0,
                   what.empty() ? "there is no designer section" : "this is " + std::string(what));
            readable = false;
        }
        return readable;
    }

    bool isToBeReplaced(const Workspace::Problem& problem) const {
        return settings_.replaceModule && problem.type == ide::ComponentType::StdModule &&
               base::isSamePath(problem.path, base::pathOf(*settings_.moduleFile));
    }

    std::vector<Output> outputs() const {
        std::vector<Output> result{{"--header", settings_.header}, {"--config", settings_.config}};
        const auto add = [&](const char* option, const std::optional<std::string>& path) {
            if (path) result.push_back({option, *path});
        };
        add("--module-file", settings_.moduleFile);
        add("--text", settings_.text);
        add("--report", settings_.report);
        add("--project-file", settings_.projectFile);
        return result;
    }

    // No output may take the place of another one or of a file that is read.
    bool checkOutputs() {
        std::vector<Output> taken{{"the project", settings_.project}};
        if (settings_.excludeList) taken.push_back({"--exclude-list", *settings_.excludeList});
        for (const auto& output : outputs()) {
            const auto path = base::pathOf(output.path);
            for (const auto& other : taken) {
                if (base::isSamePath(path, base::pathOf(other.path)))
                    return stop(exitFailed, std::string(output.option) + " and " + other.option +
                                                ": the same file, " + output.path);
            }
            if (auto* const component = componentOf(path); component && !mayReplace(*component, output))
                return stop(exitFailed,
                            std::string(output.option) + ": " + output.path + " is a module of the project");
            if (holdsPartOfTheProject(path))
                return stop(exitFailed, std::string(output.option) + ": " + output.path +
                                            " belongs to a file of the project");
            taken.push_back(output);
        }
        if (settings_.moduleFile && indexer::fileExists(*settings_.moduleFile) && !holdsTheModule()) {
            return stop(exitFailed, "--module-file: " + *settings_.moduleFile + " is no module named " +
                                        *settings_.module + "; it is not written over");
        }
        return !settings_.text || !indexer::fileExists(*settings_.text) || canKeepTexts();
    }

    // The texts of an older file are taken over into the new one.
    bool canKeepTexts() {
        try {
            const auto what = base::whatInsteadOfText(base::readFile(base::pathOf(*settings_.text)));
            if (what.empty()) return true;
            return stop(exitFailed,
                        *settings_.text + ": this is " + std::string(what) + "; it is not written over");
        } catch (const base::FileError&) {
            return stop(exitFailed, *settings_.text + ": its texts cannot be read");
        }
    }

    // Whether the binary part of a component is there, or else what the IDE keeps with the project.
    bool holdsPartOfTheProject(const std::filesystem::path& path) const {
        const auto isBeside = [&path](std::filesystem::path owner, const char* ending) {
            owner.replace_extension(ending);
            if (base::isSamePath(path, owner)) return true;
            // The letter case may be any.
            return base::equalIgnoringCase(base::textOf(path.filename()), base::textOf(owner.filename())) &&
                   base::isSamePath(path / "..", owner / "..");
        };
        if (isBeside(base::pathOf(settings_.project), ".vbw")) return true;
        for (const auto& component : onDisk_->components()) {
            for (const auto* ending : {".frx", ".ctx", ".pgx", ".dox", ".dsx"}) {
                if (isBeside(component->path(), ending)) return true;
            }
        }
        return isResourceOrDocument(path);
    }

    // Whether a line of the project names it as a file that is no component.
    bool isResourceOrDocument(const std::filesystem::path& path) const {
        const auto folder = base::pathOf(settings_.project).parent_path();
        workspace::PathResolver resolver;
        for (indexer::TextLines lines(onDisk_->bytes()); lines.next();) {
            for (const std::string_view key : {"ResFile32=", "RelatedDoc="}) {
                auto written = base::trimSpaces(lines.line());
                if (!base::startsWithIgnoringCase(written, key)) continue;
                written.remove_prefix(key.size());
                if (written.size() > 1 && written.front() == '"' && written.back() == '"')
                    written = written.substr(1, written.size() - 2);
                const auto file = resolver.resolve(folder, written);
                if (file && base::isSamePath(path, *file)) return true;
            }
        }
        return false;
    }

    // Another project may have code in a file that is no part of this one.
    bool holdsTheModule() const {
        try {
            auto bytes = base::readFile(base::pathOf(*settings_.moduleFile));
            if (bytes.empty()) return true;
            const workspace::ModuleFile file(std::move(bytes), ide::ComponentType::StdModule);
            return base::equalIgnoringCase(file.name(), base::trimSpaces(*settings_.module));
        } catch (const std::exception&) {
            return false;
        }
    }

    // The component whose file that is, if any.
    Component* componentOf(const std::filesystem::path& path) const {
        base::FileStamp stamp;
        if (!base::stampOf(path, stamp)) return nullptr;
        for (const auto& component : onDisk_->components()) {
            std::error_code ignored;
            const auto& other = component->stamp();
            const bool same = stamp.inode == 0 ? std::filesystem::equivalent(component->path(), path, ignored)
                                               : stamp.inode == other.inode && stamp.device == other.device;
            if (same) return component.get();
        }
        return nullptr;
    }

    // Without --replace-module the name is found to be taken later, and nothing is written.
    bool mayReplace(Component& component, const Output& output) const {
        return std::string_view(output.option) == "--module-file" &&
               component.Type() == ide::ComponentType::StdModule &&
               base::equalIgnoringCase(component.Name(), base::trimSpaces(*settings_.module));
    }

    bool readOptions() {
        auto& options = job_.options;
        if (settings_.components)
            checkBoxes(*settings_.components, componentWords, options);
        else
            indexer::SetDefOption(*project_, options);
        checkBoxes(settings_.exclude, exclusionWords, options);
        options.ChkIDMap = settings_.module ? 1 : 0;
        options.ChkAutoLoad = settings_.autoload ? 1 : 0;
        if (!settings_.excludeList) return true;
        try {
            indexer::readExcludeList(base::readFile(base::pathOf(*settings_.excludeList)), job_.excludeList);
        } catch (const base::RunTimeError& error) {
            return stop(exitFailed, *settings_.excludeList + ": " + error.description());
        }
        return true;
    }

    bool prepareJob() {
        job_.project = project_;
        job_.SelectedDesigners = analysis_.SelectedDesigners();
        job_.headerPath = settings_.header;
        job_.configurationPath = settings_.config;
        if (!settings_.module) return true;
        job_.modulePath = *settings_.moduleFile;
        job_.txtModule = *settings_.module;
        if (settings_.replaceModule)
            onDisk_->removeModule(base::trimSpaces(job_.txtModule), base::pathOf(job_.modulePath));
        const auto lines = indexer::mappingModuleLines(job_);
        if (lines > indexer::mostModuleLines)
            return stop(exitLookAt, "The mapping module would have " + std::to_string(lines) +
                                        " lines; the IDE takes " + std::to_string(indexer::mostModuleLines));
        return true;
    }

    bool create() {
        outliveReaders(); // half an index is not what they wanted
        const auto projectBefore = onDisk_->bytes();
        const auto outcome = indexer::createIndex(job_, report_, messages_);
        if (outcome == indexer::IndexOutcome::Created) {
            if (messages_.anyPrinted()) status_ = std::max(status_, exitLookAt);
            written_ = {settings_.header, settings_.config};
            if (settings_.module) written_.push_back(*settings_.moduleFile);
            if (onDisk_->bytes() != projectBefore) written_.push_back(settings_.project);
            return true;
        }
        const bool refused = outcome == indexer::IndexOutcome::ModuleRefused;
        status_ = std::max(status_, refused ? exitLookAt : exitFailed);
        return false;
    }

    void saveTexts() {
        if (!settings_.text) return;
        auto prepared = indexer::prepareTextEntries(settings_.header, settings_.config, *settings_.text);
        if (!prepared.mappings) return fail(exitFailed, prepared.message->text);
        const auto defaultText = settings_.defaultText ? withFileLineEnds(*settings_.defaultText)
                                                       : std::string(indexer::initialDefaultText);
        const auto saved = indexer::saveTextEntries(*settings_.text, defaultText, prepared.mappings->index);
        if (!saved.saved) return fail(exitFailed, *settings_.text + ": " + saved.message.text);
        report_.append(saved.reportLine);
        written_.push_back(*settings_.text);
    }

    void saveProjectFile() {
        if (!settings_.projectFile) return;
        indexer::ProjectInfo info;
        info[indexer::slot::projectName] = project_->Name();
        info[indexer::slot::projectFile] = project_->FileName();
        info[indexer::slot::header] = settings_.header;
        info[indexer::slot::configuration] = settings_.config;
        info[indexer::slot::text] = settings_.text.value_or("");
        info[indexer::slot::moduleName] = settings_.module.value_or("");
        info[indexer::slot::moduleFile] = settings_.moduleFile.value_or("");
        const auto saved = indexer::saveProject(*settings_.projectFile, dateAndTime_, info);
        if (!saved.saved) return fail(exitFailed, *settings_.projectFile + ": " + saved.message->text);
        written_.push_back(*settings_.projectFile);
        if (!settings_.text)
            std::cerr << *settings_.projectFile
                      << ": warning: without --text this indexer project cannot be opened" << std::endl;
    }

    void saveReport() {
        if (!settings_.report) return;
        if (!indexer::saveReport(*settings_.report, report_).saved)
            return fail(exitFailed, *settings_.report + ": the report could not be written");
        written_.push_back(*settings_.report);
    }

    void printResults() {
        for (const auto* caption : analysis_.captions().inReportOrder()) std::cout << *caption << '\n';
        for (const auto& path : written_) std::cout << path << '\n';
        if (!std::cout.flush()) fail(exitFailed, "standard output: could not be written");
    }

    const IndexSettings& settings_;
    const std::string dateAndTime_ = indexer::currentDateAndTime();
    std::shared_ptr<Workspace> workspace_;
    Project* onDisk_ = nullptr;
    std::shared_ptr<ide::VBProject> project_;
    indexer::Analysis analysis_;
    indexer::IndexJob job_;
    indexer::Report report_;
    Messages messages_;
    std::vector<std::string> written_;
    ExitStatus status_ = exitDone;
};

} // namespace

int runIndex(const IndexSettings& settings) {
    try {
        return IndexRun(settings).run();
    } catch (const base::RunTimeError& error) {
        std::cerr << settings.project << ": " << error.description() << std::endl;
        return exitFailed;
    }
}

} // namespace corvelle::cli
