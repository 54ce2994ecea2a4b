#include "cli/index_command.h"

#include "base/file.h"
#include "base/folder_lock.h"
#include "base/paths.h"
#include "base/text.h"
#include "cli/backup_names.h"
#include "cli/designer_changes.h"
#include "cli/exit_status.h"
#include "cli/index_outputs.h"
#include "cli/interrupted_changes.h"
#include "cli/line_ends.h"
#include "cli/stable_index.h"
#include "cli/terminal.h"
#include "cli/unified_diff.h"
#include "ide/workspace/file_kind.h"
#include "ide/workspace/workspace.h"
#include "indexer/analysis.h"
#include "indexer/create_index.h"
#include "indexer/entry_edits.h"
#include "indexer/index_files.h"
#include "indexer/mapping_module.h"
#include "indexer/project_info.h"
#include "indexer/report.h"
#include "indexer/text_file.h"
#include "indexer/text_lines.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvelle::cli {

namespace {

using workspace::Project;
using workspace::Workspace;

// Prints each message, but one that is repeated only once.
class Messages : public indexer::IndexerObserver {
  public:
    void msgBox(const indexer::Message& message) override {
        if (message.text != last_) print(message.text);
        last_ = message.text;
        anyPrinted_ = true;
    }
    void leftOut(std::string_view designer, std::string_view control) override {
        std::cerr << shown(designer);
        if (control.empty())
            std::cerr << ": this is no name; the designer is left out" << std::endl;
        else
            std::cerr << ": " << shown(control) << ": its name or its class is no name; it is left out"
                      << std::endl;
        anyPrinted_ = true;
    }
    bool anyPrinted() const { return anyPrinted_; }

  private:
    static void print(const std::string& text) {
        const auto lines = withTerminalLineEnds(text);
        for (std::size_t begin = 0; begin <= lines.size();) {
            const auto end = std::min(lines.find('\n', begin), lines.size());
            std::cerr << shown(std::string_view(lines).substr(begin, end - begin)) << '\n';
            begin = end + 1;
        }
        std::cerr.flush();
    }

    std::string last_;
    bool anyPrinted_ = false;
};

// A file of the index that waits for all the others.
class WaitingFile : public indexer::IndexOutput {
  public:
    WaitingFile(IndexFiles& files, const std::string& path) : files_(files), path_(base::pathOf(path)) {}

    void write(std::string_view bytes) override { bytes_ += bytes; }
    void close() override { files_.put(path_, std::move(bytes_)); }

  private:
    IndexFiles& files_;
    std::filesystem::path path_;
    std::string bytes_;
};

// One run over a project. Up to the generation nothing is written; every step tells what is wrong with it.
class IndexRun {
  public:
    explicit IndexRun(const IndexSettings& settings) : settings_(settings) {}

    int run() {
        const auto files = lockedFiles();
        for (const auto& file : files) locked_.insert(file.native());
        std::optional<base::FolderLock> lock; // until all is written
        if (settings_.writesFiles()) {
            lock.emplace(files);
            completeInterruptedChanges(files);
        }
        if (open() && readDesigners() && checkOutputs() && readOptions()) {
            analysis_.analyseProject(project_, job_.options, messages_);
            // A project on disk, every designer of which could be read, fails for lack of memory alone.
            if (!analysis_.isComplete()) throw base::RunTimeError(base::ErrorNumber::OutOfMemory);
            report_.AddInfo_Rpt(dateAndTime_, analysis_.captions());
            if (prepareJob() && (settings_.isClassic ? create() : createStable())) {
                if (settings_.isClassic) addTexts();
                addProjectFile();
                if (settings_.helpFile) onDisk_->setHelpFile(*settings_.helpFile);
                if (settings_.check) {
                    printMismatches();
                } else if (settings_.diff) {
                    printDiffs();
                } else {
                    addReport();
                    if (write()) printResults();
                }
            }
        }
        return status_;
    }

  private:
    void fail(ExitStatus status, const std::string& message) {
        std::cerr << message << std::endl;
        status_ = std::max(status_, status);
    }
    // False, so that a step can end with it.
    bool stop(ExitStatus status, const std::string& message) {
        fail(status, message);
        return false;
    }

    std::vector<std::filesystem::path> lockedFiles() const {
        std::vector<std::filesystem::path> files{base::pathOf(settings_.project)};
        for (const auto& path : outputPaths(settings_)) files.push_back(base::pathOf(path));
        if (settings_.changesDesigners()) {
            for (auto& file : designerFiles(base::pathOf(settings_.project)))
                files.push_back(std::move(file));
        }
        return files;
    }

