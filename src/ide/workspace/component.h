#pragma once

#include "base/file.h"
#include "ide/code.h"
#include "ide/component.h"
#include "ide/workspace/designer_window.h"
#include "ide/workspace/edited_module.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::workspace {

class Component;

/// Is told what an embedded IDE with windows has to show.
class WorkspaceObserver {
  public:
    virtual ~WorkspaceObserver() = default;

    /// The designer's window was opened, shown, hidden or closed: its DesignerWindow tells which.
    virtual void designerChanged(Component& component) = 0;
    /// The designer's window, which is visible now, goes to the front.
    virtual void designerFocused(Component& component) = 0;
    /// The code of a component without a designer goes to the front.
    virtual void codeActivated(Component& component) = 0;
};

class Project;

/// A component of a project on disk: a module's file and the edits that are not saved yet.
class Component : public ide::VBComponent {
  public:
    /// A new, empty module, which enters the project's file when it is saved. `whole` is what a pointer to
    /// the component keeps alive.
    Component(std::weak_ptr<void> whole, Project& project, std::string name);
    /// The component of a file. The line's name is the one in the project file, empty where it has none; the
    /// stamp is the file's at its reading.
    Component(std::weak_ptr<void> whole, std::filesystem::path path, std::string_view lineName,
              ModuleFile file, const base::FileStamp& stamp);

    /// The `VB_Name` attribute, else the name in the project file, else the designer's own, else the file's.
    std::string Name() override { return name_; }
    ide::ComponentType Type() override { return module_.file().type(); }
    bool IsDirty() override { return dirty_; }
    std::shared_ptr<ide::CodeModule> CodeModule() override;
    std::shared_ptr<ide::CodePane> CodePane();
    /// The path of its only file, 1. Throws RunTimeError 9 for another number.
    std::string FileNames(std::int32_t index) override;
    /// Whether it is new and not saved yet.
    bool isNew() const { return project_ != nullptr; }
    /// Writes the changes into the file, if there are any. Throws base::FileError, also when somebody else
    /// has changed the file meanwhile; the changes are then still unsaved.
    void Save();

    /// The controls as the file has them; Nothing where it has no designer section.
    std::shared_ptr<ide::VBForm> Designer() override;
    /// Opens the window, invisible, where it is not open; Nothing for a module or class.
    std::shared_ptr<ide::Window> DesignerWindow() override;
    /// Shows its designer's window, or its code where it has no designer.
    void Activate() override;
    /// The designer's window, open or not; null for a module or class.
    workspace::DesignerWindow* designerWindow();
    /// Who is told; nobody with a null pointer.
    void setObserver(WorkspaceObserver* observer) { observer_ = observer; }
    WorkspaceObserver* observer() const { return observer_; }

    /// For a new module only, until it is saved; any other throws RunTimeError 438. Throws 380 for what is no
    /// name, 32813 for one that is taken.
    void setName(std::string_view name) override;
    /// The same. The file is created or replaced, then the project's file gets its line, at once each. Throws
    /// base::FileError.
    void SaveAs(std::string_view fileName) override;

    const std::filesystem::path& path() const { return path_; }
    /// The file's stamp at its last reading or writing.
    const base::FileStamp& stamp() const { return stamp_; }
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

    // A control; together with its properties, of which only the name is known here.
    class Control : public ide::VBControl, public ide::Properties, public ide::Property {
      public:
        Control(Component& component, std::uint32_t index) : component_(component), index_(index) {}

        std::string ClassName() override;
        std::shared_ptr<ide::Properties> Properties() override;
        std::shared_ptr<ide::Property> Item(std::string_view name) override;
        std::string Value() override;

      private:
        Component& component_;
        std::uint32_t index_;
    };

    class Form : public ide::VBForm, public ide::VBControls {
      public:
        explicit Form(Component& component) : component_(component) {}

        std::shared_ptr<ide::VBControls> VBControls() override;
        std::int32_t Count() override;
        std::shared_ptr<ide::VBControl> Item(std::int32_t index) override;

      private:
        Component& component_;
        std::vector<Control> controls_; // made when the first one is asked for
    };

    class Pane : public ide::CodePane {
      public:
        explicit Pane(Component& component) : component_(component) {}
        std::shared_ptr<ide::CodeModule> CodeModule() override { return component_.CodeModule(); }

      private:
        Component& component_;
    };

    std::weak_ptr<void> whole_;
    Project* project_ = nullptr; // none for a file that was there before
    std::filesystem::path path_;
    std::string name_;
    EditedModule module_;
    base::FileStamp stamp_;
    bool dirty_ = false;
    bool written_ = false; // the disk no longer holds the bytes that were read
    Code code_{*this};
    Pane pane_{*this};
    Form form_{*this};
    workspace::DesignerWindow designerWindow_{*this};
    WorkspaceObserver* observer_ = nullptr;
};

} // namespace corvelle::workspace
