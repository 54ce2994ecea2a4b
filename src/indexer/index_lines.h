#pragma once

#include "base/file.h"

#include <cstdint>
#include <string_view>

// The lines of the header file (.h) and of the configuration file (.hcnf), with their line ends.
namespace corvelle::indexer {

/// "#define IDH_AAAB  1001"
void writeDefine(base::OutputFile& header, std::string_view idhName, std::int32_t number);

/// "<P>frmMain</P>"
void writeDesigner(base::OutputFile& configuration, std::string_view name);

/// "<C>cmdOK CommandButton IDH_AAAB</C>"
void writeControl(base::OutputFile& configuration, std::string_view name, std::string_view className,
                  std::string_view idhName);

} // namespace corvelle::indexer
