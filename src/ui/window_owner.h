#pragma once

namespace corvelle::ui {

/// Who shows an add-in's main window, as the window sees it: the connect object.
class WindowOwner {
  public:
    virtual ~WindowOwner() = default;

    /// Unloads the window and lets go of it.
    virtual void Hide() = 0;
};

} // namespace corvelle::ui
