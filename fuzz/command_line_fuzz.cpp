// Any arguments are understood or refused: a wrong usage and a run that only looks write nothing, no file is
// ever lost, and an option's value says the same behind an equals sign and as an argument of its own.
//
// Input: an argument a line.

#include "cli/command_line.h"
#include "redirected_streams.h"
#include "require.h"
#include "vocabulary.h"
#include "work_folder.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Arguments = std::vector<std::string>;

constexpr std::string_view untidy = "Sub Greet()\r\nIf a Then\r\n' x\r\n\r\nb 'y\r\nEnd If\r\nEnd Sub\r\n";

const Files& givenFiles() {
    static const Files files = {
        {"p.vbp", "Type=Exe\r\nForm=f.frm\r\nModule=m; m.bas\r\nName=\"P\"\r\n"},
        {"g.vbg", "VBGROUP 5.0\r\nStartupProject=p.vbp\r\n"},
        {"m.bas", "Attribute VB_Name = \"m\"\r\n" + std::string(untidy)},
        {"sub/k.cls", std::string(untidy)},
        {".editorconfig", "root = true\n[*.bas]\nindent_size = 3\n[*.cls]\ncorvelle_layout = classic\n"},
        {"f.frm",
         "VERSION 5.00\r\nBegin VB.Form f \r\n   Begin VB.TextBox t \r\n   End\r\nEnd\r\nAttribute VB_Name = "
         "\"f\"\r\n" +
             std::string(untidy)},
        {"i.icp",
         "Indexer project file :now\r\nVB Project Name= P\r\nProject File= p.vbp\r\nHeader file= a.h\r\n"
         "Configuration File= a.hcnf\r\nText File= a.txt\r\nModule Name= \r\nModule File= \r\n"},
        {"a.hcnf", "<P>f</P>\r\n<C>t TextBox IDH_AAAB</C>\r\n"},
        {"a.txt", ".topic  IDH_AAAA\r\nNone.\r\n.topic  IDH_AAAB\r\nText\r\n"},
    };
    return files;
}

// No argument may lead out of the folder.
bool isSafe(const std::string& argument) {
    const auto equals = argument.find('=');
    const bool isOption = argument.rfind("--", 0) == 0 && equals != std::string::npos;
    const auto value = isOption ? argument.substr(equals + 1) : argument;
    return (value.find('/') == std::string::npos && argument.find("..") == std::string::npos) ||
           isPath(value);
}

struct Outcome {
    int status;
    std::string out, err;
    Files files;
    bool isWrongUsage() const { return status == 2 && err.find("Run with --help") != std::string::npos; }
    bool operator==(const Outcome& other) const {
        if (isWrongUsage())
            return other.isWrongUsage() && files == other.files; // the words repeat the arguments
        return status == other.status && out == other.out && err == other.err && files == other.files;
    }
};

Outcome run(const Arguments& arguments) {
    const WorkFolder folder;
    WorkFolder::write(givenFiles());
    std::ofstream("../in", std::ios::binary) << untidy;
    std::vector<const char*> argv{"corvelle"};
    for (const auto& argument : arguments) argv.push_back(argument.c_str());
    Outcome outcome{};
    {
        const RedirectedStreams streams("../in", "../out", "../err");
        outcome.status = corvelle::cli::runCommandLine(static_cast<int>(argv.size()), argv.data());
    }
    const auto read = [](const char* path) {
        std::ifstream stream(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(stream), {});
    };
    outcome.out = read("../out");
    outcome.err = read("../err");
    outcome.files = WorkFolder::files();
    return outcome;
}

bool onlyLooks(const Arguments& arguments) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const auto& argument = arguments[i];
        if (argument == "--") return false;
        const bool mayBeValue = i > 0 && arguments[i - 1].rfind("-", 0) == 0;
        if (mayBeValue) continue;
        if (argument == "--check" || argument == "--diff" || argument == "--stdout" || argument == "--help" ||
            argument == "--version" || argument == "--show-settings" || argument == "list")
            return true;
    }
    return false;
}

