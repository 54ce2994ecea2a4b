// A module's line can be put into any project file: all other bytes stay, the module is a member then, and to
// put it in again changes nothing.

#include "ide/workspace/project_file.h"
#include "require.h"
#include "vocabulary.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

namespace workspace = corvelle::workspace;

namespace {

const std::filesystem::path& folder() {
    static const auto made = [] {
        auto path = std::filesystem::temp_directory_path() / "corvelle-project-edit-fuzz";
        std::filesystem::create_directories(path);
        std::ofstream(path / "m.bas").put('\n');
        return path;
    }();
    return made;
}

long membersOf(const workspace::ProjectFile& file) {
    return std::count_if(file.members().begin(), file.members().end(), [](const auto& member) {
        return member.name == "M" && member.path == "m.bas" &&
               member.type == corvelle::ide::ComponentType::StdModule;
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    if (!bytes.empty() && bytes.back() == '\r') return 0; // the end of its last line would make that a CR LF
    const auto file = folder() / "m.bas";
    const auto edited = workspace::withModule(bytes, folder(), "M", file);
    const workspace::ProjectFile before(bytes), after(edited);
    require(membersOf(after) >= 1, "the module is a member");
    require(after.members().size() - before.members().size() <= 1, "one line at most is added");
    require(after.name() == before.name() && after.type() == before.type(), "the other lines are kept");
    require(edited.back() == '\n', "the last line is ended");
    require(workspace::withModule(edited, folder(), "M", file) == edited, "the second time changes nothing");
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    return mutateLines(data, size, maxSize, seed, vocabulary::project);
}
