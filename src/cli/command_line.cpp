#include "cli/command_line.h"

#include "cli/format_command.h"
#include "cli/index_command.h"
#include "cli/nearest_word.h"
#include "cli/terminal.h"
#include "cli/text_command.h"
#include "version.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <charconv>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::cli {

namespace {

// The parser takes an argument in brackets for a list and splits it. A byte that no argument can hold keeps
// it whole until it has arrived.
constexpr char keptWhole = '\0';

std::vector<std::string> argumentsLastFirst(int argc, const char* const* argv) {
    std::vector<std::string> arguments;
    for (int i = argc - 1; i > 0; --i) {
        std::string& argument = arguments.emplace_back(argv[i]);
        if (!argument.empty() && argument.front() == '[' && argument.back() == ']') argument += keptWhole;
    }
    return arguments;
}

CLI::Validator asGiven() {
    const auto restore = [](std::string& text) {
        if (!text.empty() && text.back() == keptWhole) text.pop_back();
        return std::string();
    };
    return CLI::Validator(restore, "");
}

// Decimal digits alone; the parser would read a leading zero as octal.
CLI::Validator wholeNumber(unsigned lowest, unsigned highest) {
    const auto read = [lowest, highest](std::string& text) {
        unsigned value = 0;
        const char* const end = text.data() + text.size();
        const auto [rest, error] = std::from_chars(text.data(), end, value);
        if (error != std::errc() || rest != end || value < lowest || value > highest) {
            return text + " is not a whole number from " + std::to_string(lowest) + " to " +
                   std::to_string(highest);
        }
        text = std::to_string(value);
        return std::string();
    };
    return CLI::Validator(read, "");
}

// KEY=VALUE, several times; the last value of a key holds.
CLI::Validator styleValue() {
    const auto check = [](std::string& text) -> std::string {
        const std::size_t equals = text.find('=');
        if (equals == std::string::npos) return "\"" + text + "\" is not KEY=VALUE";
        return settings::wrongStyle(text.substr(0, equals), text.substr(equals + 1));
    };
    return CLI::Validator(check, "");
}

void addLayout(CLI::App& format, settings::LayoutOptions& layout) {
    const auto choose = [&layout](const std::string& word) {
        layout.layout = word == "classic" ? settings::Layout::Classic : settings::Layout::Structured;
    };
    format
        .add_option_function<std::string>(
            "--layout", choose,
            "structured: by the language's blocks, in the module's own style; classic: by the rules of the add-in")
        ->take_last()
        ->option_text("structured|classic")
        ->check(CLI::IsMember({"structured", "classic"}));
    const auto setStyle = [&layout](const std::vector<std::string>& values) {
        for (const auto& value : values) {
            const std::size_t equals = value.find('=');
            layout.style[value.substr(0, equals)] = value.substr(equals + 1);
        }
    };
    format
        .add_option_function<std::vector<std::string>>(
            "--style", setStyle,
            "One key of the structured layout's style, as in an .editorconfig behind corvelle_: case=flush, unit=tab, ...; several times")
        ->allow_extra_args(false)
        ->option_text("KEY=VALUE")
        ->check(styleValue());
    format.add_flag("--trim", layout.trim, "Structured layout: remove the blanks at the ends of lines");
    format
        .add_option("--max-empty-lines", layout.maxEmptyLines,
                    "Structured layout: fold longer runs of empty lines")
        ->take_last()
        ->option_text("N")
        ->transform(wholeNumber(0, 65534));
}

void addFormat(CLI::App& app, FormatSettings& settings) {
    CLI::App& format = *app.add_subcommand("format", "Re-indent Visual Basic 6 modules block by block");
    format.footer(
        "PATH is a module file (.bas, .cls, .frm, .ctl, .pag, .dob, .dsr), a project (.vbp: all its\n"
        "modules), a project group (.vbg: all its projects), a directory (every module file below it), or\n"
        "- for one module from standard input to standard output.\n\n"
        "With --layout classic the removal options are the add-in's. They are not idempotent: a comment that is\n"
        "cut leaves the blanks before it, so that a second run may change lines again. And many trailing comments\n"
        "stay: all that stand above a module's first declaration, all of a module without one, and all of a\n"
        "module that is refused because a literal would be cut.\n\n"
        "What a project names is formatted wherever it stands, if it is a file with a module's ending. Told and\n"
        "skipped are other files, links that lead out of a directory, and paths on the network or of devices.\n\n"
        "Exit status: 0 done; 1 something must be looked at (structural errors, unsafe lines, a header that\n"
        "never ends, a file that was skipped, files that would change with --check); 2 wrong usage, or a file\n"
        "that could not be read or written. The largest one that applies wins.");
    const auto option = [&format](const char* name, auto& value, const char* text, const char* description) {
        return format.add_option(name, value, description)->take_last()->option_text(text);
    };
    const auto removal = [&format](const char* name, std::uint8_t& flag, const char* description) {
        format.add_flag_callback(
            name, [&flag] { flag = 1; }, description);
    };
    format.add_option("PATH", settings.paths, "What to format")
        ->required()
        ->option_text("...")
        ->transform(asGiven());
    addLayout(format, settings.layout);
    option("--tab-width", settings.layout.tabWidth, "N",
           "Spaces per level, 0 to 10; default: the module's own, with --layout classic 2")
        ->transform(wholeNumber(0, 10));
    removal("--remove-empty-lines", settings.options.bNoEmpty, "Remove all empty lines");
    removal("--remove-comment-lines", settings.options.bNoCmntLn, "Remove lines that have only comments");
    removal("--remove-trailing-comments", settings.options.bNoAllCmnt,
            "Remove trailing comments from code lines; with --layout classic many stay, see below");
    format.add_flag("--check", settings.check,
                    "Write nothing; print the path of every file that would change");
    format.add_flag("--diff", settings.diff,
                    "Write nothing; print a unified diff of every file that would change");
    format.add_flag("--stdout", settings.toStandardOutput, "Write nothing; print the formatted file");
    format.add_flag("--show-settings", settings.showSettings,
                    "Write nothing; print what holds for each module, and where each value comes from");
    format.add_flag("--force", settings.force,
                    "Write or print the result although structural errors or unsafe lines were found");
    format.add_flag("--break-links", settings.breakLinks,
                    "Rewrite a file that has other hard links, which keep its old bytes; else it is refused");
    option("--backup-dir", settings.backupDir, "DIR",
           "Save a copy of the whole file there before it is rewritten, as NAME_bak, or as the next free one "
           "of NAME_bak2, ...: no file is ever replaced")
        ->transform(asGiven());
    option("--stdin-name", settings.stdinName, "NAME",
           "What to call - in messages; its ending tells the kind of module")
        ->transform(asGiven());
    option("--jobs", settings.jobs, "N", "Modules formatted at once; default: the number of processors")
        ->transform(wholeNumber(1, mostJobs));
    format.add_flag("--quiet", settings.quiet, "No lines but errors and results");
    format.callback([&settings] {
        if (settings.showSettings && (settings.check || settings.diff || settings.toStandardOutput)) {
            throw CLI::ValidationError("--show-settings", "cannot be used with --check, --diff or --stdout");
        }
        if (settings.toStandardOutput && (settings.check || settings.diff)) {
            throw CLI::ValidationError("--stdout", "cannot be used with --check or --diff");
        }
        if (settings.backupDir && settings.backupDir->empty()) {
            throw CLI::ValidationError("--backup-dir", "the folder's name is empty");
        }
    });
}

// Comma-separated words of a table.
CLI::Validator wordsOf(const std::array<OptionWord, 6>& words) {
    const auto check = [&words](std::string& list) -> std::string {
        indexer::IndexOptions ignored;
        const auto unknown = checkBoxes(list, words, ignored);
        if (!unknown) return {};
        std::string known;
        for (const auto& word : words) known.append(known.empty() ? "" : ", ").append(word.word);
        return "\"" + *unknown + "\" is none of " + known;
    };
    return CLI::Validator(check, "");
}

void addNumbering(CLI::App& index, IndexSettings& settings) {
    index
        .add_option_function<std::string>(
            "--numbering", [&settings](const std::string& word) { settings.isClassic = word == "classic"; },
            "stable: a control keeps its name and number from run to run, what the header remembers; classic: all are numbered anew, as by the add-in")
        ->take_last()
        ->option_text("stable|classic")
        ->check(CLI::IsMember({"stable", "classic"}));
    index
        .add_option("--names", settings.names, "Names of new controls: IDH_AAAB or IDH_frmOrder_cboSupplier")
        ->take_last()
        ->option_text("sequence|readable")
        ->check(CLI::IsMember({"sequence", "readable"}));
    index.add_flag("--designers", settings.designersToo,
                   "Give each form, user control, property page and document an entry of its own");
    index.add_flag("--renames", settings.takesRenames,
                   "Take the renames that are offered: the control keeps name, number and text");
    index.add_flag("--no-renames", settings.declinesRenames,
                   "Take none of them, and do not offer them again");
    index.add_flag("--restore", settings.restoresDeleted,
                   "Take controls that were deleted from the index into it again");
    index.add_flag("--check", settings.check,
                   "Write nothing; list where the index's files do not match the project");
}

void addProperties(CLI::App& index, IndexSettings& settings) {
    const auto choose = [&settings](const std::string& word) {
        using Choice = PropertyChoice;
        settings.properties.properties = word == "help"        ? Choice::Help
                                         : word == "whatsthis" ? Choice::WhatsThis
                                         : word == "both"      ? Choice::Both
                                         : word == "remove"    ? Choice::Remove
                                                               : Choice::None;
    };
    index
        .add_option_function<std::string>(
            "--properties", choose,
            "Write the numbers into the designers' files: help: HelpContextID; whatsthis: WhatsThisHelpID, and switch "
            "the forms' WhatsThisHelp on; both; remove: take out what earlier runs have written; default: none")
        ->take_last()
        ->option_text("help|whatsthis|both|none|remove")
        ->check(CLI::IsMember({"help", "whatsthis", "both", "none", "remove"}));
    index.add_flag(
        "--whatsthis-forms", settings.properties.whatsThisForms,
        "With --properties both: switch the forms' WhatsThisHelp on, which turns their F1 topics off");
    index.add_flag(
        "--overwrite-numbers", settings.properties.overwriteNumbers,
        "With --properties: replace other numbers that stand in the designers' files; else they stay");
    index
        .add_option("--help-file", settings.helpFile, "The help file's name for the project's HelpFile line")
        ->take_last()
        ->option_text("NAME")
        ->transform(asGiven());
    index.add_flag(
        "--diff", settings.diff,
        "Write nothing; print a unified diff of the designers' and the project's files that would change");
    index
        .add_option(
            "--backup-dir", settings.backupDir,
            "Save copies of the designers' and the project's files there before they are replaced, as NAME_bak, "
            "or as the next free one of NAME_bak2, ...")
        ->take_last()
        ->option_text("DIR")
        ->transform(asGiven());
}

void addIndex(CLI::App& app, IndexSettings& settings) {
    CLI::App& index = *app.add_subcommand("index", "Give the controls of a project help context IDs");
    index.footer(
        "PROJECT.vbp is a project file; its designers and their controls are read from the disk.\n\n"
        "A control keeps its name, number and text from run to run: the header remembers what is needed for that in\n"
        "comment lines. Where a control seems to be renamed, each run says so until --renames or --no-renames.\n\n"
        "All files are replaced together or none. An old one must be empty or one that this command or the\n"
        "add-in has written; --overwrite replaces any other too, but never a file of the project.\n\n"
        "Exit status: 0 done; 1 something must be looked at (an invalid module name, a control's name that is\n"
        "none, a mapping module that would be too long, renames to decide on, what --check lists); 2 wrong usage,\n"
        "or a file that could not be read or written.");
    const auto option = [&index](const char* name, auto& value, const char* text, const char* description) {
        return index.add_option(name, value, description)
            ->take_last()
            ->option_text(text)
            ->transform(asGiven());
    };
    index.add_option("PROJECT.vbp", settings.project, "The project to index")
        ->required()
        ->option_text(" ")
        ->transform(asGiven());
    option("--header", settings.header, "FILE", "The header file (.h); required")->required();
    option("--config", settings.config, "FILE", "The configuration file (.hcnf); required")->required();
    option("--components", settings.components, "LIST",
           "Comma-separated: forms,mdi,designers,docs,pages,controls; default: by the project's type")
        ->check(wordsOf(componentWords));
    option("--exclude", settings.exclude, "LIST",
           "Comma-separated: labels,frames,shapes,menus,lines,toolbars; default: none")
        ->check(wordsOf(exclusionWords));
    option("--exclude-list", settings.excludeList, "FILE", "A file with the control classes to leave out");
    option("--module", settings.module, "NAME", "Add a module of that name with all the mappings");
    option("--module-file", settings.moduleFile, "FILE", "Its file; needed with --module");
    index.add_flag("--replace-module", settings.replaceModule,
                   "Replace the project's module of that name and file, if it has one");
    index.add_flag("--autoload", settings.autoload,
                   "Create a procedure for each designer that assigns the numbers; needs --module");
    option("--text", settings.text, "FILE",
           "Write the text pop-up file; the texts that it holds already are kept");
    option("--default-text", settings.defaultText, "TEXT", "The default topic's text, with --text");
    option("--report", settings.report, "FILE", "Save the report (.log)");
    option("--project-file", settings.projectFile, "FILE", "Save the indexer project (.icp)");
    addNumbering(index, settings);
    addProperties(index, settings);
    index.add_flag("--overwrite", settings.overwrite, "Replace files that this command has not written");
    index.callback([&settings] {
        const auto wrong = wrongUsage(settings);
        if (!wrong.empty()) throw CLI::ParseError(wrong, CLI::ExitCodes::ValidationError);
    });
}

// `corvelle text PROJECT.icp COMMAND`: each command is one of the parser's own, so that each has its help.
void addText(CLI::App& app, TextSettings& settings) {
    CLI::App& text = *app.add_subcommand("text", "Edit the text entries of an index that was made earlier");
    text.footer(
        "PROJECT.icp is an indexer project file; a relative path in it is taken from the current folder, else\n"
        "from the project file's. CONTROL#2 is the second control of a name, as a control array has them.\n\n"
        "An edit changes the lines of one topic and keeps every other byte; its files are written together or\n"
        "not at all. It writes over no file that somebody else has changed meanwhile, no text file whose first\n"
        "topic is not IDH_AAAA, and no configuration file with lines of other kinds.\n\n"
        "Exit status: 0 done; 1 something must be looked at (an invalid project file, a configuration or text\n"
        "file that is missing, an unknown designer or control, a control whose text cannot be set); 2 wrong\n"
        "usage, or a file that could not be read or written.");
    text.add_option("PROJECT.icp", settings.project, "The index to edit")
        ->required()
        ->option_text(" ")
        ->transform(asGiven());
    text.require_subcommand(1, 1);
    const auto add = [&](const char* name, TextAction action, const char* description) -> CLI::App& {
        CLI::App& command = *text.add_subcommand(name, description);
        command.callback([&settings, action] { settings.action = action; });
        return command;
    };
    const auto takes = [](CLI::App& command, const char* name, std::string& value, const char* description) {
        command.add_option(name, value, description)->required()->option_text(" ")->transform(asGiven());
    };
    const auto takesControl = [&](CLI::App& command) -> CLI::App& {
        takes(command, "DESIGNER", settings.designer, "The form, control or other designer");
        takes(command, "CONTROL", settings.control, "Its control; CONTROL#2 is the second of that name");
        return command;
    };
    add("list", TextAction::List, "Print a line a control: designer, control, class, IDH_ name, text");
    CLI::App& set = takesControl(add("set", TextAction::Set, "Give a control a text"));
    takes(set, "TEXT", settings.text, "The text");
    set.footer("A TEXT that begins with - comes after an argument --");
    takesControl(add("default", TextAction::Default, "Put a control on the default text"));
    takesControl(add("delete", TextAction::Delete, "Take a control out of the index"));
    add("missing", TextAction::Missing, "Print a line for each control that has no text");
    add("left-over", TextAction::LeftOver, "Print the texts whose controls are not in the index any more");
    add("prune", TextAction::Prune, "Take those texts out of the text file");
    const auto takesTable = [&](CLI::App& command) -> CLI::App& {
        takes(command, "FILE.csv", settings.table, "The table: UTF-8, a row a control");
        return command;
    };
    takesTable(add("export", TextAction::Export, "Write all texts into a table for a spreadsheet"));
    takesTable(add("import", TextAction::Import, "Take the texts of such a table: all of them or none"))
        .add_flag("--partial", settings.partial,
                  "Take the texts that have a place although others have none");
}

std::vector<std::string> namesOf(const CLI::App& app) {
    std::vector<std::string> names;
    for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
        names.push_back(command->get_name());
    }
    return names;
}

