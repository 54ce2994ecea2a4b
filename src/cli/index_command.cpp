#include "cli/index_command.h"

#include "base/binary_check.h"
#include "base/file.h"
#include "base/path_text.h"
#include "base/same_path.h"
#include "base/text.h"
#include "cli/exit_status.h"
#include "cli/index_outputs.h"
#include "cli/line_ends.h"
#include "cli/standard_streams.h"
#include "ide/workspace/file_kind.h"
#include "ide/workspace/workspace.h"
#include "indexer/analysis.h"
#include "indexer/create_index.h"
#include "indexer/general_date.h"
#include "indexer/mapping_module.h"
#include "indexer/save_results.h"
#include "indexer/text_entries.h"

#include <algorithm>
#include <exception>
#include <iostream>
#include <memory>
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
            // A project on disk, every designer of which could be read, fails for lack of memory alone.
            if (!analysis_.isComplete()) throw base::RunTimeError(base::ErrorNumber::OutOfMemory);
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
        const auto reason = whatForbidsOutputs(settings_, *onDisk_);
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
        info[indexer::slot::moduleName] = base::trimSpaces(settings_.module.value_or(""));
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
