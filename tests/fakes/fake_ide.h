#pragma once

#include "fakes/calls.h"
#include "ide/vbe.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// An IDE in memory. What the IDE knows stands in public members that tests read and write; every call of the
// object model goes through one Calls, which can make it fail.
namespace corvelle::test {

using CallsPtr = std::shared_ptr<Calls>;

class FakeComponent;

class FakeCodeModule : public ide::CodeModule {
  public:
    FakeCodeModule(CallsPtr calls, std::weak_ptr<FakeComponent> parent)
        : calls_(std::move(calls)), parent_(std::move(parent)) {}

    std::vector<std::string> lines;

    std::string Name() override;
    std::shared_ptr<ide::VBComponent> Parent() override;
    std::int32_t CountOfLines() override;
    std::string Lines(std::int32_t start, std::int32_t count) override;
    void DeleteLines(std::int32_t start, std::int32_t count) override;
    void InsertLines(std::int32_t line, std::string_view text) override;

  private:
    bool hasLines(std::int32_t start, std::int32_t count) const;

    CallsPtr calls_;
    std::weak_ptr<FakeComponent> parent_;
};

class FakeWindow : public ide::Window {
  public:
    explicit FakeWindow(CallsPtr calls) : calls_(std::move(calls)) {}

    void SetFocus() override { calls_->enter("Window.SetFocus"); }
    void Close() override { calls_->enter("Window.Close"); }

  private:
    CallsPtr calls_;
};

class FakeProperty : public ide::Property {
  public:
    FakeProperty(CallsPtr calls, std::string name, std::string value)
        : name(std::move(name)), value(std::move(value)), calls_(std::move(calls)) {}

    std::string name, value;

    std::string Value() override;

  private:
    CallsPtr calls_;
};

/// A control on a designer together with its properties.
class FakeControl : public ide::VBControl, public ide::Properties {
  public:
    FakeControl(CallsPtr calls, std::weak_ptr<FakeComponent> designer, std::string className)
        : className(std::move(className)), calls_(std::move(calls)), designer_(std::move(designer)) {}

    std::string className;
    std::vector<std::shared_ptr<FakeProperty>> properties;
    /// Adds a property; returns the control.
    FakeControl& with(const std::string& name, const std::string& value);

    std::string ClassName() override;
    std::shared_ptr<ide::Properties> Properties() override;
    std::shared_ptr<ide::Property> Item(std::string_view name) override;

  private:
    CallsPtr calls_;
    std::weak_ptr<FakeComponent> designer_; // which holds the control
};

/// A component together with its designer and the designer's controls.
class FakeComponent : public ide::VBComponent,
                      public ide::VBForm,
                      public ide::VBControls,
                      public std::enable_shared_from_this<FakeComponent> {
  public:
    FakeComponent(CallsPtr calls, std::string name, ide::ComponentType type)
        : name(std::move(name)), type(type), calls_(std::move(calls)) {}
    static std::shared_ptr<FakeComponent> make(const CallsPtr& calls, const std::string& name,
                                               ide::ComponentType type, std::vector<std::string> lines);

    std::string name;
    ide::ComponentType type;
    bool dirty = false;
    bool hasDesigner = false;
    std::string savedAs;  ///< the file name of the last SaveAs
    std::string fileName; ///< of the module's file
    std::shared_ptr<FakeCodeModule> code;
    std::shared_ptr<FakeWindow> designerWindow;
    std::vector<std::shared_ptr<FakeControl>> controls;
    /// Adds a control to the designer, which there is from now on.
    FakeControl& add(const std::string& className);

    std::string Name() override;
    void setName(std::string_view newName) override;
    ide::ComponentType Type() override;
    bool IsDirty() override;
    std::string FileNames(std::int32_t index) override;
    std::shared_ptr<ide::CodeModule> CodeModule() override;
    std::shared_ptr<ide::VBForm> Designer() override;
    std::shared_ptr<ide::Window> DesignerWindow() override;
    void Activate() override;
    void SaveAs(std::string_view fileName) override;

    std::shared_ptr<ide::VBControls> VBControls() override;
    std::int32_t Count() override;
    std::shared_ptr<ide::VBControl> Item(std::int32_t index) override;

  private:
    CallsPtr calls_;
};

class FakeCodePane : public ide::CodePane {
  public:
    FakeCodePane(CallsPtr calls, std::shared_ptr<FakeCodeModule> code)
        : code(std::move(code)), calls_(std::move(calls)) {}