// What is wrong where a command is meant; empty if it is one, or an option.
std::string whatIsNoCommand(const CLI::App& app, std::string_view word) {
    const auto names = namesOf(app);
    if (word.substr(0, 1) == "-" || std::find(names.begin(), names.end(), word) != names.end()) return {};
    std::string message = "unknown command '" + std::string(word) + "'; ";
    const auto near = nearestWord(word, names);
    if (!near.empty()) return message + "did you mean '" + near + "'?";
    std::string list;
    for (const auto& name : names) list += (list.empty() ? "" : ", ") + name;
    return message + "the commands are " + list;
}

void requireCommands(const CLI::App& app, int argc, const char* const* argv) {
    std::string wrong;
    if (argc > 1) wrong = whatIsNoCommand(app, argv[1]);
    if (argc > 3 && std::string_view(argv[1]) == "text" && argv[2][0] != '-') {
        const CLI::App& text = *app.get_subcommand("text");
        if (!whatIsNoCommand(text, argv[2]).empty()) wrong = whatIsNoCommand(text, argv[3]);
    }
    if (!wrong.empty()) throw CLI::ParseError(wrong, CLI::ExitCodes::ExtrasError);
}

// The arguments that a message repeats are anybody's bytes.
std::string usageMessage(const CLI::App*, const CLI::Error& error) {
    return shown(error.what()) + "\nRun with --help for more information.\n";
}

} // namespace

