// `corvelle index --properties` over a folder: a designer's file gets lines of help properties and nothing
// else, a second run changes nothing more, and `remove` gives every designer its old bytes.
//
// Input: files (see filesOf); the first byte of the one without a name picks the properties.

#include "captured_streams.h"
#include "cli/index_command.h"
#include "cli/index_settings.h"
#include "require.h"
#include "vocabulary.h"
#include "work_folder.h"

#include <algorithm>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

namespace cli = corvelle::cli;

namespace {

struct Outcome {
    bool done; // the results were printed
    bool replacesNumbers;
};

Outcome run(const cli::IndexSettings& settings) {
    const CapturedStreams streams;
    cli::runIndex(settings);
    return {!streams.out().empty(), streams.err().find(" was ") != std::string::npos};
}

cli::IndexSettings settingsOf(std::uint8_t choice) {
    using Choice = cli::PropertyChoice;
    constexpr Choice choices[] = {Choice::Help, Choice::WhatsThis, Choice::Both, Choice::Both};
    cli::IndexSettings settings;
    settings.project = "p.vbp";
    settings.header = "a.h";
    settings.config = "a.hcnf";
    settings.components = "forms,mdi,designers,docs,pages,controls";
    settings.designersToo = (choice & 4) != 0;
    settings.properties.properties = choices[choice % 4];
    settings.properties.whatsThisForms = choice % 4 == 3;
    settings.properties.overwriteNumbers = (choice & 8) != 0;
    return settings;
}

bool isIndexFile(const std::string& name) {
    return name == "a.h" || name == "a.hcnf";
}

Files designersOf(Files files) {
    std::erase_if(files, [](const auto& file) { return isIndexFile(file.first); });
    return files;
}

// The lines that the new text has and the old one has not, in their order; the old ones are all there.
std::vector<std::string> addedLines(const std::string& before, const std::string& after) {
    std::vector<std::string> added;
    std::istringstream was(before), is(after);
    std::string old, line;
    bool anyOld = static_cast<bool>(std::getline(was, old));
    while (std::getline(is, line)) {
        if (anyOld && line == old)
            anyOld = static_cast<bool>(std::getline(was, old));
        else
            added.push_back(line);
    }
    require(!anyOld, "no line is lost");
    return added;
}

void checkDesigners(const Files& before, const Files& after) {
    for (const auto& name : differing(before, after)) {
        require(before.count(name) == 1 && after.count(name) == 1, "no file comes or goes: " + name);
        for (const auto& line : addedLines(before.at(name), after.at(name)))
            require(line.find("HelpContextID   =   ") != std::string::npos ||
                        line.find("WhatsThis") != std::string::npos,
                    "the new lines are help properties");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const WorkFolder folder;
    const auto files = filesOf({reinterpret_cast<const char*>(data), size});
    const auto options = files.at("");
    auto settings = settingsOf(options.empty() ? 0 : static_cast<std::uint8_t>(options[0]));
    WorkFolder::write(files);
    const auto before = WorkFolder::files();
    if (before.count("p.vbp") == 0) return 0;

    const auto first = run(settings);
    const auto after = WorkFolder::files();
    if (!first.done) {
        require(after == before, "a run that fails changes nothing");
        return 0;
    }
    if (!first.replacesNumbers) checkDesigners(designersOf(before), designersOf(after));
    const auto second = run(settings);
    require(second.done, "it can be run again");
    require(WorkFolder::files() == after, "a second time there is nothing to write");

    settings.properties = {};
    settings.properties.properties = cli::PropertyChoice::Remove;
    require(run(settings).done, "it can be taken back");
    const bool hadIndex = before.count("a.h") != 0 || before.count("a.hcnf") != 0;
    if (first.replacesNumbers || hadIndex) return 0;
    require(designersOf(WorkFolder::files()) == designersOf(before), "every designer has its old bytes");
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    static const auto phrases = vocabulary::together({vocabulary::project,
                                                      vocabulary::files,
                                                      vocabulary::designer,
                                                      vocabulary::designer,
                                                      {
                                                          "   Begin Lib.Control $ ",
                                                          "      Height = #",
                                                          "      Width = #",
                                                          "      HelpContextID   =   #",
                                                          "      WhatsThisHelpID = #",
                                                          "   WhatsThisHelp = 0 'False",
                                                          "   BorderStyle = 3",
                                                          "0",
                                                          "3",
                                                          "6",
                                                          ";",
                                                      }});
    return mutateLines(data, size, maxSize, seed, phrases);
}
