#pragma once

#include "indexer/stable/numbering.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// The mapping module that goes with numbers that stay: it compiles for control arrays, and reaches the forms
// that are on the screen.
namespace corvelle::indexer::stable {

/// How many identifiers the compiler takes in a project.
inline constexpr std::size_t mostIdentifiers = 32000;
/// How much code it takes in one procedure.
inline constexpr std::size_t largestProcedure = 65536;

struct ModuleCode {
    std::vector<std::string> lines;
    std::size_t identifiers = 0;         ///< that it declares
    std::vector<std::string> notReached; ///< designers whose controls no module can assign to
};

/// The module's code: with constants one for each name, with procedures one for each form, which gives the
/// controls that have a HelpContextID theirs. The form that they are on is the procedure's argument.
ModuleCode mappingCode(const Numbering& numbering, bool withConstants, bool withProcedures);

/// Whether a module of that name holds nothing but such code, or is empty. Letter case and indentation may
/// have been changed.
bool isMappingCodeOfOurs(std::string_view bytes, std::string_view moduleName);

/// The name of the first procedure of a module whose text is over `largestProcedure`; empty if there is none.
std::string longProcedure(std::string_view module);

} // namespace corvelle::indexer::stable
