#pragma once

#include "base/file.h"
#include "ide/code_pane.h"
#include "ide/vb_component.h"
#include "ide/workspace/edited_module.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace corvelle::workspace {

/// A component of a project on disk: a module's file and the edits that are not saved yet.
class Component : public ide::VBComponent {
  public:
    /// `whole` is what a pointer to the component keeps alive. The line's name is the one in the project
    /// file, empty where it has none; the stamp is the file's at its reading.
    Component(std::weak_ptr<void> whole, std::filesystem::path path, std::string_view lineName,
              ModuleFile file, const base::FileStamp& stamp);

    /// The `VB_Name` attribute, else the name in the project file, else the designer's own, else the file's.
    std::string Name() override { return name_; }
    ide::ComponentType Type() override { return module_.file().type(); }
    bool IsDirty() override { return dirty_; }
    std::shared_ptr<ide::CodeModule> CodeModule() override;
    std::shared_ptr<ide::CodePane> CodePane();
    /// The path of its only file, 1. Throws RunTimeError 9 for another number.
    std::string FileNames(std::int32_t index);
    /// Writes the changes into the file, if there are any. Throws base::FileError, also when somebody else
    /// has changed the file meanwhile; the changes are then still unsaved.
    void Save();

    /// What the embedded IDE does not do throws RunTimeError 438.
    void setName(std::string_view name) override;
    std::shared_ptr<ide::VBForm> Designer() override;
    std::shared_ptr<ide::Window> DesignerWindow() override;
    void Activate() override;
    void SaveAs(std::string_view fileName) override;

    const std::filesystem::path& path() const { return path_; }
    const ModuleFile& file() const { return module_.file(); }

  private:
    class Code : public ide::CodeModule {
      public:
        explicit Code(Component& component) : component_(component) {}

        std::string Name() override { return component_.Name(); }
        std::shared_ptr<ide::VBComponent> Parent() override;
        std::int32_t CountOfLines() override;
        /// Throw RunTimeError 9 for lines that are not there and 5 for a negative count. No lines may be
        /// asked for or deleted behind the last one.
        std::string Lines(std::int32_t start, std::int32_t count) override;
        void DeleteLines(std::int32_t start, std::int32_t count) override;
        /// Throws RunTimeError 9 for a line before the first.
        void InsertLines(std::int32_t line, std::string_view text) override;

      private:
        void requireLines(std::int32_t start, std::int32_t count);

        Component& component_;
    };

    class Pane : public ide::CodePane {
      public:
        explicit Pane(Component& component) : component_(component) {}
        std::shared_ptr<ide::CodeModule> CodeModule() override { return component_.CodeModule(); }

      private:
        Component& component_;
    };

    std::weak_ptr<void> whole_;
    std::filesystem::path path_;
    std::string name_;
    EditedModule module_;
    base::FileStamp stamp_;
    bool dirty_ = false;
    bool written_ = false; // the disk no longer holds the bytes that were read
    Code code_{*this};
    Pane pane_{*this};
};

} // namespace corvelle::workspace
