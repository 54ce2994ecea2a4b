#pragma once

#include "ide/workspace/workspace.h"

#include <string>
#include <vector>
#include <windows.h>

namespace corvelle::workbench {

/// The projects and their components, by kind.
class ProjectTree {
  public:
    void create(HWND parent);
    HWND window() const { return tree_; }

    /// Shows the projects as they are now; cheap where nothing has changed.
    void update(const workspace::Workspace* ide);
    /// The component that is selected; nothing for another row.
    workspace::Component* selected() const;

  private:
    struct Row {
        int level;
        std::string text;
        workspace::Component* component;

        bool operator==(const Row& other) const {
            return level == other.level && text == other.text && component == other.component;
        }
    };

    static std::vector<Row> rowsOf(const workspace::Workspace& ide);
    void fill();

    HWND tree_ = nullptr;
    std::vector<Row> rows_;
};

} // namespace corvelle::workbench
