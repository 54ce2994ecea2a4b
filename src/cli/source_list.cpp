#include "cli/source_list.h"

#include "base/file.h"
#include "base/paths.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "ide/workspace/file_kind.h"
#include "ide/workspace/path_resolver.h"
#include "ide/workspace/project_file.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
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
std::string spelled(const fs::path& path) {
    auto text = path.native();
    std::replace(text.begin(), text.end(), fs::path::preferred_separator, fs::path::value_type('/'));
    return base::textOf(text);
}

std::string whyNotListed(const std::error_code& error, const fs::path& folder) {
    if (error == std::errc::permission_denied)
        return base::describeError(static_cast<std::int32_t>(base::ErrorNumber::PermissionDenied));
    return base::fileErrorOf(error, folder).reason();
}

class Collector {
  public:
    Collector(SourceList& list, const std::optional<std::string>& backupDir) : list_(list) {
        std::error_code ignored; // another run may make the folder meanwhile
        if (backupDir)
            backups_ = fs::weakly_canonical(fs::absolute(base::pathOf(*backupDir), ignored), ignored);
    }

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
            addProblem(argument, base::fileErrorOf(error, path).reason());
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

    void addSkipped(std::string shownPath, std::string reason) {
        ++met_;
        list_.sources.push_back({.shownPath = std::move(shownPath), .skipped = std::move(reason)});
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
        walk(folder, path, canonicalOr(path, path));
        if (met_ == before) addNote(folder, "no modules in this directory");
    }

    void walk(const std::string& folder, const fs::path& path, const fs::path& root) {
        std::error_code error;
        std::vector<fs::directory_entry> entries;
        for (fs::directory_iterator entry(path, error), end; !error && entry != end; entry.increment(error)) {
            entries.push_back(*entry);
        }
        if (error) addProblem(folder, whyNotListed(error, path));
        // By name, folders among the files; they stand in one folder, so that no path need be taken apart.
        std::sort(entries.begin(), entries.end(),
                  [](const auto& a, const auto& b) { return a.path().native() < b.path().native(); });
        for (const fs::directory_entry& entry : entries) {
            try {
                addEntry(joined(folder, spelled(entry.path().filename())), entry, root);
            } catch (const base::FileError& failure) {
                addProblem(folder, "a name in this directory cannot be spelled: " + failure.description());
            }
        }
    }

    void addEntry(const std::string& name, const fs::directory_entry& entry, const fs::path& root) {
        std::error_code error;
        const bool link = entry.is_symlink(error);
        if (entry.is_directory(error)) {
            // Links could lead in circles.
            if (!link && (backups_.empty() || canonicalOr(entry.path(), {}) != backups_))
                walk(name, entry.path(), root);
        } else if (const auto type = workspace::moduleTypeOfPath(entry.path())) {
            const fs::path real = link ? canonicalOr(entry.path(), root) : root;
            if (!isBelow(real, root)) return addSkipped(name, "a link that leads out of the directory");
            if (link && !leadsToModule(entry.path()))
                return addSkipped(name, "a link that leads to no module");
            addModule({.shownPath = name, .path = entry.path(), .type = *type});
        }
    }

    static bool isBelow(const fs::path& path, const fs::path& folder) {
        return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
    }

    // Where a link leads nowhere the reading will tell.
    static bool leadsToModule(const fs::path& path) {
        return workspace::isModulePath(canonicalOr(path, path));
    }

    void addMember(const std::string& project, const fs::path& path, const workspace::ProjectMember& member) {
        const auto found = find(project, path, member.path, workspace::isModulePath, "no module's ending");
        if (!found) return;
        if (!leadsToModule(*found)) return addSkipped(spelled(*found), "a link that leads to no module");
        addModule(
            {.shownPath = spelled(*found), .path = *found, .type = member.type, .projectName = member.name});
    }

    void addProject(const std::string& name, const fs::path& path) {
        if (!isNew(path)) return;
        const auto project = read<workspace::ProjectFile>(name, path);
        if (!project) return;
        for (const auto& member : project->members()) {
            addMember(name, path, member);
        }
        if (project->members().empty()) addNote(name, "no modules in this project");
    }

    void addGroup(const std::string& name, const fs::path& path) {
        const auto group = read<workspace::GroupFile>(name, path);
        if (!group) return;
        for (const std::string& member : group->projects()) {
            const auto found = find(name, path, member, workspace::isProjectPath, "no project's ending");
            if (found) addProject(spelled(*found), *found);
        }
        if (group->projects().empty()) addNote(name, "no projects in this group");
    }

    template <class File>
    std::optional<File> read(const std::string& name, const fs::path& path) {
        try {
            const std::string bytes = base::readFile(path, nullptr, requireText);
            requireText(bytes);
            return File(bytes);
        } catch (const std::exception& error) {
            addProblem(name, base::reasonOf(error));
        }
        return std::nullopt;
    }

    static void requireText(std::string_view bytes) {
        const auto what = base::whatInsteadOfText(bytes);
        if (!what.empty())
            throw std::runtime_error("this is " + std::string(what) + ", not a project or a group");
    }

    // The file that a project or group names, if it is one to work on; else it is told in its place.
    std::optional<fs::path> find(const std::string& namedIn, const fs::path& path, const std::string& written,
                                 bool (*isWanted)(const fs::path&), const char* whyNotWanted) {
        const fs::path folder = path.parent_path();
        const std::string named = " (named in " + namedIn + ")";
        if (const auto why = workspace::whyNotLookedAt(written, folder); !why.empty()) {
            addSkipped(written, std::string(why) + named);
            return std::nullopt;
        }
        const fs::path place = workspace::pathInProject(folder, written);
        if (!isWanted(place)) {
            addSkipped(spelled(place), whyNotWanted + named);
            return std::nullopt;
        }
        auto found = resolver_.resolve(folder, written);
        if (!found) {
            addProblem(spelled(place),
                       base::RunTimeError(base::ErrorNumber::FileNotFound).description() + named);
        }
        return found;
    }

    SourceList& list_;
    workspace::PathResolver resolver_;
    std::unordered_map<fs::path::string_type, fs::path> realFolders_; // by the way they are written
    fs::path backups_;                                                // empty: none are looked for
    bool standardInputTaken_ = false;
    std::size_t met_ = 0; // modules and problems, those that were known already too
};

} // namespace

std::size_t SourceList::moduleCount() const {
    return static_cast<std::size_t>(
        std::count_if(sources.begin(), sources.end(), [](const auto& source) { return source.isModule(); }));
}

SourceList listSources(const std::vector<std::string>& paths, const std::string& stdinName,
                       const std::optional<std::string>& backupDir) {
    SourceList list;
    Collector collector(list, backupDir);
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
