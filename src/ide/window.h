#pragma once

namespace corvelle::ide {

/// A window of the IDE.
class Window {
  public:
    virtual ~Window() = default;

    virtual void SetFocus() = 0;
    virtual void Close() = 0;
};

} // namespace corvelle::ide
