#pragma once

#include "ide/component.h"
#include "ide/workspace/component.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvelle::workspace {

/// Puts the bytes into a file that is there or new; throws base::FileError.
using WriteFile = std::function<void(const std::filesystem::path& path, std::string_view bytes,
                                     const base::ReplaceOptions& how)>;

/// A project on disk.
class Project : public ide::VBProject {
  public:
    /// `whole` is what a pointer to the project keeps alive. The path is empty for a module that was opened
    /// without a project.
    Project(std::weak_ptr<void> whole, std::filesystem::path path, std::string name, ide::ProjectType type);
    /// The project file's bytes and its stamp at their reading.
    void setFile(std::string bytes, const base::FileStamp& stamp);

    std::string Name() override { return name_; }
    std::string FileName() override;
    ide::ProjectType Type() override { return type_; }
    /// Never: what is open here is what the disk holds.
    bool IsDirty() override { return false; }
    std::shared_ptr<ide::VBComponents> VBComponents() override;

    const std::vector<std::unique_ptr<Component>>& components() const { return components_; }
    void add(std::unique_ptr<Component> component);
    /// Who is told of its components, new ones included; nobody with a null pointer.
    void setObserver(WorkspaceObserver* observer);
    /// Who writes the files of new modules and of the project in place of the project, which replaces them at
    /// once.
    void setWriteFile(WriteFile write) { write_ = std::move(write); }
    /// Writes a file of a new module.
    void writeFile(const std::filesystem::path& path, std::string_view bytes) const {
        write_(path, bytes, {});
    }
    /// Whether the name is the project's, or a component's other than the given one, letter case aside. Of
    /// components that could not be read the names in the project's file count.
    bool hasName(std::string_view name, const Component& except) const;
    /// Notes a member that could not be read, by its name in the project's file, which may be empty.
    void addUnread(std::string name, std::filesystem::path path);
    /// Whether the file is that of a member that could not be read.
    bool isUnread(const std::filesystem::path& path) const;
    /// Takes the standard module of that name in that file out, one that could not be read too; whether there
    /// is one. The file and its line in the project's file stay; a new module that is saved into the same
    /// file takes over the line. Nobody may hold one of its objects.
    bool removeModule(std::string_view name, const std::filesystem::path& path);
    /// Writes the line of a standard module into the project's file, unless it is there. Throws
    /// base::FileError, also when somebody else has changed the file meanwhile.
    void enter(std::string_view name, const std::filesystem::path& path);

    /// Writes the name of the application's help file into the project's file, unless it is there. Throws as
    /// `enter` does.
    void setHelpFile(std::string_view name);

    const std::filesystem::path& path() const { return path_; }
    /// The project file as it is on disk, as far as is known here.
    const std::string& bytes() const { return bytes_; }

  private:
    class Components : public ide::VBComponents {
      public:
        explicit Components(Project& project) : project_(project) {}

        std::int32_t Count() override;
        std::shared_ptr<ide::VBComponent> Item(std::int32_t index) override;
        std::shared_ptr<ide::VBComponent> Item(std::string_view name) override;
        /// A new module, named "Module1" or the next number that is free, without a line of code. Throws
        /// RunTimeError 438 for other types.
        std::shared_ptr<ide::VBComponent> Add(ide::ComponentType type) override;

      private:
        Project& project_;
    };

    void rewrite(std::string bytes);

    std::weak_ptr<void> whole_;
    std::filesystem::path path_;
    std::string name_;
    ide::ProjectType type_;
    std::string bytes_;
    base::FileStamp stamp_;
    struct Unread {
        std::string name;
        std::filesystem::path path;
    };
    std::vector<Unread> unread_;
    std::vector<std::unique_ptr<Component>> components_;
    WorkspaceObserver* observer_ = nullptr;
    WriteFile write_;
    Components collection_{*this};
};

} // namespace corvelle::workspace
