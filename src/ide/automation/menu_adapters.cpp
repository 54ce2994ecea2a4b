#include "ide/automation/menu_adapters.h"

#include "ide/automation/adapt.h"

namespace corvelle::automation {

std::shared_ptr<ide::CommandBar> CommandBarsAdapter::Item(std::string_view name) {
    return adapt<CommandBarAdapter>(object_.get(L"Item", name));
}

std::shared_ptr<ide::CommandBarControls> CommandBarAdapter::Controls() {
    return adapt<CommandBarControlsAdapter>(object_.get(L"Controls"));
}

std::shared_ptr<ide::CommandBarControl> CommandBarControlsAdapter::Add(ide::CommandBarControlType type) {
    return adapt<CommandBarControlAdapter>(object_.get(L"Add", static_cast<std::int32_t>(type)));
}

void CommandBarControlAdapter::setCaption(std::string_view caption) {
    object_.put(L"Caption", caption);
}

void CommandBarControlAdapter::Delete() {
    object_.call(L"Delete");
}

} // namespace corvelle::automation
