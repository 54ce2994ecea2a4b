#include "forms/win32/window_class.h"

#include "base/run_time_error.h"

#include <utility>

namespace corvelle::forms {

WindowClass::WindowClass(HINSTANCE module, std::string name, WNDPROC procedure, HBRUSH background)
    : module_(module), name_(std::move(name)) {
    WNDCLASSEXA wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.style = CS_DBLCLKS;
    wanted.lpfnWndProc = procedure;
    wanted.hInstance = module_;
    wanted.hCursor = LoadCursor(nullptr, IDC_ARROW);
    wanted.hbrBackground = background;
    wanted.lpszClassName = name_.c_str();
    if (RegisterClassExA(&wanted) == 0) throw base::RunTimeError(base::ErrorNumber::OutOfMemory);
}

WindowClass::~WindowClass() {
    UnregisterClassA(name_.c_str(), module_);
}

} // namespace corvelle::forms
