#include "ide/automation/designer_adapters.h"

#include "ide/automation/adapt.h"

namespace corvelle::automation {

std::shared_ptr<ide::VBControls> VBFormAdapter::VBControls() {
    return adapt<VBControlsAdapter>(object_.get(L"VBControls"));
}

std::int32_t VBControlsAdapter::Count() {
    return com::longOf(object_.get(L"Count"));
}

std::shared_ptr<ide::VBControl> VBControlsAdapter::Item(std::int32_t index) {
    return adapt<VBControlAdapter>(object_.get(L"Item", index));
}

std::string VBControlAdapter::ClassName() {
    return com::textOf(object_.get(L"ClassName"));
}

std::shared_ptr<ide::Properties> VBControlAdapter::Properties() {
    return adapt<PropertiesAdapter>(object_.get(L"Properties"));
}

std::shared_ptr<ide::Property> PropertiesAdapter::Item(std::string_view name) {
    return adapt<PropertyAdapter>(object_.get(L"Item", name));
}

std::string PropertyAdapter::Value() {
    return com::textOf(object_.get(L"Value"));
}

} // namespace corvelle::automation
