#pragma once

#include <vector>
#include <windows.h>

namespace corvelle::forms {

/// The thread's top-level windows, the host's and ours, from the top.
std::vector<HWND> threadWindows();

} // namespace corvelle::forms
