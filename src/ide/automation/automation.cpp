#include "ide/automation/automation.h"

#include "ide/automation/menu_adapters.h"
#include "ide/automation/vbe_adapter.h"

namespace corvelle::automation {

std::shared_ptr<ide::VBE> vbe(IDispatch* object) {
    if (!object) return nullptr;
    return std::make_shared<VBEAdapter>(com::Dispatch(com::Ptr<IDispatch>(object)));
}

std::shared_ptr<ide::CommandBarControl> commandBarControl(IDispatch* object) {
    if (!object) return nullptr;
    return std::make_shared<CommandBarControlAdapter>(com::Dispatch(com::Ptr<IDispatch>(object)));
}

std::shared_ptr<ide::CommandBarEvents> commandBarEvents(IUnknown* object) {
    return object ? std::make_shared<CommandBarEventsAdapter>(com::Ptr<IUnknown>(object)) : nullptr;
}

com::Ptr<IDispatch> objectOf(const std::shared_ptr<ide::CommandBarControl>& control) {
    const auto adapter = std::dynamic_pointer_cast<CommandBarControlAdapter>(control);
    return com::Ptr<IDispatch>(adapter ? adapter->object() : nullptr);
}

com::Ptr<IUnknown> objectOf(const std::shared_ptr<ide::CommandBarEvents>& events) {
    const auto adapter = std::dynamic_pointer_cast<CommandBarEventsAdapter>(events);
    return com::Ptr<IUnknown>(adapter ? adapter->object() : nullptr);
}

} // namespace corvelle::automation
