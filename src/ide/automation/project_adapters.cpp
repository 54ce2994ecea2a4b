#include "ide/automation/project_adapters.h"

#include "ide/automation/adapt.h"
#include "ide/automation/component_adapter.h"

namespace corvelle::automation {

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
