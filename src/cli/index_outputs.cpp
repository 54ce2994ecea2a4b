#include "cli/index_outputs.h"

#include "base/file.h"
#include "base/file_batch.h"
#include "base/paths.h"
#include "base/text.h"
#include "cli/line_ends.h"
#include "cli/terminal.h"
#include "ide/workspace/path_resolver.h"
#include "ide/workspace/project_file.h"
#include "indexer/replaceable.h"
#include "indexer/stable/module_code.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <utility>
#include <vector>

namespace corvelle::cli {

namespace {

using workspace::Component;
namespace fs = std::filesystem;

struct Output {
    std::string_view option;
    std::string path;
};

std::vector<Output> outputsOf(const IndexSettings& settings) {
    std::vector<Output> result{{"--header", settings.header}, {"--config", settings.config}};
    const auto add = [&result](const char* option, const std::optional<std::string>& path) {
        if (path) result.push_back({option, *path});
    };
    add("--module-file", settings.moduleFile);
    add("--text", settings.text);
    add("--report", settings.report);
    add("--project-file", settings.projectFile);
    return result;
}

// Whether two files that are there are one.
bool isSameFile(const fs::path& a, const base::FileStamp& stampOfA, const fs::path& b,
                const base::FileStamp& stampOfB) {
    std::error_code ignored;
    return stampOfA.inode == 0 ? fs::equivalent(a, b, ignored)
                               : stampOfA.inode == stampOfB.inode && stampOfA.device == stampOfB.device;
}

// The component whose file that is, if any.
Component* componentOf(const workspace::Project& project, const fs::path& path) {
    const auto stamp = base::stampIfThere(path);
    if (!stamp) return nullptr;
    const auto& components = project.components();
    const auto found = std::find_if(components.begin(), components.end(), [&](const auto& component) {
        return isSameFile(path, *stamp, component->path(), component->stamp());
    });
    return found == components.end() ? nullptr : found->get();
}

// Without --replace-module the name is found to be taken later, and nothing is written.
bool mayReplace(Component& component, const Output& output, const IndexSettings& settings) {
    return output.option == "--module-file" && component.Type() == ide::ComponentType::StdModule &&
           base::equalIgnoringCase(component.Name(), base::trimSpaces(*settings.module));
}

// The files that the IDE keeps with a project: the binary parts of its components, whether they are there or
// not, and what it remembers of its windows.
class CompanionFiles {
  public:
    explicit CompanionFiles(const workspace::Project& project) {
        add(project.path(), ".vbw");
        for (const auto& component : project.components()) {
            for (const auto* ending : {".frx", ".ctx", ".pgx", ".dox", ".dsx"})
                add(component->path(), ending);
        }
    }

    // Whether the path is one of them, whatever the letter case of its name.
    bool hold(const fs::path& path) const {
        std::error_code ignored;
        return holdUnderItsName(path) || holdUnderItsName(fs::weakly_canonical(path, ignored)) ||
               holdUnderAnotherName(path);
    }

  private:
    struct File {
        fs::path path;
        base::FileStamp stamp;
    };

    static std::string keyOf(const fs::path& path) { return base::upper(base::textOf(path.filename())); }

    void add(fs::path owner, const char* ending) {
        owner.replace_extension(ending);
        if (const auto stamp = base::stampIfThere(owner)) present_.push_back({owner, *stamp});
        auto key = keyOf(owner);
        byName_.emplace(std::move(key), std::move(owner));
    }

    bool holdUnderItsName(const fs::path& path) const {
        const auto [first, last] = byName_.equal_range(keyOf(path));
        return std::any_of(first, last, [&](const auto& file) {
            return base::isSamePath(path, file.second) || base::isSamePath(path / "..", file.second / "..");
        });
    }

    // Links can give a file any name.
    bool holdUnderAnotherName(const fs::path& path) const {
        const auto stamp = base::stampIfThere(path);
        return stamp && std::any_of(present_.begin(), present_.end(), [&](const File& file) {
                   return isSameFile(path, *stamp, file.path, file.stamp);
               });
    }

