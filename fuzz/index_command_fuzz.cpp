// `corvelle index` over a folder, with outputs that may be any of its files: none but the outputs changes,
// and of those no part of the project, only its line for the mapping module; the files that are made agree
// with one another and with the project; making them again changes nothing more. Of numbers that stay no name
// and no number that an earlier index has given gets lost or comes to another control.
//
// Input: files (see filesOf); the file without a name holds the options, "OPTION VALUE" a line. Without
// "numbering stable" the numbers are the classic ones.

#include "base/text.h"
#include "captured_streams.h"
#include "cli/index_command.h"
#include "cli/index_settings.h"
#include "ide/workspace/workspace.h"
#include "indexer/index_files.h"
#include "indexer/index_options.h"
#include "indexer/project_info.h"
#include "indexer/stable/earlier_index.h"
#include "indexer/stable/topics.h"
#include "indexer/text_file.h"
#include "require.h"
#include "vocabulary.h"
#include "work_folder.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace base = corvelle::base;
namespace cli = corvelle::cli;
namespace ide = corvelle::ide;
namespace indexer = corvelle::indexer;
namespace stable = corvelle::indexer::stable;
namespace fs = std::filesystem;
using corvelle::workspace::Component;
using corvelle::workspace::Workspace;

namespace {

fs::path real(const fs::path& path) {
    std::error_code ignored;
    return fs::weakly_canonical(path, ignored);
}

cli::IndexSettings settingsOf(const std::string& options) {
    cli::IndexSettings settings;
    settings.project = "p.vbp";
    settings.header = "a.h";
    settings.config = "a.hcnf";
    settings.isClassic = true;
    std::istringstream stream(options);
    for (std::string line; std::getline(stream, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        const auto space = std::min(line.find(' '), line.size());
        const auto key = line.substr(0, space);
        const auto value = line.substr(std::min(space + 1, line.size()));
        if (key == "components") settings.components = value;
        if (key == "exclude") settings.exclude = value;
        if (key == "module") settings.module = value;
        if (key == "replace") settings.replaceModule = true;
        if (key == "autoload") settings.autoload = true;
        if (key == "default") settings.defaultText = value;
        if (key == "numbering") settings.isClassic = value != "stable";
        if (key == "names") settings.names = value == "readable" ? "readable" : "sequence";
        if (key == "renames") settings.takesRenames = true;
        if (key == "restore") settings.restoresDeleted = true;
        if (key == "designers") settings.designersToo = true;
        if (!isPath(value)) continue;
        if (key == "header") settings.header = value;
        if (key == "config") settings.config = value;
        if (key == "list") settings.excludeList = value;
        if (key == "file") settings.moduleFile = value;
        if (key == "text") settings.text = value;
        if (key == "report") settings.report = value;
        if (key == "icp") settings.projectFile = value;
    }
    if (settings.isClassic) {
        settings.names = {};
        settings.takesRenames = settings.restoresDeleted = settings.designersToo = false;
    }
    return settings;
}

bool isUsage(const cli::IndexSettings& settings) {
    indexer::IndexOptions ignored;
    return cli::wrongUsage(settings).empty() &&
           !cli::checkBoxes(settings.components.value_or(""), cli::componentWords, ignored) &&
           !cli::checkBoxes(settings.exclude, cli::exclusionWords, ignored);
}

// What no run may change. The module that it may replace is given.
std::set<fs::path> protectedFiles(const Workspace& workspace, const cli::IndexSettings& settings) {
    std::set<fs::path> files;
    const auto& project = *workspace.projects().front();
    const auto addCompanions = [&](const fs::path& path) {
        for (const auto* ending : {".frx", ".ctx", ".pgx", ".dox", ".dsx"}) {
            auto companion = path;
            files.insert(real(companion.replace_extension(ending)));
        }
    };
    for (const auto& component : project.components()) {
        const bool isTheModule =
            settings.module && settings.replaceModule && component->Type() == ide::ComponentType::StdModule &&
            base::equalIgnoringCase(component->Name(), base::trimSpaces(*settings.module)) &&
            real(component->path()) == real(*settings.moduleFile);
        if (!isTheModule) files.insert(real(component->path()));
        addCompanions(component->path());
    }
    for (const auto& problem : workspace.problems()) {
        const bool isTheModule = settings.replaceModule && problem.type == ide::ComponentType::StdModule;
        if (!isTheModule) files.insert(real(problem.path));
    }
    if (settings.excludeList) files.insert(real(*settings.excludeList));
    files.insert(real("p.vbw"));
    return files;
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

void checkProjectFile(const Files& before, const Files& after) {
    auto was = linesOf(before.at("p.vbp")), is = linesOf(after.at("p.vbp"));
    // A CR that ends the last line is a character of it, and followed by a line's end then.
    for (auto* lines : {&was, &is}) {
        for (auto& line : *lines) line.erase(line.find_last_not_of('\r') + 1);
    }
    std::sort(was.begin(), was.end());
    std::sort(is.begin(), is.end());
    std::vector<std::string> gone, added;
    std::set_difference(was.begin(), was.end(), is.begin(), is.end(), std::back_inserter(gone));
    std::set_difference(is.begin(), is.end(), was.begin(), was.end(), std::back_inserter(added));
    require(gone.size() <= 1 && added.size() <= 1, "one line of the project is another");
    require(gone.empty() || added.size() == 1, "no line of the project is lost");
    for (const auto& line : added)
        require(line.find("Module=") != std::string::npos, "the new line is the module's");
}

struct Expected {
    std::vector<std::string> designers;
    std::vector<std::vector<std::string>> controls; // "NAME CLASS", by designer
    bool plain = true;                              // no name breaks a line
};

indexer::CheckValue boxOf(ide::ComponentType type, const indexer::IndexOptions& options) {
    switch (type) {
    case ide::ComponentType::VBForm:
        return options.ChkFrm;
    case ide::ComponentType::VBMDIForm:
        return options.ChkMDI;
    case ide::ComponentType::PropPage:
        return options.ChkPG;
    case ide::ComponentType::UserControl:
        return options.ChkActiveXCtl;
    case ide::ComponentType::DocObject:
        return options.ChkDOB;
    case ide::ComponentType::ActiveXDesigner:
        return options.ChkDsr;
    default:
        return 0;
    }
}

bool isLeftOut(const std::string& className, const indexer::ExcludeList& list, const std::string& exclude) {
    const auto upper = base::upper(className);
    if (std::find(list.begin(), list.end(), upper) != list.end()) return true;
    for (const auto* name : {"LABEL", "FRAME", "SHAPE", "MENU", "LINE", "TOOLBAR"}) {
        if (upper == name && ("," + base::upper(exclude) + ",").find("," + upper + "S,") != std::string::npos)
            return true;
    }
    return false;
}

// Letters, digits, _ and bytes above 127.
bool isNamePart(std::string_view text) {
    const auto isPart = [](unsigned char c) { return c > 127 || std::isalnum(c) != 0 || c == '_'; };
    return !text.empty() && std::all_of(text.begin(), text.end(), isPart);
}

// A letter or such a byte first.
bool isName(std::string_view text) {
    return isNamePart(text) && text[0] != '_' && std::isdigit(static_cast<unsigned char>(text[0])) == 0;
}

Expected expectedOf(const Workspace& workspace, const cli::IndexSettings& settings, const Files& before) {
    indexer::IndexOptions options;
    if (settings.components)
        cli::checkBoxes(*settings.components, cli::componentWords, options);
    else
        indexer::SetDefOption(*workspace.projects().front(), options);
    indexer::ExcludeList list;
    if (settings.excludeList) indexer::readExcludeList(before.at(*settings.excludeList), list);
    Expected expected;
    for (const auto& component : workspace.projects().front()->components()) {
        if (boxOf(component->Type(), options) != 1 || !isName(component->Name())) continue;
        expected.designers.push_back(component->Name());
        auto& controls = expected.controls.emplace_back();
        const auto& file = component->file();
        for (std::uint32_t i = 0; i < file.controlCount(); ++i) {
            const std::string className(file.controlClass(i));
            if (isLeftOut(className, list, settings.exclude)) continue;
            if (!isName(file.controlName(i)) || !isNamePart(className)) continue;
            controls.push_back(std::string(file.controlName(i)) + " " + className);
            expected.plain = expected.plain && controls.back().find('\r') == std::string::npos;
        }
        expected.plain = expected.plain && component->Name().find('\r') == std::string::npos;
    }
    return expected;
}

void checkFiles(const cli::IndexSettings& settings, const Expected& expected, const Files& after) {
    const auto index = indexer::readMappings(after.at(settings.config)).index;
    require(index.designers == expected.designers, "the designers are in the configuration");
    std::vector<std::vector<std::string>> controls(index.designers.size());
    std::vector<std::string> header{"#define IDH_AAAA  1000"}, constants, assignments;
    int number = 1000;
    for (std::size_t i = 1; i <= index.count(); ++i) {
        const auto& entry = index.entries[i];
        controls.at(static_cast<std::size_t>(entry.DsrIndex) - 1)
            .push_back(entry.CtlName + " " + entry.CtlClass);
        header.push_back("#define " + entry.IDHName + "  " + std::to_string(++number));
        constants.push_back("Public Const " + entry.IDHName + " = " + std::to_string(number));
        assignments.push_back("\t\t." + entry.CtlName + ".HelpContextID = " + entry.IDHName);
        require(entry.IDHName > index.entries[i - 1].IDHName, "the names ascend");
    }
    require(controls == expected.controls, "the controls are in the configuration");
    require(linesOf(after.at(settings.header)) == header, "the header has the configuration's names");
    if (settings.module) {
        std::vector<std::string> foundConstants, foundAssignments;
        for (const auto& line : linesOf(after.at(*settings.moduleFile))) {
            if (line.rfind("Public Const ", 0) == 0) foundConstants.push_back(line);
            if (line.rfind("\t\t.", 0) == 0) foundAssignments.push_back(line);
        }
        require(foundConstants == constants, "the module has the configuration's names");
        if (!settings.autoload) assignments.clear();
        require(foundAssignments == assignments, "the module assigns the configuration's names");
    }
    if (settings.text) {
        auto texts = index;
        for (auto& entry : texts.entries) entry.HelpText = "?";
        indexer::readTextEntries(after.at(*settings.text), texts, indexer::LastDefault::Read);
        for (const auto& entry : texts.entries) require(entry.HelpText != "?", "each entry has its topic");
    }
    if (settings.projectFile) {
        indexer::ProjectInfo info;
        const bool read = indexer::readProjectInfo(after.at(*settings.projectFile), info);
        require(!settings.text || expected.designers.empty() || read || info[0].empty(),
                "the indexer project is one");
        if (read) {
            require(info[indexer::slot::header] == settings.header &&
                        info[indexer::slot::configuration] == settings.config &&
                        info[indexer::slot::text] == settings.text.value_or(""),
                    "the indexer project names the files");
        }
    }
    if (settings.report) {
        const auto lines = linesOf(after.at(*settings.report));
        require(std::count(lines.begin(), lines.end(), "*** Indexing done ***") >= 1,
                "the report says that it is done");
    }
}

// Every name with its number that an index has given, those that wait and those that are retired too; each is
// given once, and a number twice only where the designers' files give it.
std::map<std::string, std::int32_t> givenIn(const stable::Memory& memory) {
    std::map<std::string, std::int32_t> given;
    std::set<std::int32_t> numbers;
    const auto add = [&](const std::string& name, std::int32_t number, bool isAdopted) {
        if (name == indexer::defaultIDH) return;
        require(given.emplace(name, number).second, "a name is given once: " + name);
        require(isAdopted || numbers.insert(number).second, "a number is given once: " + name);
    };
    for (const auto& control : memory.controls) add(control.idhName, control.number, control.isAdopted);
    for (const auto& retired : memory.retired) add(retired.idhName, retired.number, retired.isAdopted);
    return given;
}

std::string bytesOf(const Files& files, const std::string& name) {
    const auto found = files.find(name);
    return found == files.end() ? std::string() : found->second;
}

void checkStable(const cli::IndexSettings& settings, const Files& before, const Files& after) {
    const auto earlier =
        stable::readEarlierIndex(bytesOf(before, settings.header), bytesOf(before, settings.config));
    const auto now = stable::readEarlierIndex(after.at(settings.header), after.at(settings.config));
    require(earlier.fault.empty(), "what cannot be taken up stops a run");
    require(now.fault.empty(), "the next run can take it up: " + now.fault);
    const auto given = givenIn(now.index.memory);
    const auto requireKept = [&](const std::string& name, std::int32_t number) {
        if (name == indexer::defaultIDH) return;
        const auto kept = given.find(name);
        require(kept != given.end() && kept->second == number, "a name keeps its number: " + name);
    };
    std::map<std::string, const stable::RememberedControl*> owners;
    for (const auto& control : now.index.memory.controls) owners[control.idhName] = &control;
    for (const auto& control : earlier.index.memory.controls) {
        requireKept(control.idhName, control.number);
        const auto owner = owners.find(control.idhName);
        if (owner == owners.end() || control.idhName == indexer::defaultIDH || settings.takesRenames)
            continue;
        require(base::equalIgnoringCase(owner->second->place.designer, control.place.designer) &&
                    (!earlier.index.knowsIndices ||
                     base::equalIgnoringCase(owner->second->place.control, control.place.control)),
                "a name stays with its control: " + control.idhName);
    }
    for (const auto& retired : earlier.index.memory.retired) requireKept(retired.idhName, retired.number);
    if (!settings.text) return;
    const auto topics = stable::textsOf(after.at(*settings.text));
    for (const auto& control : now.index.memory.controls) {
        if (control.standing == stable::Standing::Indexed && !control.isLeftOut)
            require(topics.count(control.idhName) == 1, "each control has its topic: " + control.idhName);
    }
    for (const auto& [name, text] : stable::textsOf(bytesOf(before, *settings.text)))
        require(name == indexer::defaultIDH || topics.at(name) == text, "a text is kept: " + name);
}

// A text gains a space before it, and loses one between words, each time.
std::string withoutSpaces(std::string text) {
    text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
    return text;
}

// The files but for what tells the time.
Files withoutTimes(Files files, const cli::IndexSettings& settings) {
    if (settings.report) files.erase(*settings.report);
    if (settings.projectFile) files.erase(*settings.projectFile);
    if (settings.text && settings.isClassic) {
        auto& text = files[*settings.text];
        text = withoutSpaces(text);
    }
    return files;
}

struct Outcome {
    int status;
    bool done; // the results were printed
    std::string err;
};

Outcome run(const cli::IndexSettings& settings) {
    const CapturedStreams streams;
    const int status = cli::runIndex(settings);
    return {status, !streams.out().empty(), streams.err()};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const WorkFolder folder;
    const auto files = filesOf({reinterpret_cast<const char*>(data), size});
    const auto settings = settingsOf(files.at(""));
    if (!isUsage(settings)) return 0;
    WorkFolder::write(files);
    const auto before = WorkFolder::files();
    if (before.count("p.vbp") == 0) return 0;
    const auto workspace = Workspace::open("p.vbp");
    const auto keep = protectedFiles(*workspace, settings);

    const auto outcome = run(settings);
    const auto after = WorkFolder::files();
    require(outcome.status >= 0 && outcome.status <= 2, "the status is one");
    require(outcome.status == 0 || !outcome.err.empty(), "a failure is told");
    require(outcome.status != 0 || outcome.done, "what is done is told");
    const std::set<std::string> outputs{settings.header,
                                        settings.config,
                                        settings.moduleFile.value_or(""),
                                        settings.text.value_or(""),
                                        settings.report.value_or(""),
                                        settings.projectFile.value_or("")};
    for (const auto& name : differing(before, after)) {
        if (name == "p.vbp" && settings.module) continue;
        require(outputs.count(name) == 1, "only outputs change: " + name);
        require(keep.count(real(name)) == 0, "no part of the project changes: " + name);
    }
    checkProjectFile(before, after);
    if (!outcome.done || outcome.status == 2) return 0;

    if (settings.isClassic) {
        const auto expected = expectedOf(*workspace, settings, before);
        if (expected.plain) checkFiles(settings, expected, after);
    } else {
        checkStable(settings, before, after);
    }
    const auto again = run(settings);
    if (settings.module && !settings.replaceModule) {
        require(again.status >= 1 && WorkFolder::files() == after, "the second time the module is there");
        return 0;
    }
    require(again.done, "it can be made again");
    require(withoutTimes(WorkFolder::files(), settings) == withoutTimes(after, settings),
            "the second time changes nothing");
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    static const Phrases options{
        "header a.h",
        "header f.frx",
        "header m.bas",
        "config a.hcnf",
        "config a.h",
        "config p.vbw",
        "components",
        "components forms",
        "components forms,mdi,designers,docs,pages,controls",
        "exclude labels",
        "exclude frames,menus,lines",
        "list x.lst",
        "module modMap",
        "module $",
        "file map.bas",
        "file m.bas",
        "replace",
        "autoload",
        "text a.txt",
        "text k.cls",
        "default $",
        "report r.log",
        "report sub/g.frm",
        "icp i.icp",
        "icp F.FRX",
        "numbering stable",
        "numbering stable",
        "names readable",
        "renames",
        "restore",
        "designers",
        "header k.cls",
        "file k.cls",
        "text a.res",
    };
    static const auto phrases =
        vocabulary::together({options, options, vocabulary::project, vocabulary::files, vocabulary::designer,
                              vocabulary::designer, vocabulary::index, vocabulary::headerMemory});
    return mutateLines(data, size, maxSize, seed, phrases);
}
