#include "workbench/add_in_menu.h"

#include "workbench/resource.h"

#include <utility>

namespace corvelle::workbench {

void AddInMenu::update() {
    while (GetMenuItemCount(popup_) > 1) DeleteMenu(popup_, 1, MF_BYPOSITION);
    shown_ = model_.commands();
    bool separated = false;
    UINT_PTR number = IDM_FIRST_COMMAND;
    for (const auto& command : shown_) {
        const UINT_PTR id = number++;
        if (!command->isVisible()) continue;
        if (!std::exchange(separated, true)) AppendMenuA(popup_, MF_SEPARATOR, 0, nullptr);
        AppendMenuA(popup_, command->isEnabled() ? MF_STRING : MF_STRING | MF_GRAYED, id,
                    command->caption().c_str());
    }
}

bool AddInMenu::run(int command) {
    const int index = command - IDM_FIRST_COMMAND;
    if (index < 0 || index >= static_cast<int>(shown_.size())) return false;
    const auto clicked = shown_[static_cast<std::size_t>(index)]; // its handler may change the menu
    clicked->Execute();
    return true;
}

} // namespace corvelle::workbench
