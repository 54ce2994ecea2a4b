#pragma once

#include "workbench/add_ins.h"
#include "workbench/child_windows.h"
#include "workbench/project_session.h"
#include "workbench/project_tree.h"

#include <functional>
#include <optional>
#include <string>
#include <windows.h>

namespace corvelle::workbench {

/// The main window: the project, its code and designer windows, and the menus.
class MainWindow : private workspace::WorkspaceObserver {
  public:
    /// What the window does not do itself.
    struct Commands {
        std::function<void()> manageAddIns;
        std::function<void()> leaving; ///< the window is about to close
        std::function<void()> idle;    ///< a message has been served, and nothing is under way
    };

    MainWindow();
    ~MainWindow() override;
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    Commands commands;

    /// Opens the file, told to the user if it cannot be.
    void open(const std::string& file);
    void show();
    /// Serves messages until the window is closed; returns the exit status.
    int run();

    HWND window() const { return window_; }
    const ProjectSession& session() const { return session_; }
    workspace::Menus& menus() { return menus_; }
    const ChildWindows& children() const { return children_; }
    const ProjectTree& tree() const { return tree_; }
    /// Brings the component's code to the front.
    void showCode(workspace::Component& component);

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT take(UINT message, WPARAM wParam, LPARAM lParam);
    void create();
    void layOut();
    bool dragSplitter(UINT message, LPARAM lParam);
    void tick();
    void updateTitle();

    void designerChanged(workspace::Component& component) override;
    void designerFocused(workspace::Component& component) override;
    void codeActivated(workspace::Component& component) override { showCode(component); }

    // main_commands.cpp
    bool runCommand(int command);
    bool runDialog(int command);
    void chooseProject();
    bool save();
    std::optional<std::filesystem::path> chooseFileOf(workspace::Component& component);
    /// Asks whether to save what is not saved; whether to go on.
    bool mayLeave();
    void openSelected(ChildWindow::Kind kind);
    void openSelectedAsIs();
    void close();

    HWND window_ = nullptr;
    HACCEL accelerators_ = nullptr;
    workspace::Menus menus_;
    ProjectSession session_;
    ProjectTree tree_;
    ChildWindows children_;
    std::optional<AddInMenu> addInMenu_;
    std::string title_;
    int treeWidth_ = 0;
    bool dragging_ = false;
    int dialogs_ = 0; // of its own that are open
};

} // namespace corvelle::workbench
