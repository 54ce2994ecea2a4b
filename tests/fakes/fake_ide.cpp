#include "fakes/fake_ide.h"

#include "base/text.h"

namespace corvelle::test {

using base::ErrorNumber;
using base::RunTimeError;

namespace {

std::string quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

std::string numbers(std::int32_t a, std::int32_t b) {
    return std::to_string(a) + ", " + std::to_string(b);
}

// The lines of a text whose lines end in CR LF; a text that ends so has an empty last line.
std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines;
    for (;;) {
        const auto end = text.find("\r\n");
        lines.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) return lines;
        text.remove_prefix(end + 2);
    }
}

template <class Items>
auto itemOf(const Items& items, std::int32_t index) {
    if (index < 1 || index > static_cast<std::int32_t>(items.size())) {
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    }
    return items[static_cast<std::size_t>(index - 1)];
}

} // namespace

// CodeModule

std::string FakeCodeModule::Name() {
    calls_->enter("CodeModule.Name");
    const auto parent = parent_.lock();
    if (!parent) throw RunTimeError(ErrorNumber::ObjectRequired);
    return parent->name;
}

std::shared_ptr<ide::VBComponent> FakeCodeModule::Parent() {
    calls_->enter("CodeModule.Parent");
    return parent_.lock();
}

std::int32_t FakeCodeModule::CountOfLines() {
    calls_->enter("CodeModule.CountOfLines");
    return static_cast<std::int32_t>(lines.size());
}

bool FakeCodeModule::hasLines(std::int32_t start, std::int32_t count) const {
    const auto size = static_cast<std::int32_t>(lines.size());
    return start >= 1 && count >= 1 && start <= size && count <= size - start + 1;
}

std::string FakeCodeModule::Lines(std::int32_t start, std::int32_t count) {
    calls_->enter("CodeModule.Lines", numbers(start, count));
    if (!hasLines(start, count)) throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    std::string text;
    const auto first = lines.begin() + (start - 1);
    for (auto line = first; line != first + count; ++line) {
        if (line != first) text += "\r\n";
        text += *line;
    }
    return text;
}

void FakeCodeModule::DeleteLines(std::int32_t start, std::int32_t count) {
    calls_->enter("CodeModule.DeleteLines", numbers(start, count));
    if (!hasLines(start, count)) throw RunTimeError(ErrorNumber::InvalidProcedureCall);
    lines.erase(lines.begin() + (start - 1), lines.begin() + (start - 1 + count));
}

void FakeCodeModule::InsertLines(std::int32_t line, std::string_view text) {
    calls_->enter("CodeModule.InsertLines", std::to_string(line) + ", " + quoted(text));
    if (line < 1 || static_cast<std::size_t>(line) > lines.size() + 1) {
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    }
    const auto inserted = linesOf(text);
    lines.insert(lines.begin() + (line - 1), inserted.begin(), inserted.end());
}

// Designers

std::string FakeProperty::Value() {
    calls_->enter("Property.Value");
    return value;
}

FakeControl& FakeControl::with(const std::string& name, const std::string& value) {
    properties.push_back(std::make_shared<FakeProperty>(calls_, name, value));
    return *this;
}

std::string FakeControl::ClassName() {
    calls_->enter("VBControl.ClassName");
    return className;
}

std::shared_ptr<ide::Properties> FakeControl::Properties() {
    calls_->enter("VBControl.Properties");
    return {designer_.lock(), this};
}

std::shared_ptr<ide::Property> FakeControl::Item(std::string_view name) {
    calls_->enter("Properties.Item", quoted(name));
    for (const auto& property : properties) {
        if (base::equalIgnoringCase(property->name, name)) return property;
    }
    throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
}

// Components

std::shared_ptr<FakeComponent> FakeComponent::make(const CallsPtr& calls, const std::string& name,
                                                   ide::ComponentType type, std::vector<std::string> lines) {
    auto component = std::make_shared<FakeComponent>(calls, name, type);
    component->code = std::make_shared<FakeCodeModule>(calls, component);
    component->code->lines = std::move(lines);
    component->designerWindow = std::make_shared<FakeWindow>(calls);
    return component;
}

FakeControl& FakeComponent::add(const std::string& className) {
    hasDesigner = true;
    controls.push_back(std::make_shared<FakeControl>(calls_, weak_from_this(), className));
    return *controls.back();
}

std::string FakeComponent::Name() {
    calls_->enter("VBComponent.Name");
    return name;
}

void FakeComponent::setName(std::string_view newName) {
    calls_->enter("VBComponent.setName", quoted(newName));
    name = newName;
}

ide::ComponentType FakeComponent::Type() {
    calls_->enter("VBComponent.Type");
    return type;
}

bool FakeComponent::IsDirty() {
    calls_->enter("VBComponent.IsDirty");
    return dirty;
}

std::string FakeComponent::FileNames(std::int32_t) {
    calls_->enter("VBComponent.FileNames");
    return fileName;
}

std::shared_ptr<ide::CodeModule> FakeComponent::CodeModule() {
    calls_->enter("VBComponent.CodeModule");
    return code;
}

std::shared_ptr<ide::VBForm> FakeComponent::Designer() {
    calls_->enter("VBComponent.Designer");
    return hasDesigner ? shared_from_this() : nullptr;
}

std::shared_ptr<ide::Window> FakeComponent::DesignerWindow() {
    calls_->enter("VBComponent.DesignerWindow");
    return designerWindow;
}

void FakeComponent::Activate() {
    calls_->enter("VBComponent.Activate");
}

void FakeComponent::SaveAs(std::string_view fileName) {
    calls_->enter("VBComponent.SaveAs", quoted(fileName));
    savedAs = fileName;
    dirty = false;
}