    bool open() {
        const auto path = shown(settings_.project);
        const auto file = base::pathOf(settings_.project);
        if (!workspace::isProjectPath(file)) return stop(exitFailed, path + ": not a project");
        try {
            workspace_ = Workspace::open(file);
        } catch (const base::RunTimeError& error) {
            return stop(exitFailed, path + ": " + base::reasonOf(error));
        }
        onDisk_ = workspace_->projects().front().get();
        oldProject_ = onDisk_->bytes();
        project_ = workspace_->ActiveVBProject();
        const auto what = base::whatInsteadOfText(onDisk_->bytes());
        if (!what.empty())
            return stop(exitFailed, path + ": this is " + std::string(what) + ", not a project");
        onDisk_->setWriteFile(
            [this](const std::filesystem::path& place, std::string_view bytes,
                   const base::ReplaceOptions& how) { files_.put(place, std::string(bytes), how); });
        return true;
    }

    // Members that cannot be read are told; whether all designers can.
    bool readDesigners() {
        bool readable = true;
        const auto refuse = [&](const std::filesystem::path& path, std::uint32_t line,
                                std::string_view reason) {
            auto place = shown(base::textOf(path));
            if (line != 0) place.append(1, ':').append(std::to_string(line));
            fail(exitFailed, place.append(": ").append(reason));
        };
        for (const auto& problem : workspace_->problems()) {
            if (isToBeReplaced(problem)) continue;
            refuse(problem.path, problem.line, problem.reason);
            if (ide::hasDesigner(problem.type)) readable = false;
        }
        for (const auto& component : onDisk_->components()) {
            if (!ide::hasDesigner(component->Type())) continue;
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

    bool checkOutputs() {
        auto reason = whatForbidsOutputs(settings_, *onDisk_);
        if (!reason) reason = files_.readOld(settings_);
        return !reason || stop(exitFailed, *reason);
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
            return stop(exitFailed, shown(*settings_.excludeList) + ": " + base::reasonOf(error));
        }
        return true;
    }

    bool prepareJob() {
        job_.project = project_;
        job_.SelectedDesigners = analysis_.SelectedDesigners();
        job_.headerPath = settings_.header;
        job_.configurationPath = settings_.config;
        job_.openOutput = [this](const std::string& path) {
            return std::make_unique<WaitingFile>(files_, path);
        };
        job_.leavesOutWhatIsNoName = true;
        if (!settings_.module) return true;
        job_.modulePath = *settings_.moduleFile;
        job_.txtModule = *settings_.module;
        if (settings_.replaceModule)
            onDisk_->removeModule(base::trimSpaces(job_.txtModule), base::pathOf(job_.modulePath));
        return !settings_.isClassic || requireLines(indexer::mappingModuleLines(job_));
    }

    bool requireLines(std::int64_t lines) {
        return lines <= indexer::mostModuleLines ||
               stop(exitLookAt, "The mapping module would have " + std::to_string(lines) +
                                    " lines; the IDE takes " + std::to_string(indexer::mostModuleLines));
    }

    bool create() {
        const auto outcome = indexer::createIndex(job_, report_, messages_);
        if (outcome == indexer::IndexOutcome::Created && settings_.autoload) warnOfLongProcedures();
        if (messages_.anyPrinted()) status_ = std::max(status_, exitLookAt);
        if (outcome == indexer::IndexOutcome::Created) return true;
        if (outcome != indexer::IndexOutcome::ModuleRefused) status_ = std::max(status_, exitFailed);
        return false;
    }

    // Here it is the add-in's module, which has one procedure a designer.
    void warnOfLongProcedures() const {
        const auto name = indexer::stable::longProcedure(files_.newBytes(*settings_.moduleFile));
        if (name.empty()) return;
        std::cerr << shown(*settings_.moduleFile) << ": warning: " << shown(name)
                  << " has more than 64 KB, which the compiler may refuse; --numbering stable divides it"
                  << std::endl;
    }

    // Numbers that stay. Up to here the two ways are one, and from the indexer project on.
    bool createStable() {
        stable_.emplace(settings_, job_, *onDisk_, files_, messages_);
        const auto reason = stable_->number();
        if (messages_.anyPrinted()) status_ = std::max(status_, exitLookAt);
        if (!reason.empty()) return stop(exitFailed, reason);
        if (!stable_->note().empty()) std::cerr << stable_->note() << std::endl;
        report_.AddOptions_Rpt(job_.options);
        report_.append("***** Indexing Started *******");
        std::shared_ptr<ide::VBComponent> module;
        try {
            if (settings_.module && !addModule(module)) return false;
        } catch (const base::RunTimeError& error) { // of a name that the IDE would not take
            return stop(exitLookAt, base::reasonOf(error));
        }
        if (settings_.changesDesigners() && !changeDesigners()) return false;
        report_.append("Created header file: " + job_.headerPath);
        report_.append("Created Configuration file: " + job_.configurationPath);
        stable_->putHeaderAndConfiguration();
        if (module) {
            module->SaveAs(job_.modulePath);
            report_.append("Module Path= " + job_.modulePath);
            report_.append("Module saved");
        }
        report_.append("*** Indexing done ***");
        if (settings_.text) {
            stable_->putTexts();
            report_.append(indexer::createdTextFile(*settings_.text));
        }
        for (const auto& section : stable_->sections()) {
            report_.append("** " + section.title + " **");
            for (const auto& line : section.lines) report_.append(line);
        }
        return true;
    }

    bool addModule(std::shared_ptr<ide::VBComponent>& module) {
        const auto code = stable_->moduleCode();
        if (!requireLines(static_cast<std::int64_t>(code.lines.size()))) return false;
        if (code.identifiers > indexer::stable::mostIdentifiers)
            fail(exitLookAt, shown(job_.txtModule) + ": warning: the module declares " +
                                 std::to_string(code.identifiers) +
                                 " identifiers; the compiler takes about " +
                                 std::to_string(indexer::stable::mostIdentifiers) + " in a project");
        std::string name = job_.txtModule;
        if (!indexer::validModule(name, *project_)) {
            messages_.msgBox(indexer::invalidModuleName(name));
            status_ = std::max(status_, exitLookAt);
            return false;
        }
        module = project_->VBComponents()->Add(ide::ComponentType::StdModule);
        module->setName(base::trimSpaces(job_.txtModule));
        std::string text;
        for (const auto& line : code.lines) text.append(text.empty() ? "" : "\r\n").append(line);
        if (!text.empty()) module->CodeModule()->InsertLines(1, text);
        report_.append("Added module :" + module->Name());
        stable_->add(indexer::stable::sectionsOfModule(code.notReached));
        return true;
    }

    // Before the header is put, which remembers what is written.
    bool changeDesigners() {
        changes_.emplace(*onDisk_, settings_.properties, stable_->numbering(), stable_->memory());
        for (const auto& message : changes_->messages()) std::cerr << message << '\n';
        status_ = std::max(status_, changes_->status());
        if (changes_->status() == exitFailed) return stop(exitFailed, "Nothing is written");
        for (const auto& file : changes_->files()) {
            const auto& path = file.component->path();
            if (settings_.writesFiles() && locked_.count(path.native()) == 0)
                return stop(exitFailed,
                            shown(base::textOf(path)) + ": the project names it only since this run began");
            files_.put(path, file.bytes,
                       {.stamp = file.component->stamp(), .content = file.component->file().bytes()});
            report_.append("Changed designer: " + base::textOf(path));
        }
        return true;
    }

    // Whether a module or the name of the help file is new there.
    bool changesProject() const {
        const auto paths = files_.paths();
        return std::find(paths.begin(), paths.end(), base::textOf(onDisk_->path())) != paths.end();
    }

    // What --diff is asked for.
    void printDiffs() {
        const auto print = [](const std::filesystem::path& path, std::string_view before,
                              std::string_view after) {
            writeDiff(base::textOf(path), before, after, [](std::string_view text) { std::cout << text; });
        };
        if (changes_) {
            for (const auto& file : changes_->files())
                print(file.component->path(), file.component->file().bytes(), file.bytes);
        }
        if (changesProject()) print(onDisk_->path(), oldProject_, onDisk_->bytes());
        if (!std::cout.flush()) fail(exitFailed, "standard output: could not be written");
    }

    // Whatever is saved stays, also where nothing is written then.
    bool saveBackups() {
        if (!settings_.backupDir) return true;
        const auto folder = base::pathOf(*settings_.backupDir);
        BackupNames names(folder);
        std::filesystem::path path;
        try {
            if (changes_) {
                for (const auto& file : changes_->files()) {
                    path = file.component->path();
                    const auto name = file.component->Name();
                    saveBackup(folder,
                               names.next(isPlainName(name) ? name : base::textOf(path.stem()),
                                          file.component->Type()),
                               file.component->file().bytes(), path);
                }
            }
            path = onDisk_->path();
            if (changesProject()) saveBackup(folder, names.next(path), oldProject_, path);
        } catch (const std::exception& error) {
            return stop(exitFailed, shown(base::textOf(path)) + ": " + base::reasonOf(error));
        }
        return true;
    }

    // What --check is asked for.
    void printMismatches() {
        bool anyMismatch = false;
        for (const auto& section : stable_->sections()) {
            anyMismatch = anyMismatch || section.isMismatch;
            for (const auto& line : section.lines) std::cout << section.title << ": " << shown(line) << '\n';
        }
        files_.dropUnchanged();
        for (const auto& path : files_.paths()) {
            anyMismatch = true;
            std::cout << "Would change: " << shown(path) << '\n';
        }
        if (anyMismatch) status_ = std::max(status_, exitLookAt);
        if (!std::cout.flush()) fail(exitFailed, "standard output: could not be written");
    }

    // What the user is to decide on, or would not expect.
    void tellSections() {
        for (const auto& section : stable_->sections()) {
            if (section.title == "New" || section.title == "Text missing") continue;
            for (const auto& line : section.lines) std::cerr << section.title << ": " << shown(line) << '\n';
        }
        if (!stable_->offersRenames()) return;
        fail(exitLookAt,
             "With --renames these controls keep their names, numbers and texts; with --no-renames "
             "they are new ones.");
    }

    void addTexts() {
        if (!settings_.text) return;
        auto index = indexer::readMappings(files_.newBytes(settings_.config)).index;
        const auto old = files_.oldBytes(*settings_.text);
        if (base::whatInsteadOfText(old).empty()) indexer::readTextEntries(old, index);
        indexer::setDefaultEntry(index, settings_.defaultText ? withFileLineEnds(*settings_.defaultText)
                                                              : std::string(indexer::initialDefaultText));
        put(*settings_.text, indexer::textFileOf(index));
        report_.append(indexer::createdTextFile(*settings_.text));
    }

    void addProjectFile() {
        if (!settings_.projectFile) return;
        indexer::ProjectInfo info;
        info[indexer::slot::projectName] = project_->Name();
        info[indexer::slot::projectFile] = project_->FileName();
        info[indexer::slot::header] = settings_.header;
        info[indexer::slot::configuration] = settings_.config;
        info[indexer::slot::text] = settings_.text.value_or("");
        info[indexer::slot::moduleName] = base::trimSpaces(settings_.module.value_or(""));
        info[indexer::slot::moduleFile] = settings_.moduleFile.value_or("");
        auto bytes = indexer::fileOfLines(indexer::projectFileLines(dateAndTime_, info));
        // Only the time is another: nothing has changed.
        const auto old = files_.oldBytes(*settings_.projectFile);
        const auto afterFirstLine = [](std::string_view text) {
            return text.substr(std::min(text.find('\n'), text.size()));
        };
        if (!settings_.isClassic && isSameButLineEnds(afterFirstLine(old), afterFirstLine(bytes)))
            bytes = old;
        put(*settings_.projectFile, std::move(bytes));
    }

    void addReport() {
        if (settings_.report) put(*settings_.report, indexer::fileOfLines(report_.lines()));
    }

    void put(const std::string& path, std::string bytes) { files_.put(base::pathOf(path), std::move(bytes)); }

    bool write() {
        if (stable_) {
            files_.dropUnchanged();
            tellSections();
        }
        if (!saveBackups()) return false;
        outliveReaders(); // what has been written is to be told of in the exit status at least
        if (const auto reason = files_.write()) return stop(exitFailed, *reason);
        if (settings_.projectFile && !settings_.text)
            std::cerr << shown(*settings_.projectFile)
                      << ": warning: without --text this indexer project cannot be opened" << std::endl;
        return true;
    }

    void printResults() {
        for (const auto* caption : analysis_.captions().inReportOrder()) std::cout << shown(*caption) << '\n';
        for (const auto& path : files_.paths()) std::cout << shown(path) << '\n';
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
    IndexFiles files_;
    std::optional<StableIndex> stable_;
    std::optional<DesignerChanges> changes_;
    std::set<std::filesystem::path::string_type> locked_; // the files that this run has to itself
    std::string oldProject_;                              // its file as it was read
    ExitStatus status_ = exitDone;
};

} // namespace

int runIndex(const IndexSettings& settings) {
    try {
        return IndexRun(settings).run();
    } catch (const base::RunTimeError& error) {
        std::cerr << shown(settings.project) << ": " << base::reasonOf(error) << std::endl;
        return exitFailed;
    }
}

} // namespace corvelle::cli
