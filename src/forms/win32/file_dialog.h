#pragma once

#include "forms/desktop.h"

#include <optional>
#include <string>
#include <windows.h>

namespace corvelle::forms {

/// Shows the system's open or save dialog; none when the user cancels. The process's current folder stays
/// what it was.
std::optional<std::string> showFileDialog(HWND owner, const CommonDialog& dialog, bool save);

/// The filter as the system wants it: the parts of a description|pattern list each ended by a NUL, and one
/// more. Empty for an empty filter.
std::string systemFilter(const std::string& filter);

} // namespace corvelle::forms