    std::unordered_multimap<std::string, fs::path> byName_; // in upper case
    std::vector<File> present_;
};

// Whether a line of the project names it, be it there or not, as a file that is no component.
bool isResourceOrDocument(const workspace::Project& project, const fs::path& path) {
    const auto folder = project.path().parent_path();
    workspace::PathResolver resolver;
    bool found = false;
    workspace::readKeyValues(project.bytes(), [&](std::string_view key, std::string_view value) {
        if (found ||
            !(base::equalIgnoringCase(key, "ResFile32") || base::equalIgnoringCase(key, "RelatedDoc")))
            return;
        const auto written = workspace::withoutQuotes(value);
        const auto file = resolver.resolve(folder, written);
        found = base::isSamePath(path, file.value_or(workspace::pathInProject(folder, written)));
    });
    return found;
}

// What an output replaces without being told to, and what its file is called.
struct Recognition {
    bool isOurs;
    std::string what;
};

Recognition recognise(const Output& output, std::string_view bytes, const IndexSettings& settings) {
    using namespace indexer;
    // Whoever takes its numbers up reads every line of it.
    if (output.option == "--header" && !settings.isClassic) return {true, {}};
    if (output.option == "--header") return {isHeaderOfOurs(bytes), "header file"};
    if (output.option == "--config") return {isConfigurationOfOurs(bytes), "configuration file"};
    if (output.option == "--report") return {isReportOfOurs(bytes), "report"};
    if (output.option == "--project-file") return {isProjectFileOfOurs(bytes), "indexer project"};
    if (output.option == "--text")
        return {base::whatInsteadOfText(bytes).empty() && isTextFileOfOurs(bytes), "text file"};
    const auto name = base::trimSpaces(*settings.module);
    const bool isOurs = isMappingModuleOfOurs(bytes, name) ||
                        (!settings.isClassic && stable::isMappingCodeOfOurs(bytes, name));
    return {isOurs, "module named " + shown(name)};
}

} // namespace

std::optional<std::string> whatForbidsOutputs(const IndexSettings& settings,
                                              const workspace::Project& project) {
    const CompanionFiles companions(project);
    std::vector<Output> taken{{"the project", settings.project}};
    if (settings.excludeList) taken.push_back({"--exclude-list", *settings.excludeList});
    for (const auto& output : outputsOf(settings)) {
        const auto path = base::pathOf(output.path);
        const std::string option(output.option);
        for (const auto& other : taken) {
            if (base::isSamePath(path, base::pathOf(other.path)))
                return option + " and " + std::string(other.option) + ": the same file, " +
                       shown(output.path);
        }
        auto* const component = componentOf(project, path);
        if (component
                ? !mayReplace(*component, output, settings)
                : project.isUnread(path) && !(settings.replaceModule && output.option == "--module-file"))
            return option + ": " + shown(output.path) + " is a module of the project";
        if (companions.hold(path) || isResourceOrDocument(project, path))
            return option + ": " + shown(output.path) + " belongs to a file of the project";
        taken.push_back(output);
    }
    return {};
}

std::vector<std::string> outputPaths(const IndexSettings& settings) {
    std::vector<std::string> paths;
    for (const auto& output : outputsOf(settings)) paths.push_back(output.path);
    return paths;
}

std::optional<std::string> IndexFiles::readOld(const IndexSettings& settings) {
    for (const auto& output : outputsOf(settings)) {
        const auto path = base::pathOf(output.path);
        auto& old = old_[path];
        old.isModule = output.option == "--module-file";
        try {
            old.how.onlyNew = !base::stampIfThere(path);
            if (!old.how.onlyNew) {
                old.bytes = base::readFile(path, &old.how.stamp.emplace());
                old.how.content = old.bytes;
            }
        } catch (const base::FileError& error) {
            return shown(output.path) + ": " + error.reason();
        }
        const auto [isOurs, what] = recognise(output, old.bytes, settings);
        if (!isOurs && !settings.overwrite)
            return std::string(output.option) + ": " + shown(output.path) + " is no " + what +
                   " that corvelle has written; it is replaced with --overwrite only";
    }
    return {};
}

std::string_view IndexFiles::oldBytes(const std::string& path) const {
    return old_.at(base::pathOf(path)).bytes;
}

void IndexFiles::put(const fs::path& path, std::string bytes, base::ReplaceOptions how) {
    const auto old = old_.find(path);
    if (!how.stamp && old != old_.end()) how = old->second.how;
    const auto put = std::find_if(new_.begin(), new_.end(),
                                  [&](const NewFile& file) { return file.path.native() == path.native(); });
    if (put != new_.end()) {
        put->bytes = std::move(bytes);
        return;
    }
    new_.push_back({path, std::move(bytes), how});
}

std::string_view IndexFiles::newBytes(const std::string& path) const {
    const auto wanted = base::pathOf(path);
    return std::find_if(new_.begin(), new_.end(), [&](const NewFile& file) { return file.path == wanted; })
        ->bytes;
}

std::optional<std::string> IndexFiles::write() {
    base::FileBatch batch;
    fs::path path;
    const auto reason = [&](const std::exception& error) {
        return shown(base::textOf(path)) + ": " + base::reasonOf(error);
    };
    try {
        for (const auto& file : new_) {
            path = file.path;
            batch.add(file.path, file.bytes, file.how);
        }
    } catch (const base::FileError& error) {
        return reason(error);
    }
    try {
        batch.commit();
    } catch (const base::FileError& error) {
        path = batch.failedFile();
        return reason(error);
    }
    return {};
}

void IndexFiles::dropUnchanged() {
    const auto isUnchanged = [this](const NewFile& file) {
        const auto old = old_.find(file.path);
        if (old == old_.end() || old->second.how.onlyNew) return false;
        return old->second.isModule ? old->second.bytes == file.bytes
                                    : isSameButLineEnds(old->second.bytes, file.bytes);
    };
    new_.erase(std::remove_if(new_.begin(), new_.end(), isUnchanged), new_.end());
}

std::vector<std::string> IndexFiles::paths() const {
    std::vector<std::string> result;
    for (const auto& file : new_) result.push_back(base::textOf(file.path));
    return result;
}

} // namespace corvelle::cli
