#include "ide/automation/component_adapters.h"

#include "ide/automation/adapt.h"
#include "ide/automation/code_adapters.h"
#include "ide/automation/designer_adapters.h"

namespace corvelle::automation {

std::string VBComponentAdapter::Name() {
    return com::textOf(object_.get(L"Name"));
}

void VBComponentAdapter::setName(std::string_view name) {
    object_.put(L"Name", name);
}

ide::ComponentType VBComponentAdapter::Type() {
    return static_cast<ide::ComponentType>(com::longOf(object_.get(L"Type")));
}

bool VBComponentAdapter::IsDirty() {
    return com::booleanOf(object_.get(L"IsDirty"));
}

std::string VBComponentAdapter::FileNames(std::int32_t index) {
    return com::textOf(object_.get(L"FileNames", index));
}

std::shared_ptr<ide::CodeModule> VBComponentAdapter::CodeModule() {
    return adapt<CodeModuleAdapter>(object_.get(L"CodeModule"));
}

std::shared_ptr<ide::VBForm> VBComponentAdapter::Designer() {
    return adapt<VBFormAdapter>(object_.get(L"Designer"));
}

std::shared_ptr<ide::Window> VBComponentAdapter::DesignerWindow() {
    return adapt<WindowAdapter>(object_.get(L"DesignerWindow"));
}

void VBComponentAdapter::Activate() {
    object_.call(L"Activate");
}

void VBComponentAdapter::SaveAs(std::string_view fileName) {
    object_.call(L"SaveAs", fileName);
}

void WindowAdapter::SetFocus() {
    object_.call(L"SetFocus");
}

void WindowAdapter::Close() {
    object_.call(L"Close");
}

std::string VBProjectAdapter::Name() {
    return com::textOf(object_.get(L"Name"));
}

std::string VBProjectAdapter::FileName() {
    return com::textOf(object_.get(L"FileName"));
}

ide::ProjectType VBProjectAdapter::Type() {
    return static_cast<ide::ProjectType>(com::longOf(object_.get(L"Type")));
}

bool VBProjectAdapter::IsDirty() {
    return com::booleanOf(object_.get(L"IsDirty"));
}

std::shared_ptr<ide::VBComponents> VBProjectAdapter::VBComponents() {
    return adapt<VBComponentsAdapter>(object_.get(L"VBComponents"));
}

std::int32_t VBComponentsAdapter::Count() {
    return com::longOf(object_.get(L"Count"));
}

std::shared_ptr<ide::VBComponent> VBComponentsAdapter::Item(std::int32_t index) {
    return adapt<VBComponentAdapter>(object_.get(L"Item", index));
}

std::shared_ptr<ide::VBComponent> VBComponentsAdapter::Item(std::string_view name) {
    return adapt<VBComponentAdapter>(object_.get(L"Item", name));
}

std::shared_ptr<ide::VBComponent> VBComponentsAdapter::Add(ide::ComponentType type) {
    return adapt<VBComponentAdapter>(object_.get(L"Add", static_cast<std::int32_t>(type)));
}

} // namespace corvelle::automation
