#pragma once

#include "ide/code_module.h"

#include <string>
#include <string_view>

namespace corvelle::workbench {

/// All lines of the module, CR LF between them.
std::string textOf(ide::CodeModule& module);

/// Turns the module's text `before` into `after`. Lines that stay are not touched, so that they keep what the
/// module's file hides with them. Throws base::RunTimeError as the module does.
void changeText(ide::CodeModule& module, std::string_view before, std::string_view after);

} // namespace corvelle::workbench
