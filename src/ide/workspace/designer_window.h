#pragma once

#include "ide/designer.h"

#include <string>

namespace corvelle::workspace {

class Component;

/// The window of a component's designer: whether it is open and visible. Nobody sees it unless the workspace
/// has an observer that shows one.
class DesignerWindow : public ide::Window {
  public:
    explicit DesignerWindow(Component& component) : component_(component) {}

    bool isOpen() const { return open_; }
    bool isVisible() const { return visible_; }
    /// "Form1 (Form)".
    std::string Caption() const;
    /// Opens it, invisible, unless it is open.
    void open();
    /// Shows or hides it; opens it for that where it is closed.
    void setVisible(bool visible);
    /// Shows it and brings it to the front.
    void SetFocus() override;
    void Close() override;

  private:
    Component& component_;
    bool open_ = false, visible_ = false;
};

} // namespace corvelle::workspace
