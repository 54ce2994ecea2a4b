#include "workbench/add_in_menu.h"

#include "workbench/resource.h"

namespace corvelle::workbench {

void AddInMenu::update() {
    while (GetMenuItemCount(popup_) > 1) DeleteMenu(popup_, 1, MF_BYPOSITION);
    shown_ = model_.commands();
    if (shown_.empty()) return;
    AppendMenuA(popup_, MF_SEPARATOR, 0, nullptr);
    UINT_PTR number = IDM_FIRST_COMMAND;
    for (const auto& command : shown_) AppendMenuA(popup_, MF_STRING, number++, command->caption().c_str());
}

bool AddInMenu::run(int command) {
    const int index = command - IDM_FIRST_COMMAND;
    if (index < 0 || index >= static_cast<int>(shown_.size())) return false;
    const auto clicked = shown_[static_cast<std::size_t>(index)]; // its handler may change the menu
    clicked->Execute();
    return true;
}

} // namespace corvelle::workbench
