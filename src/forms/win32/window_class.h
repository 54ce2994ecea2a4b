#pragma once

#include <string>
#include <windows.h>

namespace corvelle::forms {

/// A window class of the module; there as long as this object.
class WindowClass {
  public:
    WindowClass(HINSTANCE module, std::string name, WNDPROC procedure, HBRUSH background);
    ~WindowClass();
    WindowClass(const WindowClass&) = delete;
    WindowClass& operator=(const WindowClass&) = delete;

    const char* name() const { return name_.c_str(); }

  private:
    HINSTANCE module_;
    std::string name_;
};

} // namespace corvelle::forms
