#pragma once

#include "ide/component_type.h"

#include <filesystem>
#include <optional>

namespace corvelle::workspace {

/// The kind of module a file holds, told by its ending without regard to letter case; none for another file.
/// `.frm` is a VBForm here: whether it is an MDI form stands in the file.
std::optional<ide::ComponentType> moduleTypeOfPath(const std::filesystem::path& path);

bool isModulePath(const std::filesystem::path& path);
/// `.vbp`
bool isProjectPath(const std::filesystem::path& path);
/// `.vbg`
bool isGroupPath(const std::filesystem::path& path);

} // namespace corvelle::workspace
