#pragma once

#include "ide/component_type.h"
#include "ide/workspace/line_reader.h"

#include <string>
#include <string_view>

namespace corvelle::workspace {

/// What stands before the code of a module's file: a byte order mark, the VERSION line, Object lines, the
/// designer section and the run of Attribute lines.
struct ModuleHeader {
    LineReader lines;          ///< stands at the last line of the header, so that the next one is code
    std::string designerName;  ///< the name of the outermost block; empty if it has none
    std::string attributeName; ///< the `VB_Name` attribute; empty if there is none
    bool isMdiForm = false;    ///< the outermost block is an MDI form
};

/// Reads the header of a module's file. A standard module has a designer section only behind a VERSION line.
/// Throws HeaderNeverEnds.
ModuleHeader readModuleHeader(std::string_view bytes, ide::ComponentType type);

} // namespace corvelle::workspace
