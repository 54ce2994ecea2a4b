#pragma once

#include "base/line_reader.h"
#include "ide/component_type.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::workspace {

/// A control's block in the designer section, `Begin Library.Class Name`, by places in the file.
struct ControlBlock {
    std::uint32_t classBegin, classSize; ///< without the library
    std::uint32_t nameBegin, nameSize;
};

/// What stands before the code of a module's file: a byte order mark, the VERSION line, Object lines, the
/// designer section and the run of Attribute lines.
struct ModuleHeader {
    base::LineReader lines;    ///< stands at the last line of the header, so that the next one is code
    std::string designerName;  ///< the name of the outermost block; empty if it has none
    std::string attributeName; ///< the `VB_Name` attribute; empty if there is none
    bool hasDesigner = false;  ///< there is a designer section
    bool isMdiForm = false;    ///< the outermost block is an MDI form
    /// The blocks inside the outermost one, in the order of the file.
    std::vector<ControlBlock> controls;
};

/// Reads the header of a module's file. A standard module has a designer section only behind a VERSION line.
/// Throws HeaderNeverEnds.
ModuleHeader readModuleHeader(std::string_view bytes, ide::ComponentType type);

} // namespace corvelle::workspace