int runCommandLine(int argc, const char* const* argv) {
    CLI::App app(
        "The code formatter and the help context ID indexer for Visual Basic 6 projects, without the IDE",
        "corvelle");
    app.allow_windows_style_options(false); // what begins with a slash is a path there too
    app.set_version_flag("--version", "corvelle " CORVELLE_VERSION);
    app.require_subcommand(0, 1);
    app.failure_message(usageMessage);
    FormatSettings settings;
    addFormat(app, settings);
    IndexSettings indexSettings;
    addIndex(app, indexSettings);
    TextSettings textSettings;
    addText(app, textSettings);
    try {
        requireCommands(app, argc, argv);
        app.parse(argumentsLastFirst(argc, argv));
        if (app.get_subcommands().empty()) throw CLI::RequiredError("A command");
    } catch (const CLI::Success& asked) { // --help, --version
        app.exit(asked);
        if (std::cout.flush()) return exitDone;
        std::cerr << "standard output: could not be written" << std::endl;
        return exitFailed;
    } catch (const CLI::ParseError& error) {
        app.exit(error);
        return exitFailed;
    }
    if (app.got_subcommand("index")) return runIndex(indexSettings);
    return app.got_subcommand("text") ? runText(textSettings) : runFormat(settings);
}

} // namespace corvelle::cli
