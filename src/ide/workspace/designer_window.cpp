#include "ide/workspace/designer_window.h"

#include "ide/workspace/component.h"

namespace corvelle::workspace {

namespace {

const char* kindOf(ide::ComponentType type) {
    switch (type) {
    case ide::ComponentType::VBMDIForm:
        return "MDIForm";
    case ide::ComponentType::PropPage:
        return "PropertyPage";
    case ide::ComponentType::UserControl:
        return "UserControl";
    case ide::ComponentType::DocObject:
        return "UserDocument";
    case ide::ComponentType::ActiveXDesigner:
        return "Designer";
    default:
        return "Form";
    }
}

} // namespace

std::string DesignerWindow::Caption() const {
    return component_.Name() + " (" + kindOf(component_.Type()) + ")";
}

void DesignerWindow::open() {
    if (open_) return;
    open_ = true;
    if (auto* observer = component_.observer()) observer->designerChanged(component_);
}

void DesignerWindow::setVisible(bool visible) {
    if (open_ && visible_ == visible) return;
    open_ = true;
    visible_ = visible;
    if (auto* observer = component_.observer()) observer->designerChanged(component_);
}

void DesignerWindow::SetFocus() {
    setVisible(true);
    if (auto* observer = component_.observer()) observer->designerFocused(component_);
}

void DesignerWindow::Close() {
    if (!open_) return;
    open_ = visible_ = false;
    if (auto* observer = component_.observer()) observer->designerChanged(component_);
}

} // namespace corvelle::workspace
