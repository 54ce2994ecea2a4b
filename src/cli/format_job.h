#pragma once

#include "base/file.h"
#include "cli/backup_names.h"
#include "cli/format_settings.h"
#include "cli/module_source.h"
#include "formatter/engine.h"
#include "ide/workspace/module_file.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvelle::cli {

/// Formats one module: the steps are called in their order, each once; print() alone writes to the streams.
class FormatJob {
  public:
    /// What became of the module.
    enum class Fate { Rewritten, Unchanged, Refused, Failed };

    /// Refers to its arguments.
    FormatJob(const ModuleSource& source, const FormatSettings& settings)
        : source_(source), settings_(settings) {}

    /// Reads and formats the module and finds what is wrong with the result.
    void format();
    /// Chooses the backup's name if the file is to be rewritten with a backup.
    void chooseBackup(BackupNames& names);
    /// Saves the backup and rewrites the file, if that is what is to be done.
    void save();
    /// Prints messages and results.
    void print(base::FileWriter& out, base::FileWriter& err) const;

    Fate fate() const { return fate_; }
    ExitStatus status() const { return status_; }

  private:
    struct Errors; // collects what the pass reports

    void read();
    bool clean(formatter::Engine& engine);
    void indent(formatter::Engine& engine, const Errors& errors);
    void findUnsafeLines();
    std::uint32_t fileLineOf(std::int32_t bufferIndex) const;
    void diagnose(ExitStatus status, const std::string& message);
    void diagnose(ExitStatus status, std::uint32_t fileLine, const std::string& message);
    void printDiff(base::FileWriter& out) const;
    bool printsModule() const;

    const ModuleSource& source_;
    const FormatSettings& settings_;
    base::FileStamp stamp_{};
    std::optional<workspace::ModuleFile> file_;
    std::vector<bool> kept_; // of each code line, whether the buffer holds it
    formatter::LineBuffer buffer_;
    std::string backupName_;
    std::vector<std::string> diagnostics_; // in the order they are printed
    std::string note_;
    std::string summary_;
    Fate fate_ = Fate::Unchanged;
    ExitStatus status_ = exitDone;
};

} // namespace corvelle::cli