// The arguments with each value behind its option.
Arguments apart(const Arguments& arguments) {
    Arguments result;
    bool options = true;
    for (const auto& argument : arguments) {
        if (argument == "--") options = false;
        const auto equals = argument.find('=');
        if (!options || argument.rfind("--", 0) != 0 || equals == std::string::npos) {
            result.push_back(argument);
            continue;
        }
        result.push_back(argument.substr(0, equals));
        result.push_back(argument.substr(equals + 1));
    }
    return result;
}

// Whether some option's value could be taken for something else when it stands alone, or be no value at all.
bool isAmbiguous(const Arguments& arguments) {
    return std::any_of(arguments.begin(), arguments.end(), [](const std::string& argument) {
        const auto equals = argument.find('=');
        if (argument.rfind("--", 0) != 0 || equals == std::string::npos) return false;
        const auto name = argument.substr(0, equals), value = argument.substr(equals + 1);
        const bool takesValue = name == "--tab-width" || name == "--backup-dir" || name == "--stdin-name" ||
                                name == "--jobs" || name == "--layout" || name == "--style" ||
                                name == "--max-empty-lines";
        return !takesValue || value.empty() || value.front() == '-';
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Arguments arguments;
    std::istringstream stream(std::string(data, data + size));
    for (std::string line; std::getline(stream, line) && arguments.size() < 20;) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        line = line.substr(0, line.find('\0'));
        if (!isSafe(line)) return 0;
        arguments.push_back(line);
    }
    const auto outcome = run(arguments);
    require(outcome.status >= 0 && outcome.status <= 2, "the status is one");
    require(outcome.status == 0 || !outcome.err.empty() || !outcome.out.empty(), "a failure is told");
    const auto changed = differing(givenFiles(), outcome.files);
    require(changed.empty() || !outcome.isWrongUsage(), "a wrong usage writes nothing");
    const bool isIndex = !arguments.empty() && arguments.front() == "index";
    require(changed.empty() || isIndex || !onlyLooks(arguments), "looking writes nothing");
    const auto separate = apart(arguments);
    const bool isFormat = !arguments.empty() && arguments.front() == "format";
    if (isFormat && separate != arguments && !isAmbiguous(arguments))
        require(run(separate) == outcome, "both spellings say the same");
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    static const Phrases phrases{
        "format",
        "index",
        "text",
        "m.bas",
        "f.frm",
        "sub/k.cls",
        "sub",
        "p.vbp",
        "g.vbg",
        "-",
        ".",
        "--",
        "i.icp",
        "list",
        "set",
        "default",
        "delete",
        "f",
        "t",
        "t#1",
        "t#2",
        "a text",
        "--tab-width=#",
        "--tab-width",
        "#",
        "10",
        "11",
        "007",
        "--layout=structured",
        "--layout=classic",
        "--layout",
        "structured",
        "classic",
        "--style=case=flush",
        "--style=unit=tab",
        "--style=procedure=flush",
        "--style",
        "directive=code",
        "margin_comments=follow",
        "--trim",
        "--max-empty-lines=#",
        "--max-empty-lines",
        "--show-settings",
        "--remove-empty-lines",
        "--remove-comment-lines",
        "--remove-trailing-comments",
        "--check",
        "--diff",
        "--stdout",
        "--force",
        "--backup-dir=b",
        "--backup-dir",
        "--stdin-name=$",
        "--stdin-name",
        "x.cls",
        "--jobs=#",
        "--jobs",
        "--quiet",
        "--help",
        "-h",
        "--version",
        "--header=a.h",
        "--header",
        "--config=a.hcnf",
        "--components=forms,mdi",
        "--components=",
        "--exclude=labels",
        "--exclude-list=a.txt",
        "--module=$",
        "--module-file=map.bas",
        "--module-file=m.bas",
        "--replace-module",
        "--autoload",
        "--text=a.txt",
        "--default-text=x",
        "--report=r.log",
        "--project-file=i.icp",
        "[a,b]",
        "--stdin-name=[a,b]",
        "'a b'",
        "\"x\"",
        "",
        "\xE4",
        "--check=false",
        "--tab-width=-1",
        "/x",
        "=",
    };
    return mutateLines(data, size, maxSize, seed, phrases);
}
