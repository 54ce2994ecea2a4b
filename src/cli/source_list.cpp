#include "cli/source_list.h"

#include "base/file.h"
#include "base/run_time_error.h"
#include "cli/binary_check.h"
#include "ide/workspace/file_kind.h"
#include "ide/workspace/group_file.h"
#include "ide/workspace/path_resolver.h"
#include "ide/workspace/project_file.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

namespace corvelle::cli {

namespace fs = std::filesystem;

namespace {

std::string joined(const std::string& directory, const std::string& rest) {
    if (directory.empty()) return rest;
    return directory.back() == '/' ? directory + rest : directory + "/" + rest;
}

class Collector {
  public:
    explicit Collector(SourceList& list) : list_(list) {}

    void addStandardInput(const std::string& name) {
        if (standardInputTaken_) return;
        standardInputTaken_ = true;
        ModuleSource source{.shownPath = name.empty() ? "<stdin>" : name};
        if (const auto type = workspace::moduleTypeOfPath(name)) source.type = *type;
        list_.sources.push_back(std::move(source));
    }

    void addArgument(const std::string& argument) {
        std::error_code error;
        const fs::path path(argument);
        const auto status = fs::status(path, error);
        if (argument.empty()) {
            addProblem(argument, "the path is empty");
        } else if (error || !fs::exists(status)) {
            addProblem(argument, base::fileErrorOf(error, path).description());
        } else if (fs::is_directory(status)) {
            addDirectory(argument, path);
        } else if (const auto type = workspace::moduleTypeOfPath(argument)) {
            addModule({.shownPath = argument, .path = path, .type = *type});
        } else if (workspace::isProjectPath(argument)) {
            addProject(path);
        } else if (workspace::isGroupPath(argument)) {
            addGroup(path);
        } else {
            addProblem(argument, "not a module, a project, a project group or a directory");
        }
    }

  private:
    void addProblem(std::string shownPath, std::string problem) {
        list_.sources.push_back({.shownPath = std::move(shownPath), .problem = std::move(problem)});
    }

    void addNote(std::string shownPath, std::string note) {
        list_.sources.push_back({.shownPath = std::move(shownPath), .note = std::move(note)});
    }

    // Whether the file, however it is written, is met for the first time.
    bool isNew(const fs::path& path) {
        std::error_code error;
        const fs::path real = fs::canonical(path, error);
        return list_.realPaths.insert((error ? path : real).string()).second;
    }

    void addModule(ModuleSource source) {
        if (isNew(source.path)) list_.sources.push_back(std::move(source));
    }

    void addDirectory(const std::string& shown, const fs::path& path) {
        const std::size_t before = list_.sources.size();
        walk(shown, path);
        if (list_.sources.size() == before) addNote(shown, "no modules in this directory");
    }

    void walk(const std::string& shown, const fs::path& path) {
        std::error_code error;
        std::vector<fs::directory_entry> entries;
        for (fs::directory_iterator entry(path, error), end; !error && entry != end; entry.increment(error)) {
            entries.push_back(*entry);
        }
        if (error) addProblem(shown, base::fileErrorOf(error, path).description());
        std::sort(entries.begin(), entries.end()); // by name, folders among the files
        for (const fs::directory_entry& entry : entries) {
            const std::string name = joined(shown, entry.path().filename().string());
            if (entry.is_directory(error) && !entry.is_symlink(error)) { // links could lead in circles
                walk(name, entry.path());
            } else if (const auto type = workspace::moduleTypeOfPath(name);
                       type && !entry.is_directory(error)) {
                addModule({.shownPath = name, .path = entry.path(), .type = *type});
            }
        }
    }

    void addProject(const fs::path& path) {
        if (!isNew(path)) return;
        const auto project = read<workspace::ProjectFile>(path);
        if (!project) return;
        for (const auto& member : project->members()) {
            if (const auto found = find(path, member.path)) {
                addModule({.shownPath = found->generic_string(),
                           .path = *found,
                           .type = member.type,
                           .projectName = member.name});
            }
        }
        if (project->members().empty()) addNote(path.string(), "no modules in this project");
    }

    void addGroup(const fs::path& path) {
        const auto group = read<workspace::GroupFile>(path);
        if (!group) return;
        for (const std::string& member : group->projects()) {
            if (const auto found = find(path, member)) addProject(*found);
        }
        if (group->projects().empty()) addNote(path.string(), "no projects in this group");
    }

    template <class File>
    std::optional<File> read(const fs::path& path) {
        try {
            const std::string bytes = base::readFile(path);
            const std::string_view what = whatInsteadOfText(bytes);
            if (what.empty()) return File(bytes);
            addProblem(path.string(), "this is " + std::string(what) + ", not a project or a group");
        } catch (const base::RunTimeError& error) {
            addProblem(path.string(), error.description());
        }
        return std::nullopt;
    }

    // The file that a project or group names; one that is missing is a problem in its place.
    std::optional<fs::path> find(const fs::path& namedIn, const std::string& written) {
        const fs::path folder = namedIn.parent_path();
        auto found = resolver_.resolve(folder, written);
        if (!found) {
            addProblem(workspace::pathInProject(folder, written).generic_string(),
                       base::RunTimeError(base::ErrorNumber::FileNotFound).description() + " (named in " +
                           namedIn.string() + ")");
        }
        return found;
    }

    SourceList& list_;
    workspace::PathResolver resolver_;
    bool standardInputTaken_ = false;
};

} // namespace

std::size_t SourceList::moduleCount() const {
    return static_cast<std::size_t>(
        std::count_if(sources.begin(), sources.end(), [](const auto& source) { return source.isModule(); }));
}

SourceList listSources(const std::vector<std::string>& paths, const std::string& stdinName) {
    SourceList list;
    Collector collector(list);
    for (const std::string& path : paths) {
        if (path == "-") {
            collector.addStandardInput(stdinName);
        } else {
            collector.addArgument(path);
        }
    }
    return list;
}

} // namespace corvelle::cli
