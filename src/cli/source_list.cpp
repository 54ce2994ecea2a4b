#include "cli/source_list.h"

#include "base/binary_check.h"
#include "base/file.h"
#include "base/path_text.h"
#include "base/run_time_error.h"
#include "ide/workspace/file_kind.h"
#include "ide/workspace/group_file.h"
#include "ide/workspace/path_resolver.h"
#include "ide/workspace/project_file.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <utility>

namespace corvelle::cli {

namespace fs = std::filesystem;

namespace {

std::string joined(const std::string& directory, const std::string& rest) {
    if (directory.empty()) return rest;
    return directory.back() == '/' ? directory + rest : directory + "/" + rest;
}

// A path as messages show it.
std::string shown(const fs::path& path) {
    auto text = path.native();
    std::replace(text.begin(), text.end(), fs::path::preferred_separator, fs::path::value_type('/'));
    return base::textOf(text);
}

class Collector {
  public:
    explicit Collector(SourceList& list) : list_(list) {}

    void addStandardInput(const std::string& name) {
        if (standardInputTaken_) return;
        standardInputTaken_ = true;
        ModuleSource source{.shownPath = name.empty() ? "<stdin>" : name};
        if (const auto type = workspace::moduleTypeOfPath(base::pathOf(name))) source.type = *type;
        list_.sources.push_back(std::move(source));
    }

    void addArgument(const std::string& argument) {
        std::error_code error;
        const fs::path path = base::pathOf(argument);
        const auto status = fs::status(path, error);
        if (argument.empty()) {
            addProblem(argument, "the path is empty");
        } else if (error || !fs::exists(status)) {
            addProblem(argument, base::fileErrorOf(error, path).description());
        } else if (fs::is_directory(status)) {
            addDirectory(argument, path);
        } else if (const auto type = workspace::moduleTypeOfPath(path)) {
            addModule({.shownPath = argument, .path = path, .type = *type});
        } else if (workspace::isProjectPath(path)) {
            addProject(argument, path);
        } else if (workspace::isGroupPath(path)) {
            addGroup(argument, path);
        } else {
            addProblem(argument, "not a module, a project, a project group or a directory");
        }
    }

  private:
    void addProblem(std::string shownPath, std::string problem) {
        ++met_;
        list_.sources.push_back({.shownPath = std::move(shownPath), .problem = std::move(problem)});
    }

    void addNote(std::string shownPath, std::string note) {
        list_.sources.push_back({.shownPath = std::move(shownPath), .note = std::move(note)});
    }

    // Whether the file, however it is written, is met for the first time.
    bool isNew(const fs::path& path) { return list_.realPaths.insert(realPathOf(path).native()).second; }

    // Many files stand in one folder, and few of them are links: so each folder is looked for once.
    fs::path realPathOf(const fs::path& path) {
        std::error_code error;
        if (fs::is_symlink(fs::symlink_status(path, error)) || error) return canonicalOr(path, path);
        const fs::path folder = path.parent_path();
        const auto [place, isNew] = realFolders_.try_emplace(folder.native());
        if (isNew) place->second = canonicalOr(folder.empty() ? fs::path(".") : folder, folder);
        return place->second / path.filename();
    }

    static fs::path canonicalOr(const fs::path& path, const fs::path& otherwise) {
        std::error_code error;
        auto real = fs::canonical(path, error);
        return error ? otherwise : real;
    }

    void addModule(ModuleSource source) {
        ++met_;
        if (isNew(source.path)) list_.sources.push_back(std::move(source));
    }

    void addDirectory(const std::string& folder, const fs::path& path) {
        const std::size_t before = met_;
        walk(folder, path);
        if (met_ == before) addNote(folder, "no modules in this directory");
    }

    void walk(const std::string& folder, const fs::path& path) {
        std::error_code error;
        std::vector<fs::directory_entry> entries;
        for (fs::directory_iterator entry(path, error), end; !error && entry != end; entry.increment(error)) {
            entries.push_back(*entry);
        }
        if (error) addProblem(folder, base::fileErrorOf(error, path).description());
        std::sort(entries.begin(), entries.end()); // by name, folders among the files
        for (const fs::directory_entry& entry : entries) {
            try {
                addEntry(joined(folder, shown(entry.path().filename())), entry);
            } catch (const base::FileError& failure) {
                addProblem(folder, "a name in this directory cannot be spelled: " + failure.description());
            }
        }
    }

    void addEntry(const std::string& name, const fs::directory_entry& entry) {
        std::error_code error;
        if (entry.is_directory(error)) {
            if (!entry.is_symlink(error)) walk(name, entry.path()); // links could lead in circles
        } else if (const auto type = workspace::moduleTypeOfPath(entry.path())) {
            addModule({.shownPath = name, .path = entry.path(), .type = *type});
        }
    }

    void addProject(const std::string& name, const fs::path& path) {
        if (!isNew(path)) return;
        const auto project = read<workspace::ProjectFile>(name, path);
        if (!project) return;
        for (const auto& member : project->members()) {
            if (const auto found = find(name, path, member.path)) {
                addModule({.shownPath = shown(*found),
                           .path = *found,
                           .type = member.type,
                           .projectName = member.name});
            }
        }
        if (project->members().empty()) addNote(name, "no modules in this project");
    }

    void addGroup(const std::string& name, const fs::path& path) {
        const auto group = read<workspace::GroupFile>(name, path);
        if (!group) return;
        for (const std::string& member : group->projects()) {
            if (const auto found = find(name, path, member)) addProject(shown(*found), *found);
        }
        if (group->projects().empty()) addNote(name, "no projects in this group");
    }

    template <class File>
    std::optional<File> read(const std::string& name, const fs::path& path) {
        try {
            const std::string bytes = base::readFile(path);
            const std::string_view what = base::whatInsteadOfText(bytes);
            if (what.empty()) return File(bytes);
            addProblem(name, "this is " + std::string(what) + ", not a project or a group");
        } catch (const base::RunTimeError& error) {
            addProblem(name, error.description());
        }
        return std::nullopt;
    }

    // The file that a project or group names; one that is missing is a problem in its place.
    std::optional<fs::path> find(const std::string& namedIn, const fs::path& path,
                                 const std::string& written) {
        const fs::path folder = path.parent_path();
        auto found = resolver_.resolve(folder, written);
        if (!found) {
            addProblem(shown(workspace::pathInProject(folder, written)),
                       base::RunTimeError(base::ErrorNumber::FileNotFound).description() + " (named in " +
                           namedIn + ")");
        }
        return found;
    }

    SourceList& list_;
    workspace::PathResolver resolver_;
    std::unordered_map<fs::path::string_type, fs::path> realFolders_; // by the way they are written
    bool standardInputTaken_ = false;
    std::size_t met_ = 0; // modules and problems, those that were known already too
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