std::shared_ptr<ide::VBControls> FakeComponent::VBControls() {
    calls_->enter("VBForm.VBControls");
    return shared_from_this();
}

std::int32_t FakeComponent::Count() {
    calls_->enter("VBControls.Count");
    return static_cast<std::int32_t>(controls.size());
}

std::shared_ptr<ide::VBControl> FakeComponent::Item(std::int32_t index) {
    calls_->enter("VBControls.Item", std::to_string(index));
    return itemOf(controls, index);
}

std::shared_ptr<ide::CodeModule> FakeCodePane::CodeModule() {
    calls_->enter("CodePane.CodeModule");
    return code;
}

// Projects

std::shared_ptr<FakeComponent> FakeProject::add(const std::string& componentName,
                                                ide::ComponentType componentType,
                                                std::vector<std::string> lines) {
    components.push_back(FakeComponent::make(calls_, componentName, componentType, std::move(lines)));
    return components.back();
}

std::string FakeProject::Name() {
    calls_->enter("VBProject.Name");
    return name;
}

std::string FakeProject::FileName() {
    calls_->enter("VBProject.FileName");
    return fileName;
}

ide::ProjectType FakeProject::Type() {
    calls_->enter("VBProject.Type");
    return type;
}

bool FakeProject::IsDirty() {
    calls_->enter("VBProject.IsDirty");
    return dirty;
}

std::shared_ptr<ide::VBComponents> FakeProject::VBComponents() {
    calls_->enter("VBProject.VBComponents");
    return shared_from_this();
}

std::int32_t FakeProject::Count() {
    calls_->enter("VBComponents.Count");
    return static_cast<std::int32_t>(components.size());
}

std::shared_ptr<ide::VBComponent> FakeProject::Item(std::int32_t index) {
    calls_->enter("VBComponents.Item", std::to_string(index));
    return itemOf(components, index);
}

std::shared_ptr<ide::VBComponent> FakeProject::Item(std::string_view componentName) {
    calls_->enter("VBComponents.Item", quoted(componentName));
    for (const auto& component : components) {
        if (base::equalIgnoringCase(component->name, componentName)) return component;
    }
    throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
}

std::shared_ptr<ide::VBComponent> FakeProject::Add(ide::ComponentType componentType) {
    calls_->enter("VBComponents.Add", std::to_string(static_cast<int>(componentType)));
    const char* const kind = componentType == ide::ComponentType::StdModule ? "Module" : "Component";
    return add(kind + std::to_string(components.size() + 1), componentType);
}

// Menus

void FakeCommandBarControl::setCaption(std::string_view newCaption) {
    calls_->enter("CommandBarControl.setCaption", quoted(newCaption));
    caption = newCaption;
}

void FakeCommandBarControl::Delete() {
    calls_->enter("CommandBarControl.Delete");
    deleted = true;
}

std::vector<std::string> FakeCommandBar::captions() const {
    std::vector<std::string> result;
    for (const auto& command : commands) {
        if (!command->deleted) result.push_back(command->caption);
    }
    return result;
}

std::shared_ptr<ide::CommandBarControls> FakeCommandBar::Controls() {
    calls_->enter("CommandBar.Controls");
    return shared_from_this();
}

std::shared_ptr<ide::CommandBarControl> FakeCommandBar::Add(ide::CommandBarControlType type) {
    calls_->enter("CommandBarControls.Add", std::to_string(static_cast<int>(type)));
    commands.push_back(std::make_shared<FakeCommandBarControl>(calls_));
    return commands.back();
}

bool FakeCommandBarEvents::click() {
    if (!handler) return false;
    const auto kept = handler;
    bool handled = false;
    bool cancelDefault = false;
    kept(*control, handled, cancelDefault);
    return true;
}

void FakeCommandBarEvents::setClick(ClickHandler newHandler) {
    calls_->enter("CommandBarEvents.setClick");
    handler = std::move(newHandler);
}

// The IDE

std::shared_ptr<FakeIde> FakeIde::make() {
    auto ide = std::make_shared<FakeIde>();
    ide->project = std::make_shared<FakeProject>(ide->calls, "Project1", "");
    ide->bars.push_back(std::make_shared<FakeCommandBar>(ide->calls, "Add-Ins"));
    return ide;
}

void FakeIde::activate(const std::shared_ptr<FakeComponent>& component) {
    pane = component ? std::make_shared<FakeCodePane>(calls, component->code) : nullptr;
}

std::shared_ptr<ide::VBProject> FakeIde::ActiveVBProject() {
    calls->enter("VBE.ActiveVBProject");
    return project;
}

std::shared_ptr<ide::CodePane> FakeIde::ActiveCodePane() {
    calls->enter("VBE.ActiveCodePane");
    return pane;
}

std::shared_ptr<ide::CommandBars> FakeIde::CommandBars() {
    calls->enter("VBE.CommandBars");
    return shared_from_this();
}

std::shared_ptr<ide::Events> FakeIde::Events() {
    calls->enter("VBE.Events");
    return shared_from_this();
}

std::shared_ptr<ide::CommandBar> FakeIde::Item(std::string_view name) {
    calls->enter("CommandBars.Item", quoted(name));
    for (const auto& bar : bars) {
        if (base::equalIgnoringCase(bar->name, name)) return bar;
    }
    throw RunTimeError(ErrorNumber::InvalidProcedureCall);
}

std::shared_ptr<ide::CommandBarEvents>
FakeIde::CommandBarEvents(const std::shared_ptr<ide::CommandBarControl>& control) {
    calls->enter("Events.CommandBarEvents");
    sources.push_back(std::make_shared<FakeCommandBarEvents>(calls, control));
    return sources.back();
}

} // namespace corvelle::test
