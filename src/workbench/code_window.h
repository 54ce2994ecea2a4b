#pragma once

#include "ide/code.h"
#include "workbench/child_windows.h"

#include <string>
#include <string_view>

namespace corvelle::workbench {

/// All lines of the module, CR LF between them.
std::string textOf(ide::CodeModule& module);

/// Turns the module's text `before` into `after`. Lines that stay are not touched, so that they keep what the
/// module's file hides with them. Throws base::RunTimeError as the module does.
void changeText(ide::CodeModule& module, std::string_view before, std::string_view after);

/// Shows a component's code and lets the user type into it. Where the window cannot hold the code byte for
/// byte, it can be read only.
class CodeWindow : public ChildWindow {
  public:
    /// Opens the window.
    CodeWindow(HWND client, workspace::Component& component, Owner& owner);
    void tick() override;

  private:
    HWND makeContent(HWND parent) override;
    void notified(UINT code) override;
    void show(std::string text);
    void updateCaption();
    void typed();

    HWND edit_ = nullptr;
    bool filling_ = false;
    bool readOnly_ = false;
    std::string name_;
    std::string shown_;   // what the window holds
    std::string arrived_; // what the module held at the last look, if that was something else
};

} // namespace corvelle::workbench
