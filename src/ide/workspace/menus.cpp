#include "ide/workspace/menus.h"

#include "base/run_time_error.h"
#include "base/text.h"

#include <algorithm>
#include <iterator>

namespace corvelle::workspace {

using base::ErrorNumber;
using base::RunTimeError;

void MenuCommand::Delete() {
    const auto menu = menu_.lock();
    if (!menu) throw RunTimeError(ErrorNumber::ObjectVariableNotSet);
    const auto self = shared_from_this(); // the menu may hold the last reference
    auto& commands = menu->commands_;
    commands.erase(std::remove(commands.begin(), commands.end(), self), commands.end());
    menu_.reset();
}

void MenuCommand::Execute() {
    const auto self = shared_from_this();
    // A handler may come and go, and take the command with it.
    const auto listeners = listeners_;
    for (const auto& listener : listeners) {
        const auto clicks = listener.lock();
        if (!clicks) continue;
        const auto handler = clicks->handler();
        bool handled = false, cancelDefault = false;
        if (handler) handler(*this, handled, cancelDefault);
    }
}

std::shared_ptr<ide::CommandBarControl> Menu::Add(ide::CommandBarControlType) {
    return insert(commands_.size());
}

std::shared_ptr<MenuCommand> Menu::insert(std::size_t index) {
    auto command = std::make_shared<MenuCommand>(weak_from_this());
    commands_.insert(std::next(commands_.begin(), static_cast<std::ptrdiff_t>(index)), command);
    return command;
}

Menus::Menus() : menus_{std::make_shared<Menu>("Add-Ins")} {}

std::shared_ptr<ide::CommandBar> Menus::Item(std::string_view name) {
    for (const auto& menu : menus_) {
        if (base::equalIgnoringCase(menu->name(), name)) return menu;
    }
    throw RunTimeError(ErrorNumber::InvalidProcedureCall);
}

std::shared_ptr<ide::CommandBarEvents>
MenuEvents::CommandBarEvents(const std::shared_ptr<ide::CommandBarControl>& control) {
    const auto command = std::dynamic_pointer_cast<MenuCommand>(control);
    if (!command) throw RunTimeError(ErrorNumber::TypeMismatch);
    auto clicks = std::make_shared<MenuClicks>();
    auto& listeners = command->listeners_;
    listeners.erase(
        std::remove_if(listeners.begin(), listeners.end(), [](auto& one) { return one.expired(); }),
        listeners.end());
    listeners.push_back(clicks);
    return clicks;
}

} // namespace corvelle::workspace
