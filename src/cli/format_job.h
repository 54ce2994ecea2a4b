#pragma once

#include "base/file.h"
#include "cli/backup_names.h"
#include "cli/format_settings.h"
#include "cli/module_settings.h"
#include "cli/terminal.h"
#include "formatter/format_code.h"
#include "ide/workspace/formatted_file.h"
#include "ide/workspace/module_file.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace corvelle::cli {

/// Formats one module, or tells what there is to tell of a path: the steps are called in their order, each
/// once; the printing ones alone write to the streams.
class FormatJob {
  public:
    /// What became of the module.
    enum class Fate { Rewritten, Unchanged, Refused, Failed, Noted };

    /// Refers to its arguments. Without `onDisk` the options alone say what holds.
    FormatJob(const ModuleSource& source, const FormatSettings& settings, ModuleSettings* onDisk = nullptr)
        : source_(source), settings_(settings), onDisk_(onDisk), name_(shown(source.shownPath)) {}

    /// Reads and formats the module and finds what is wrong with the result.
    void format();
    /// Chooses the backup's name if the file is to be rewritten with a backup.
    void chooseBackup(BackupNames& names);
    /// Saves the backup and rewrites the file, if that is what is to be done.
    void save();
    void printMessages(base::FileWriter& err) const;
    /// Prints what goes to standard output.
    void printResult(base::FileWriter& out) const;

    Fate fate() const { return fate_; }
    ExitStatus status() const { return status_; }
    /// What is wrong with a settings file, so that the module was left alone; empty if nothing is.
    const std::string& settingsProblem() const { return settingsProblem_; }

  private:
    void tellInstead();
    void read();
    void layOut();
    void judge();
    bool isStructured() const { return layout_.layout == settings::Layout::Structured; }
    workspace::FormattedFile formatted() const;
    std::string textOf(const formatter::Finding& finding) const;
    void diagnose(ExitStatus status, std::string_view message);
    void diagnose(ExitStatus status, std::uint32_t fileLine, std::string_view message);
    /// One line of a message, and one that explains it where it needs that.
    void diagnose(const formatter::Finding& finding);
    void diagnoseUnsafe(std::uint32_t fileLine, std::string_view line, std::string_view loss);
    void explain(std::uint32_t fileLine, std::string_view words, std::string_view line);
    void printDiff(base::FileWriter& out) const;
    bool printsModule() const;

    const ModuleSource& source_;
    const FormatSettings& settings_;
    ModuleSettings* onDisk_;
    settings::LayoutSettings layout_;
    std::string name_; // the module's, in messages
    base::FileStamp stamp_{};
    std::optional<workspace::ModuleFile> file_;
    formatter::FormattedCode code_;
    std::optional<formatter::Finding> misplaced_; // of the classic layout
    std::optional<BackupName> backup_;
    std::string diagnostics_; // lines
    std::string notices_;     // lines
    std::string note_;
    std::string settingsProblem_;
    std::string summary_;
    Fate fate_ = Fate::Unchanged;
    ExitStatus status_ = exitDone;
};

} // namespace corvelle::cli
