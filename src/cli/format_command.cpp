#include "cli/format_command.h"

#include "base/file.h"
#include "base/paths.h"
#include "cli/format_job.h"
#include "cli/source_list.h"
#include "cli/terminal.h"
#include "cli/turnstile.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <exception>
#include <iostream>
#include <optional>
#include <set>
#include <string>
#include <thread>

namespace corvelle::cli {

namespace {

// One run over a list of modules: workers take the next module each; backup names are given and results are
// printed in the modules' order, whatever the number of workers.
class Run {
  public:
    Run(const FormatSettings& settings, const SourceList& list)
        : settings_(settings), list_(list), sources_(list.sources), slots_(settings.jobs),
          moduleSettings_(settings.stdinName), progress_(sources_.size(), settings.quiet) {}

    int run() {
        std::vector<std::thread> threads = startHelpers();
        work();
        for (std::thread& thread : threads) thread.join();
        if (list_.moduleCount() > 1 && !settings_.quiet && !settings_.showSettings) printTotals();
        return status_;
    }

  private:
    std::vector<std::thread> startHelpers() {
        std::vector<std::thread> threads;
        // Formatting keeps a processor busy, saving waits for the disk, which serves several files at once.
        constexpr std::size_t savedAtOnce = 16;
        const std::size_t busy = settings_.jobs + (settings_.writesFiles() ? savedAtOnce : 0);
        const std::size_t workers = std::min(busy, sources_.size());
        try {
            while (threads.size() + 1 < workers) threads.emplace_back([this] { work(); });
        } catch (const std::exception&) {
            // The system has no more threads or memory to give: the ones that run do all the work.
        }
        return threads;
    }

    void work() {
        for (std::size_t i = next_++; i < sources_.size(); i = next_++) {
            std::optional<FormatJob> job;
            // What a step throws ends this module's work; the turns of the others come all the same.
            std::exception_ptr failure;
            const auto step = [&failure](const auto& function) {
                try {
                    if (!failure) function();
                } catch (const std::exception&) {
                    failure = std::current_exception();
                }
            };
            step([&] { job.emplace(sources_[i], settings_, &moduleSettings_); });
            step([&] { slots_.use([&] { job->format(); }); });
            if (settings_.backupDir) naming_.pass(i, [&] { step([&] { job->chooseBackup(backupNames_); }); });
            step([&] { job->save(); });
            output_.pass(i, [&] { failure ? printFailure(sources_[i], failure) : print(*job); });
        }
    }

    // In turn, so that nothing here needs a lock.
    void print(const FormatJob& job) {
        progress_.clear();
        try {
            // One file can be wrong for many modules.
            if (const auto& problem = job.settingsProblem();
                !problem.empty() && toldProblems_.insert(problem).second) {
                err_.write(shown(problem) + "\n");
            }
            job.printMessages(err_);
        } catch (const std::exception&) {
            // Nobody reads the messages; what was asked for is done all the same.
        }
        try {
            if (!outputFailed_) job.printResult(out_);
        } catch (const std::exception& error) {
            std::cerr << "standard output: " << base::reasonOf(error) << std::endl;
            outputFailed_ = true;
            status_ = exitFailed;
        }
        progress_.step();
        ++fates_[static_cast<std::size_t>(job.fate())];
        status_ = std::max(status_, static_cast<int>(job.status()));
    }

    void printFailure(const ModuleSource& source, const std::exception_ptr& failure) {
        progress_.clear();
        try {
            std::rethrow_exception(failure);
        } catch (const std::exception& error) {
            std::cerr << shown(source.shownPath) << ": " << shown(base::reasonOf(error)) << std::endl;
        }
        progress_.step();
        ++fates_[static_cast<std::size_t>(FormatJob::Fate::Failed)];
        status_ = exitFailed;
    }

    void printTotals() {
        progress_.clear();
        const auto count = [this](FormatJob::Fate fate) { return fates_[static_cast<std::size_t>(fate)]; };
        std::cerr << count(FormatJob::Fate::Rewritten)
                  << (settings_.writesFiles() ? " rewritten, " : " would be rewritten, ")
                  << count(FormatJob::Fate::Unchanged) << " left unchanged, "
                  << count(FormatJob::Fate::Refused) << " refused";
        const std::size_t failed = count(FormatJob::Fate::Failed);
        if (failed != 0) std::cerr << ", " << failed << " failed";
        std::cerr << std::endl;
    }

    const FormatSettings& settings_;
    const SourceList& list_;
    const std::vector<ModuleSource>& sources_;
    const std::filesystem::path outName_ = "standard output", errName_ = "standard error";
    base::FileWriter out_{1, outName_};
    base::FileWriter err_{2, errName_};
    Slots slots_;
    ModuleSettings moduleSettings_;
    std::set<std::string> toldProblems_;
    Progress progress_;
    std::atomic<std::size_t> next_ = 0;
    Turnstile naming_, output_;
    BackupNames backupNames_{base::pathOf(settings_.backupDir.value_or(std::string()))};
    std::array<std::size_t, 5> fates_{};
    int status_ = exitDone;
    bool outputFailed_ = false;
};

} // namespace

int runFormat(const FormatSettings& settings) {
    const SourceList list = listSources(settings.paths, settings.stdinName, settings.backupDir);
    if (settings.toStandardOutput && list.moduleCount() > 1) {
        std::cerr << "--stdout: takes one module, not " << list.moduleCount() << std::endl;
        return exitFailed;
    }
    if (settings.writesFiles()) outliveReaders(); // half a project formatted is not what they wanted
    return Run(settings, list).run();
}

} // namespace corvelle::cli
