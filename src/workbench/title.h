#pragma once

namespace corvelle::workbench {

inline constexpr const char* programTitle = "Corvelle Workbench";

} // namespace corvelle::workbench
