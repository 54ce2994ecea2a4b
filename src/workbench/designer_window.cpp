#include "workbench/designer_window.h"

#include "ide/designer.h"

#include <commctrl.h>
#include <cstdint>

namespace corvelle::workbench {

namespace {

void addColumn(HWND list, int number, const char* title, int width) {
    LVCOLUMNA column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    std::string text = title;
    column.pszText = text.data();
    column.cx = width;
    SendMessageA(list, LVM_INSERTCOLUMNA, static_cast<WPARAM>(number), reinterpret_cast<LPARAM>(&column));
}

} // namespace

DesignerWindow::DesignerWindow(HWND client, workspace::Component& component, Owner& owner)
    : ChildWindow(Kind::Designer, component, owner) {
    open(client);
    setCaption(component.designerWindow()->Caption());
    const auto designer = component.Designer();
    if (!designer) return;
    const auto controls = designer->VBControls();
    const std::int32_t count = controls->Count();
    for (std::int32_t i = 1; i <= count; ++i) {
        const auto control = controls->Item(i);
        addControl(i - 1, control->Properties()->Item("Name")->Value(), control->ClassName());
    }
}

HWND DesignerWindow::makeContent(HWND parent) {
    constexpr int columnWidth = 170;
    list_ = CreateWindowExA(0, WC_LISTVIEWA, "", WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SHOWSELALWAYS, 0, 0,
                            0, 0, parent, nullptr, GetModuleHandleA(nullptr), nullptr);
    addColumn(list_, 0, "Control", columnWidth);
    addColumn(list_, 1, "Class", columnWidth);
    return list_;
}

void DesignerWindow::addControl(int row, const std::string& name, const std::string& className) {
    LVITEMA item{};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    std::string text = name;
    item.pszText = text.data();
    SendMessageA(list_, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
    text = className;
    item.iSubItem = 1;
    item.pszText = text.data();
    SendMessageA(list_, LVM_SETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

} // namespace corvelle::workbench
