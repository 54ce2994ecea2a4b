#include "cli/format_command.h"

#include "base/file.h"
#include "cli/format_job.h"
#include "cli/progress.h"
#include "cli/source_list.h"
#include "cli/turnstile.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <iostream>
#include <thread>

namespace corvelle::cli {

namespace {

// One run over a list of modules: workers take the next module each; backup names are given and results are
// printed in the modules' order, whatever the number of workers.
class Run {
  public:
    Run(const FormatSettings& settings, const std::vector<ModuleSource>& sources)
        : settings_(settings), sources_(sources), progress_(sources.size(), settings.quiet) {}

    int run() {
        const std::size_t helpers = std::min<std::size_t>(settings_.jobs, sources_.size());
        std::vector<std::thread> threads;
        for (std::size_t i = 1; i < helpers; ++i) threads.emplace_back([this] { work(); });
        work();
        for (std::thread& thread : threads) thread.join();
        if (sources_.size() > 1 && !settings_.quiet) printTotals();
        return status_;
    }

  private:
    void work() {
        for (std::size_t i = next_++; i < sources_.size(); i = next_++) {
            FormatJob job(sources_[i], settings_);
            job.format();
            if (settings_.backupDir) names_.pass(i, [&] { job.chooseBackup(backupNames_); });
            job.save();
            output_.pass(i, [&] { print(job); });
        }
    }

    // In turn, so that nothing here needs a lock.
    void print(const FormatJob& job) {
        progress_.clear();
        try {
            job.print(out_, err_);
        } catch (const base::FileError& error) {
            if (!outputFailed_) std::cerr << "standard output: " << error.description() << std::endl;
            outputFailed_ = true;
            status_ = exitFailed;
        }
        progress_.step();
        ++fates_[static_cast<std::size_t>(job.fate())];
        status_ = std::max(status_, static_cast<int>(job.status()));
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
    const std::vector<ModuleSource>& sources_;
    const std::filesystem::path outName_ = "standard output", errName_ = "standard error";
    base::FileWriter out_{1, outName_};
    base::FileWriter err_{2, errName_};
    Progress progress_;
    std::atomic<std::size_t> next_ = 0;
    Turnstile names_, output_;
    BackupNames backupNames_;
    std::array<std::size_t, 4> fates_{};
    int status_ = exitDone;
    bool outputFailed_ = false;
};

} // namespace

int runFormat(const FormatSettings& settings) {
    const SourceList list = listSources(settings.paths, settings.stdinName);
    if (settings.toStandardOutput && list.sources.size() > 1) {
        std::cerr << "--stdout: takes one module, not " << list.sources.size() << std::endl;
        return exitFailed;
    }
    if (!settings.quiet) {
        for (const std::string& note : list.notes) std::cerr << note << '\n';
    }
    return Run(settings, list.sources).run();
}

} // namespace corvelle::cli