    std::shared_ptr<FakeCodeModule> code;

    std::shared_ptr<ide::CodeModule> CodeModule() override;

  private:
    CallsPtr calls_;
};

/// A project together with its components.
class FakeProject : public ide::VBProject,
                    public ide::VBComponents,
                    public std::enable_shared_from_this<FakeProject> {
  public:
    FakeProject(CallsPtr calls, std::string name, std::string fileName)
        : name(std::move(name)), fileName(std::move(fileName)), calls_(std::move(calls)) {}

    std::string name, fileName;
    ide::ProjectType type = ide::ProjectType::StandardExe;
    bool dirty = false;
    std::vector<std::shared_ptr<FakeComponent>> components;
    std::shared_ptr<FakeComponent> add(const std::string& componentName, ide::ComponentType componentType,
                                       std::vector<std::string> lines = {});

    std::string Name() override;
    std::string FileName() override;
    ide::ProjectType Type() override;
    bool IsDirty() override;
    std::shared_ptr<ide::VBComponents> VBComponents() override;

    std::int32_t Count() override;
    std::shared_ptr<ide::VBComponent> Item(std::int32_t index) override;
    std::shared_ptr<ide::VBComponent> Item(std::string_view componentName) override;
    /// A new module is named after its type and number and is empty.
    std::shared_ptr<ide::VBComponent> Add(ide::ComponentType componentType) override;

  private:
    CallsPtr calls_;
};

class FakeCommandBarControl : public ide::CommandBarControl {
  public:
    explicit FakeCommandBarControl(CallsPtr calls) : calls_(std::move(calls)) {}

    std::string caption;
    bool deleted = false;

    void setCaption(std::string_view newCaption) override;
    void Delete() override;

  private:
    CallsPtr calls_;
};

/// A command bar together with its controls.
class FakeCommandBar : public ide::CommandBar,
                       public ide::CommandBarControls,
                       public std::enable_shared_from_this<FakeCommandBar> {
  public:
    FakeCommandBar(CallsPtr calls, std::string name) : name(std::move(name)), calls_(std::move(calls)) {}

    std::string name;
    std::vector<std::shared_ptr<FakeCommandBarControl>> commands;
    /// The captions of the commands that are not deleted.
    std::vector<std::string> captions() const;

    std::shared_ptr<ide::CommandBarControls> Controls() override;
    std::shared_ptr<ide::CommandBarControl> Add(ide::CommandBarControlType type) override;

  private:
    CallsPtr calls_;
};

class FakeCommandBarEvents : public ide::CommandBarEvents {
  public:
    FakeCommandBarEvents(CallsPtr calls, std::shared_ptr<ide::CommandBarControl> control)
        : control(std::move(control)), calls_(std::move(calls)) {}

    std::shared_ptr<ide::CommandBarControl> control;
    ClickHandler handler;
    /// The user chooses the command; whether anything listens.
    bool click();

    void setClick(ClickHandler newHandler) override;

  private:
    CallsPtr calls_;
};

/// The IDE with its menus and events. It is made with the bar "Add-Ins" and a project of no component.
class FakeIde : public ide::VBE,
                public ide::CommandBars,
                public ide::Events,
                public std::enable_shared_from_this<FakeIde> {
  public:
    static std::shared_ptr<FakeIde> make();

    CallsPtr calls = std::make_shared<Calls>();
    std::shared_ptr<FakeProject> project;
    std::shared_ptr<FakeCodePane> pane;
    std::vector<std::shared_ptr<FakeCommandBar>> bars;
    std::vector<std::shared_ptr<FakeCommandBarEvents>> sources;
    /// Opens the component's code window; none with a null pointer.
    void activate(const std::shared_ptr<FakeComponent>& component);

    std::shared_ptr<ide::VBProject> ActiveVBProject() override;
    std::shared_ptr<ide::CodePane> ActiveCodePane() override;
    std::shared_ptr<ide::CommandBars> CommandBars() override;
    std::shared_ptr<ide::Events> Events() override;

    std::shared_ptr<ide::CommandBar> Item(std::string_view name) override;
    std::shared_ptr<ide::CommandBarEvents>
    CommandBarEvents(const std::shared_ptr<ide::CommandBarControl>& control) override;
};

} // namespace corvelle::test
