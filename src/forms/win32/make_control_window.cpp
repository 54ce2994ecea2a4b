#include "forms/controls.h"
#include "forms/list_controls.h"
#include "forms/win32/control_windows.h"

namespace corvelle::forms {

std::unique_ptr<ControlWindow> ControlWindow::make(FormWindow& form, Control& control) {
    switch (control.kind()) {
    case ControlKind::Label:
        return makeLabelWindow(form, static_cast<Label&>(control));
    case ControlKind::CommandButton:
        return makeButtonWindow(form, static_cast<CommandButton&>(control));
    case ControlKind::CheckBox:
        return makeCheckBoxWindow(form, static_cast<CheckBox&>(control));
    case ControlKind::TextBox:
        return makeTextBoxWindow(form, static_cast<TextBox&>(control));
    case ControlKind::ComboBox:
        return makeComboBoxWindow(form, static_cast<ComboBox&>(control));
    case ControlKind::ListBox:
        return makeListBoxWindow(form, static_cast<ListBox&>(control));
    case ControlKind::Frame:
        return makeFrameWindow(form, static_cast<Frame&>(control));
    case ControlKind::Image:
        return makeImageWindow(form, static_cast<Image&>(control));
    case ControlKind::Slider:
        return makeSliderWindow(form, static_cast<Slider&>(control));
    case ControlKind::TabStrip:
        return makeTabStripWindow(form, static_cast<TabStrip&>(control));
    case ControlKind::Surface:
        break;
    }
    return makeSurfaceWindow(form, static_cast<Surface&>(control));
}

} // namespace corvelle::forms
