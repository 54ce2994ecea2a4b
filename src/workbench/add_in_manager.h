#pragma once

#include "workbench/add_ins.h"

#include <windows.h>

namespace corvelle::workbench {

/// The Add-In Manager: shows the listed add-ins, loads and unloads them and keeps which are loaded at the
/// start, once the user says OK.
void manageAddIns(HWND owner, AddIns& addIns);

} // namespace corvelle::workbench
