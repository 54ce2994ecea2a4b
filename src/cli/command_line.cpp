#include "cli/command_line.h"

#include "cli/format_command.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <iostream>
#include <thread>

namespace corvelle::cli {

namespace {

constexpr unsigned mostJobs = 1024;

void addFormat(CLI::App& app, FormatSettings& settings) {
    CLI::App& format = *app.add_subcommand("format", "Re-indent Visual Basic 6 modules block by block");
    format.footer(
        "PATH is a module file, a project (.vbp), a project group (.vbg), a directory, or - for one\n"
        "module from standard input to standard output.\n\n"
        "Exit status: 0 done; 1 something must be looked at (structural errors, unsafe lines, files that\n"
        "would change with --check); 2 wrong usage, or a file that could not be read or written.");
    format.add_option("PATH", settings.paths, "What to format")->required();
    format.add_option("--tab-width", settings.options.mTab, "Spaces per level, 0 to 10")
        ->check(CLI::Range(0, 10))
        ->capture_default_str();
    format.add_flag("--remove-empty-lines", settings.options.bNoEmpty, "Remove all empty lines");
    format.add_flag("--remove-comment-lines", settings.options.bNoCmntLn,
                    "Remove all lines which have only comments");
    format.add_flag("--remove-trailing-comments", settings.options.bNoAllCmnt,
                    "Remove trailing comments from code lines");
    format.add_flag("--check", settings.check,
                    "Write nothing; print the path of every file that would change");
    format.add_flag("--diff", settings.diff,
                    "Write nothing; print a unified diff of every file that would change");
    format.add_flag("--stdout", settings.toStandardOutput, "Write nothing; print the formatted file");
    format.add_flag("--force", settings.force,
                    "Write or print the result although structural errors or unsafe lines were found");
    format.add_option("--backup-dir", settings.backupDir, "Save a file's code there before it is rewritten")
        ->option_text("DIR");
    format.add_option("--stdin-name", settings.stdinName, "The name of the module on standard input")
        ->option_text("NAME");
    format
        .add_option("--jobs", settings.jobs, "Modules formatted at once (default: the number of processors)")
        ->check(CLI::Range(1U, mostJobs))
        ->option_text("N");
    format.add_flag("--quiet", settings.quiet, "No lines but errors and results");
    format.callback([&settings] {
        if (settings.toStandardOutput && (settings.check || settings.diff)) {
            throw CLI::ValidationError("--stdout", "cannot be used with --check or --diff");
        }
    });
}

} // namespace

int runCommandLine(int argc, const char* const* argv) {
    CLI::App app("The code formatter for Visual Basic 6 projects, without the IDE", "corvelle");
    app.set_version_flag("--version", "corvelle " CORVELLE_VERSION);
    app.require_subcommand(1);
    FormatSettings settings;
    settings.jobs = std::clamp(std::thread::hardware_concurrency(), 1U, mostJobs);
    addFormat(app, settings);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& asked) { // --help, --version
        return app.exit(asked);
    } catch (const CLI::ParseError& error) {
        app.exit(error);
        return exitFailed;
    }
    return runFormat(settings);
}

} // namespace corvelle::cli
