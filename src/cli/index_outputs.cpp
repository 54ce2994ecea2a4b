#include "cli/index_outputs.h"

#include "base/binary_check.h"
#include "base/file.h"
#include "base/path_text.h"
#include "base/same_path.h"
#include "base/text.h"
#include "ide/workspace/key_value.h"
#include "ide/workspace/path_resolver.h"

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

bool isThere(const std::string& path) {
    return base::stampIfThere(base::pathOf(path)).has_value();
}

// Another project may have code in a file that is no part of this one.
bool holdsModule(const std::string& path, std::string_view name) {
    try {
        auto bytes = base::readFile(base::pathOf(path));
        if (bytes.empty()) return true;
        const workspace::ModuleFile file(std::move(bytes), ide::ComponentType::StdModule);
        return base::equalIgnoringCase(file.name(), name);
    } catch (const std::exception&) {
        return false;
    }
}

// The texts of an older file are taken over into the new one.
std::optional<std::string> whatForbidsTexts(const std::string& path) {
    try {
        const auto what = base::whatInsteadOfText(base::readFile(base::pathOf(path)));
        if (what.empty()) return {};
        return path + ": this is " + std::string(what) + "; it is not written over";
    } catch (const base::FileError&) {
        return path + ": its texts cannot be read";
    }
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
                return option + " and " + std::string(other.option) + ": the same file, " + output.path;
        }
        auto* const component = componentOf(project, path);
        if (component
                ? !mayReplace(*component, output, settings)
                : project.isUnread(path) && !(settings.replaceModule && output.option == "--module-file"))
            return option + ": " + output.path + " is a module of the project";
        if (companions.hold(path) || isResourceOrDocument(project, path))
            return option + ": " + output.path + " belongs to a file of the project";
        taken.push_back(output);
    }
    if (settings.moduleFile && isThere(*settings.moduleFile) &&
        !holdsModule(*settings.moduleFile, base::trimSpaces(*settings.module)))
        return "--module-file: " + *settings.moduleFile + " is no module named " + *settings.module +
               "; it is not written over";
    if (settings.text && isThere(*settings.text)) return whatForbidsTexts(*settings.text);
    return {};
}

} // namespace corvelle::cli
